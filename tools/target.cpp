// Target.exe: a program to set affinity and priority of. It idles behind a small window until that is closed,
// the given process ends, or its time is over: it never outlives a test. The window shows what it was started with.
//   Target.exe [SECONDS [PARENT_PID]]     60 seconds when not given
#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace {

// What follows the program's name, as it stands.
const char* Arguments() {
    const char* line = GetCommandLineA();
    bool quoted = false;
    for (; *line != 0 && (quoted || *line != ' '); ++line) quoted = quoted != (*line == '"');
    return *line != 0 ? line + 1 : line;
}

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcA(window, message, wParam, lParam);
}

void ShowTargetWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = "KestrumTarget";
    RegisterClassA(&windowClass);
    char title[64];
    std::snprintf(title, sizeof title, "Target %lu", GetCurrentProcessId());
    HWND window = CreateWindowExA(0, "KestrumTarget", title, WS_OVERLAPPEDWINDOW, 1030, 680, 240, 90, nullptr,
                                  nullptr, windowClass.hInstance, nullptr);
    CreateWindowExA(0, "STATIC", Arguments(), WS_CHILD | WS_VISIBLE, 8, 8, 216, 20, window, nullptr,
                    windowClass.hInstance, nullptr);
    ShowWindow(window, SW_SHOWNOACTIVATE);
}

}  // namespace

int main(int argc, char** argv) {
    const DWORD lifetime = 1000 * static_cast<DWORD>(argc > 1 ? std::atoi(argv[1]) : 60);
    const DWORD parentId = argc > 2 ? static_cast<DWORD>(std::atoi(argv[2])) : 0;
    HANDLE parent = parentId != 0 ? OpenProcess(SYNCHRONIZE, FALSE, parentId) : nullptr;
    if (parentId != 0 && parent == nullptr) return 1;
    ShowTargetWindow();

    const DWORD end = GetTickCount() + lifetime;
    for (DWORD now = GetTickCount(); now < end; now = GetTickCount()) {
        const DWORD handles = parent != nullptr ? 1 : 0;
        const DWORD woken = MsgWaitForMultipleObjects(handles, &parent, FALSE, end - now, QS_ALLINPUT);
        if (handles != 0 && woken == WAIT_OBJECT_0) return 0;
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) return 0;
            DispatchMessageA(&message);
        }
    }
    return 0;
}
