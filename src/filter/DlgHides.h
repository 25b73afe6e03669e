// The dialog in which the file filter is edited.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/BalloonTips.h"
#include "controls/FrmMsgBox.h"
#include "controls/InDialog.h"
#include "controls/Label.h"
#include "controls/UcList1.h"
#include "controls/XPbutn.h"
#include "filter/FileFilter.h"
#include "platform/Window.h"

namespace filter {

// Shows one row an entry and changes the filter as the user does; the filter itself belongs to the main window.
class DlgHides : public platform::Window {
public:
    // All outlive the dialog.
    struct Parts {
        FileFilter& filter;
        controls::MsgBoxes& msgBoxes;
        controls::BalloonTips& tips;
        const bool& messageBeep;        // message boxes come with a sound
        std::function<void()> Changed;  // after every add and remove
    };
    explicit DlgHides(const Parts& parts) : parts_(parts) {}
    ~DlgHides() override { destroy(); }  // while the controls that its handlers reach are there

    // Shows the dialog over `owner` until the user closes it, or it goes with its owner. The message loop runs.
    void ShowModal(platform::Window& owner);

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onFocus(bool gained) override;
    void onClose() override { Close(); }
    void onSystemColors() override { invalidate(); }

private:
    struct ButtonWords {
        const char* name;
        const char* caption;
        const char* tip;
    };
    using Button = controls::InDialog<controls::XPbutn>;

    bool Create(platform::Window& owner);
    bool CreateList(const platform::Rect& bounds);
    bool CreateButton(Button& button, const ButtonWords& words);
    void Arrange(const platform::Rect& over);
    template <class Control>
    void Attach(controls::InDialog<Control>& control);
    bool Key(const platform::KeyEvent& event);

    void ReLoad();
    void ShowRowOf(std::string_view fileName);
    void SelectionChanged();
    bool AnySelected() const;

    void Browse();
    void Add(const std::vector<std::string>& paths);
    void Remove();
    void Tell(const std::string& text);
    void Close();

    Parts parts_;
    controls::InDialog<controls::UcList1> ucFilter_;
    controls::Label lblFilterCount_;
    Button cmdBrowse_;
    Button cmdRemove_;
    Button cmdClose_;
    platform::Window* focus_ = &ucFilter_;  // the control that has the focus while the dialog is the active window
    bool descending_ = false;               // as the user sorted the list
    bool columnResized_ = false;            // by the user
};

}  // namespace filter
