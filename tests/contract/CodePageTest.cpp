#include "platform/CodePage.h"

#include <doctest/doctest.h>

#include "contract/Machine.h"

TEST_CASE("valid text") {
    contract::freshMachine();
    for (const char* text : {"", "plain", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "a\xC3\xA4z"}) {
        CAPTURE(text);
        CHECK(platform::isValidText(text));
    }
    CHECK(platform::isValidText(std::string("a\0b", 3)));
    // Cut, stray, overlong, half a pair, beyond the last character, no lead byte.
    for (const char* text : {"\xC3", "a\xE2\x82", "\x80", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"}) {
        CAPTURE(text);
        CHECK_FALSE(platform::isValidText(text));
        CHECK_FALSE(platform::isValidText(std::string(text) + "z"));
    }
}

TEST_CASE("lower and upper case") {
    contract::freshMachine();
    struct Pair {
        const char* lower;
        const char* upper;
    };
    for (const Pair& pair :
         {Pair{"", ""}, Pair{"c:\\windows\\a-z_0.exe", "C:\\WINDOWS\\A-Z_0.EXE"}, Pair{"@[`{", "@[`{"},
          Pair{"\xC3\xA4\xC3\xB6\xC3\xBC.exe", "\xC3\x84\xC3\x96\xC3\x9C.EXE"},
          Pair{"\xC3\xA0\xC3\xBE", "\xC3\x80\xC3\x9E"}}) {
        CAPTURE(pair.lower);
        CHECK(platform::lowerCase(pair.lower) == (pair.lower[0] == '@' ? "@[`{" : pair.lower));
        CHECK(platform::lowerCase(pair.upper) == pair.lower);
        CHECK(platform::upperCase(pair.lower) == pair.upper);
        CHECK(platform::upperCase(pair.upper) == pair.upper);
    }
    // No letters, or none with another case; the multiplication and the division sign look like a pair.
    for (const char* text : {"\xC3\x97\xC3\xB7", "\xE2\x82\xAC", "\xE6\xBC\xA2\xE5\xAD\x97"}) {
        CAPTURE(text);
        CHECK(platform::lowerCase(text) == text);
        CHECK(platform::upperCase(text) == text);
    }
    CHECK(platform::lowerCase(std::string("A\0B", 3)) == std::string("a\0b", 3));
    // Damaged text keeps its damage, and its letters still change.
    CHECK(platform::lowerCase("A\xFF\xC3\x84Z\xC3") == "a\xFF\xC3\xA4z\xC3");
    CHECK(platform::upperCase("a\xE2\x82z") == "A\xE2\x82Z");
}
