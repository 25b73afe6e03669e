// Tells what it was started with: writes what commandLine gives to its standard output.
#include "platform/Machine.h"

#include <string>

#include "platform/win32/Win32.h"

int main() {
    const std::string text = platform::commandLine();
    DWORD written = 0;
    const BOOL done =
        WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    return done && written == text.size() ? 0 : 1;
}
