// What drawing does with the code page, which only Windows has.
#include <doctest/doctest.h>

#include <string>

#include "platform/Canvas.h"
#include "platform/win32/Win32.h"

TEST_CASE("text is drawn in the code page of the process, one character for each, however long") {
    using platform::Font;
    if (GetACP() != CP_UTF8) {
        MESSAGE("this system has no UTF-8 code page for a process");
        return;
    }
    const int u = platform::textSize("u", Font::Normal).width;
    CHECK(platform::textSize("\xC3\xBC", Font::Normal).width == u);  // the same letter with two dots
    std::string many;
    for (int i = 0; i < 300; ++i) many += "\xC3\xBC";
    CHECK(platform::textSize(many, Font::Normal).width == 300 * u);
}
