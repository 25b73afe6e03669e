#include "platform/Tray.h"

#include <cstring>

#include "platform/Window.h"
#include "platform/win32/CharacterCut.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

#include <shellapi.h>

#include <algorithm>

namespace platform {

namespace {

// The record as Windows 2000 and XP know it: a larger one would be refused there.
constexpr DWORD kRecordBytes = NOTIFYICONDATAA_V2_SIZE;
static_assert(sizeof(void*) == 8 || kRecordBytes == 488);

NOTIFYICONDATAA recordFor(const Window& owner, std::uint32_t id) {
    NOTIFYICONDATAA record = {};
    record.cbSize = kRecordBytes;
    record.hWnd = reinterpret_cast<HWND>(owner.native());
    record.uID = id;
    return record;
}

template <std::size_t Size>
void putText(char (&field)[Size], const std::string& text) {
    const std::string cut = cutAtCharacter(text, Size - 1);
    std::memcpy(field, cut.data(), cut.size());
}

bool putIcon(DWORD action, const Window& owner, std::uint32_t id, std::uintptr_t icon, const std::string& tip) {
    NOTIFYICONDATAA record = recordFor(owner, id);
    record.uFlags = NIF_MESSAGE | NIF_TIP;
    record.uCallbackMessage = WM_MOUSEMOVE;
    if (icon != 0) record.uFlags |= NIF_ICON;
    record.hIcon = reinterpret_cast<HICON>(icon);
    putText(record.szTip, tip);
    return Shell_NotifyIconA(action, &record) != 0;
}

std::vector<std::uint32_t>* iconsOf(const Window& owner) {
    WindowData* data = owner.exists() ? dataOf(hwndOf(owner)) : nullptr;
    return data == nullptr ? nullptr : &data->trayIcons;
}

// Whatever the shell answers: busy at log-on it says no and may add the icon all the same.
void mark(const Window& owner, std::uint32_t id) {
    std::vector<std::uint32_t>* icons = iconsOf(owner);
    if (icons != nullptr && std::find(icons->begin(), icons->end(), id) == icons->end()) icons->push_back(id);
}

void unmark(const Window& owner, std::uint32_t id) {
    if (std::vector<std::uint32_t>* icons = iconsOf(owner)) std::erase(*icons, id);
}

}  // namespace

bool trayAdd(const Window& owner, std::uint32_t id, std::uintptr_t icon, const std::string& tip) {
    mark(owner, id);
    return putIcon(NIM_ADD, owner, id, icon, tip);
}

bool trayModify(const Window& owner, std::uint32_t id, std::uintptr_t icon, const std::string& tip) {
    return putIcon(NIM_MODIFY, owner, id, icon, tip);
}

bool trayDelete(const Window& owner, std::uint32_t id) {
    unmark(owner, id);
    NOTIFYICONDATAA record = recordFor(owner, id);
    return Shell_NotifyIconA(NIM_DELETE, &record) != 0;
}

bool trayBalloon(const Window& owner, std::uint32_t id, const std::string& title, const std::string& text,
                 BalloonIcon icon) {
    NOTIFYICONDATAA record = recordFor(owner, id);
    record.uFlags = NIF_INFO;
    record.dwInfoFlags = static_cast<DWORD>(icon);
    putText(record.szInfoTitle, title);
    putText(record.szInfo, text);
    return Shell_NotifyIconA(NIM_MODIFY, &record) != 0;
}

}  // namespace platform
