// Pop-up menus, worked with the keyboard. Items are counted from 0, without the separators.
#pragma once

#include <functional>
#include <optional>

namespace desktop {

// Opens a menu and selects an item as below, without taking it: Enter would.
bool SelectInMenu(const std::function<void(int aside)>& open, int item, std::optional<int> inner = std::nullopt);
// Opens a menu with a click (as Repeat makes it) and takes one of its items, or one of the menu that this item
// opens. False when there is no menu or it doesn't go.
bool ChooseInMenu(const std::function<void(int aside)>& open, int item, std::optional<int> inner = std::nullopt);

}  // namespace desktop
