#include "platform/win32/WideText.h"

#include "platform/win32/Win32.h"

namespace platform {

std::wstring wideText(std::string_view text) {
    const int bytes = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');  // never more of them than bytes
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, wide.data(), bytes);
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

std::string narrowText(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, narrow.data(), bytes, nullptr, nullptr);
    return narrow;
}

}  // namespace platform
