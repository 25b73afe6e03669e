// A process to experiment with: does nothing, or with the argument "busy" nothing but work. It ends by itself
// after two minutes, should the test that started it have failed to end it.
#include <cstring>

#include "platform/win32/Win32.h"

int main(int argc, char** argv) {
    constexpr DWORD kLifetime = 120000;
    if (argc < 2 || std::strcmp(argv[1], "busy") != 0) {
        Sleep(kLifetime);
        return 0;
    }
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < kLifetime) {
    }
    return 0;
}
