// The icon in the notification area. Shell_NotifyIconA.
#pragma once

#include <cstdint>
#include <string>

namespace platform {

class Window;

enum class BalloonIcon { None = 0, Info = 1, Warning = 2, Error = 3 };

// `owner` gets the user's doings at the icon as onTray. It is a window that is never shown: Windows reports them
// as mouse moves (WM_MOUSEMOVE, the code in place of the coordinates).
// Each gives false when the shell refuses (not running). An `icon` of 0 leaves the picture as it is. `tip` is cut
// at 127 characters.
bool trayAdd(const Window& owner, std::uint32_t id, std::uintptr_t icon, const std::string& tip);
bool trayModify(const Window& owner, std::uint32_t id, std::uintptr_t icon, const std::string& tip);
bool trayDelete(const Window& owner, std::uint32_t id);
// Shows a balloon at the icon; `title` is cut at 63, `text` at 255 characters.
bool trayBalloon(const Window& owner, std::uint32_t id, const std::string& title, const std::string& text,
                 BalloonIcon icon);

}  // namespace platform
