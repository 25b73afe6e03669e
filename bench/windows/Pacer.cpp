// Pacer.exe TITLE MILLISECONDS TIMER: gives the window of that title the message of its timer, time and again. For
// programs that can't be told to refresh so often.
#include <windows.h>

#include <cstdlib>

int main(int argc, char** argv) {
    if (argc < 4) return 2;
    const auto period = static_cast<DWORD>(std::atoi(argv[2]));
    const auto timer = static_cast<WPARAM>(std::atoi(argv[3]));
    HWND window = nullptr;
    for (int tries = 0; tries < 300 && window == nullptr; ++tries) {
        Sleep(100);
        window = FindWindowA(nullptr, argv[1]);
    }
    while (IsWindow(window)) {
        PostMessageA(window, WM_TIMER, timer, 0);
        Sleep(period);
    }
    return 0;
}
