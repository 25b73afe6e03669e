#include "platform/win32/Modal.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace platform {

namespace {

struct Level {
    HWND dialog = nullptr;          // null: one of the system's
    HWND owner = nullptr;           // of that one
    std::vector<HWND> suspended{};  // its windows, while a dialog of ours is in front of them
};

// There is one user, hence one state.
struct Modality {
    std::vector<HWND> windows;  // ours, top-level
    std::vector<Level> levels;  // the last one counts
};

Modality& modality() {
    static Modality state;
    return state;
}

bool belongsTo(HWND window, HWND dialog) {
    while (window != nullptr && window != dialog) window = GetWindow(window, GW_OWNER);
    return window != nullptr;
}

bool isOurs(HWND window) {
    const std::vector<HWND>& windows = modality().windows;
    return std::find(windows.begin(), windows.end(), window) != windows.end();
}

// EnumThreadWindows: disables what is shown of the system's dialogs; balloons stay as they are.
BOOL CALLBACK suspend(HWND window, LPARAM level) {
    char name[16] = {};
    GetClassNameA(window, name, sizeof name);
    if (std::strcmp(name, "#32770") != 0 || isOurs(window)) return TRUE;
    if (!IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
    EnableWindow(window, FALSE);
    reinterpret_cast<Level*>(level)->suspended.push_back(window);
    return TRUE;
}

void resume(Level& level) {
    for (const HWND window : std::exchange(level.suspended, {})) EnableWindow(window, TRUE);
}

// Brings every window into the state that the last level and the program's own wishes give.
void refresh() {
    std::vector<Level>& levels = modality().levels;
    if (!levels.empty()) resume(levels.back());
    const HWND left = levels.empty() ? nullptr : levels.back().owner;  // the system's dialog sees to it
    const std::vector<HWND> windows = modality().windows;              // a handler may make or destroy some
    for (const HWND window : windows) {
        const WindowData* data = isOurs(window) ? dataOf(window) : nullptr;
        if (data == nullptr || window == left) continue;
        const bool may = mayTakeInput(window, *data);
        if (may != (IsWindowEnabled(window) != FALSE)) EnableWindow(window, may);
    }
}

void begin(Level level) {
    cancelCapture();
    std::vector<Level>& levels = modality().levels;
    if (!levels.empty() && levels.back().dialog == nullptr) {
        EnumThreadWindows(GetCurrentThreadId(), suspend, reinterpret_cast<LPARAM>(&levels.back()));
    }
    levels.push_back(std::move(level));
    refresh();
}

// What the active window's place goes to when its owner is still disabled: the dialog it was in front of.
void activateNext(HWND leaving) {
    const std::vector<Level>& levels = modality().levels;
    if (levels.empty() || GetActiveWindow() != leaving || IsWindowEnabled(GetWindow(leaving, GW_OWNER))) return;
    if (const HWND next = levels.back().dialog) SetActiveWindow(next);
}

template <class Goes>
void endWhere(Goes goes, HWND leaving) {
    if (std::erase_if(modality().levels, goes) == 0) return;
    refresh();
    activateNext(leaving);
}

}  // namespace

void addTopLevel(HWND window) {
    modality().windows.push_back(window);
    if (!mayTakeInput(window, *dataOf(window))) EnableWindow(window, FALSE);
}

void removeTopLevel(HWND window) {
    std::erase(modality().windows, window);
    endModalsOf(window);
}

bool mayTakeInput(HWND window, const WindowData& data) {
    const std::vector<Level>& levels = modality().levels;
    const bool blocked =
        data.kind != WindowKind::Child && !levels.empty() && !belongsTo(window, levels.back().dialog);
    return data.enabled && !blocked;
}

HWND modalInFrontOf(HWND window) {
    const std::vector<Level>& levels = modality().levels;
    if (levels.empty() || !isOurs(window) || belongsTo(window, levels.back().dialog)) return nullptr;
    return levels.back().dialog;
}

void beginModal(Window& dialog) {
    const HWND hwnd = hwndOf(dialog);
    const std::vector<Level>& levels = modality().levels;
    const auto isIt = [hwnd](const Level& level) { return level.dialog == hwnd; };
    if (hwnd == nullptr || std::any_of(levels.begin(), levels.end(), isIt)) return;
    begin({hwnd});
}

void endModal(HWND dialog) {
    endWhere([dialog](const Level& level) { return level.dialog == dialog; }, dialog);
}

void endModalsOf(HWND window) {
    endWhere([window](const Level& level) { return belongsTo(level.dialog, window); }, window);
}

SystemModal::SystemModal(HWND owner) {
    begin({nullptr, owner});
}

SystemModal::~SystemModal() {
    std::vector<Level>& levels = modality().levels;
    const auto system =
        std::find_if(levels.rbegin(), levels.rend(), [](const Level& level) { return level.dialog == nullptr; });
    if (system != levels.rend()) levels.erase(std::next(system).base());
    refresh();
}

}  // namespace platform
