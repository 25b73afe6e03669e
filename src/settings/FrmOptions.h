// The options dialog.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>

#include "controls/BalloonTips.h"
#include "controls/FlatTinyCombo.h"
#include "controls/FrmMsgBox.h"
#include "controls/GradColorChk.h"
#include "controls/HorizSlider.h"
#include "controls/InDialog.h"
#include "controls/Label.h"
#include "controls/XPbutn.h"
#include "platform/Window.h"
#include "settings/OptionsHost.h"
#include "settings/OptionsPages.h"
#include "settings/OptionsTable.h"
#include "settings/Settings.h"

namespace settings {

// Three pages of controls, each of which writes its setting as soon as it is changed; there is nothing to confirm.
class FrmOptions : public platform::Window {
public:
    // All outlive the dialog.
    struct Parts {
        Settings& settings;
        OptionsHost& host;
        controls::MsgBoxes& msgBoxes;
        controls::BalloonTips& tips;
        std::string folder;  // of the program and Kestrum Jr.
    };
    explicit FrmOptions(const Parts& parts);
    ~FrmOptions() override { destroy(); }  // while the controls that its handlers reach are there

    // Shows the dialog over `owner`, which stays usable, until the user closes it or it goes with its owner; brings
    // it to the front when it is open.
    void Show(platform::Window& owner);
    // Profiles came or went, or another one is in use: fills the lists of profiles anew. Nothing happens while the
    // dialog is not shown.
    void RefillProfiles();

    // For tests, which look at the parts from outside.
    platform::Window& ControlOf(Option option);
    OptionsPageButton& PageButton(OptionPage page) { return cmdFrame_[static_cast<std::size_t>(page)]; }

protected:
    void onFocus(bool gained) override;
    void onClose() override { Close(); }
    void onDestroyed() override;
    void onSystemColors() override { invalidate(); }

private:
    using Check = controls::InDialog<controls::GradColorChk>;
    using List = controls::InDialog<controls::FlatTinyCombo>;
    using Slider = controls::InDialog<controls::HorizSlider>;
    using Button = controls::InDialog<controls::XPbutn>;
    struct Item {
        std::variant<Check, List, Slider, Button> control;
        controls::Label label;  // of a list or slider
    };
    // What the layout follows from.
    struct Columns {
        int row = 0;    // height
        int left = 0;   // width of the first column
        int label = 0;  // widths of the second one: the labels, and what they belong to
        int value = 0;
        int Right() const;
    };

    // FrmOptions.cpp: making it, pages, keys.
    bool Create(platform::Window& owner);
    bool CreatePages();
    bool CreateControl(const OptionInfo& info);
    bool CreateCheck(const OptionInfo& info, platform::Window& parent);
    bool CreateList(const OptionInfo& info, platform::Window& parent);
    bool CreateSlider(const OptionInfo& info, platform::Window& parent);
    bool CreateButton(const OptionInfo& info, platform::Window& parent);
    template <class AnyControl>
    void Attach(AnyControl& control);
    template <class AnyControl>
    void Explain(AnyControl& control, const OptionInfo& info);
    void ShowPage(OptionPage page);
    bool TakeKey(const platform::KeyEvent& event);
    bool PageKey(std::uint16_t code, bool ctrl);
    void Close();

    Item& At(Option option) { return items_[static_cast<std::size_t>(option)]; }
    Check& CheckAt(Option option) { return *std::get_if<Check>(&At(option).control); }
    List& ListAt(Option option) { return *std::get_if<List>(&At(option).control); }
    Slider& LevelSlider() { return *std::get_if<Slider>(&At(Option::HScrl).control); }
    OptionsPage& PageAt(OptionPage page) { return framez_[static_cast<std::size_t>(page)]; }

    // FrmOptionsLayout.cpp
    platform::Size LayOut();
    Columns Measure();
    int ButtonWidth() const;
    platform::Size PreferredSize(Option option);
    void PlaceOnPage(const OptionInfo& info, const Columns& columns);
    platform::Size PlaceAround(platform::Size page);

    // FrmOptionsEffects.cpp: reading the settings, and what each change does.
    void Load();
    void Fill(const OptionInfo& info);
    void Read(const OptionInfo& info);
    void ShowLevel();
    void Changed(Option option);
    void Write(const OptionInfo& info);
    void TakeEffect(const OptionInfo& info);
    void SeeThroughChanged();
    void LevelChanged();
    void ShadowChanged();
    void ResetColumns();
    void RestoreAll();
    void StartChanged();
    void StartJrChanged();
    void SaveLevel();
    bool Ask(const std::string& question, controls::Preset preset);
    bool Sounds() const { return parts_.settings.Number(Key::MsgBeep) == 1; }

    Parts parts_;
    std::array<OptionsPageButton, kOptionPages> cmdFrame_;
    std::array<OptionsPage, kOptionPages> framez_;
    std::array<Item, static_cast<std::size_t>(Option::Count)> items_;
    controls::Label lblMaker_;
    OptionPage page_ = OptionPage::Misc;
    platform::Window* focus_ = &cmdFrame_[0];  // what has the focus while the dialog is the active window
    bool levelPending_ = false;                // the level is to be written when the dialog closes
};

}  // namespace settings
