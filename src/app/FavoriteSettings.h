// The panel over the favourites list in which selected favourites get another affinity and priority.
#pragma once

#include <string>
#include <vector>

#include "app/AffinityBoxes.h"
#include "app/Messages.h"
#include "app/TimerSlots.h"
#include "controls/FlatTinyCombo.h"
#include "controls/InDialog.h"
#include "controls/Label.h"
#include "controls/UcList1.h"
#include "controls/XPbutn.h"
#include "favorites/FavoriteEdits.h"
#include "favorites/FavoritesList.h"
#include "platform/Window.h"

namespace app {

// It shows what the favourites have in common. Where they differ, a box is in between and the chooser empty, and
// what is left so stays as each of them has it. There is nothing to confirm: when the panel closes, by its button
// or frame or because the user goes on elsewhere, what it shows then is what the favourites get. Escape leaves them
// alone.
class FavoriteSettings : public platform::Window {
public:
    // All outlive the panel. `list` shows the favourites.
    struct Parts {
        platform::Window& owner;
        controls::UcList1& list;
        favorites::FavoritesList& favorites;
        TimerSlots& slots;
        Messages& messages;
        RefreshCycle& refresh;
        int highestCpu;
    };
    explicit FavoriteSettings(const Parts& parts) : parts_(parts) {}

    // Opens the panel for the selected favourites; nothing without any.
    void Open();
    // Takes over what it shows, and closes it; says so when a favourite would have been left without processor.
    void Close();
    // The same without a word.
    favorites::SettingsEdit Finish();
    // One look, every 50 ms while it is open, whether the user has gone elsewhere.
    void Watch();

protected:
    void onPaint(platform::Canvas& canvas, const platform::Rect& dirty) override;
    void onKey(const platform::KeyEvent& event) override { Key(event); }
    void onFocus(bool gained) override {
        if (gained) affinityBoxes_.FocusFirst();
    }
    void onClose() override { Close(); }
    void onSystemColors() override { invalidate(); }

private:
    bool Create();
    bool CreateControls();
    void Arrange();
    void ShowSettings(const std::vector<favorites::Favorite>& favorites);
    bool Key(const platform::KeyEvent& event);
    bool InUse() const;
    bool Leave();  // closes it, without more; whether the user was still in it
    std::vector<int> EditedRows() const;

    Parts parts_;
    controls::Label lblWhich_;
    controls::Label lblPriority_;
    AffinityBoxes affinityBoxes_;
    controls::InDialog<controls::FlatTinyCombo> cmboPriority_;
    controls::InDialog<controls::XPbutn> cmdClose_;
    std::vector<std::string> paths_;  // of the favourites: rows may move meanwhile
};

}  // namespace app
