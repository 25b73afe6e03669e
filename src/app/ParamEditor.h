// The little text box laid over a favourite's parameter while the user changes it.
#pragma once

#include <string>

#include "app/Messages.h"
#include "app/RefreshCycle.h"
#include "app/TimerSlots.h"
#include "controls/BalloonTips.h"
#include "controls/UcList1.h"
#include "favorites/FavoritesList.h"
#include "platform/TextBox.h"

namespace app {

class ParamEditor {
public:
    // All outlive the editor. `list` shows the favourites.
    ParamEditor(controls::UcList1& list, favorites::FavoritesList& favorites, RefreshCycle& refresh,
                TimerSlots& slots, Messages& messages, controls::BalloonTips& tips)
        : list_(list), favorites_(favorites), refresh_(refresh), slots_(slots), messages_(messages), tips_(tips) {}

    // Makes the box `TxTParam`, which is not shown yet.
    bool Create();
    // Lets the user change the parameter of the one selected favourite; says so when it is not one.
    void Edit();
    // Takes over what is being typed, as Enter does.
    void Accept();

private:
    void Close();

    controls::UcList1& list_;
    favorites::FavoritesList& favorites_;
    RefreshCycle& refresh_;
    TimerSlots& slots_;
    Messages& messages_;
    controls::BalloonTips& tips_;
    platform::TextBox txtParam_;
    std::string path_;  // of the favourite being changed: rows may move meanwhile
    bool open_ = false;
};

}  // namespace app
