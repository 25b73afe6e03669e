#include <doctest/doctest.h>

#include "platform/sim/Sim.h"
#include "text/Case.h"
#include "text/Numbers.h"
#include "text/Split.h"

TEST_CASE("Numbers are recognised as people write them") {
    for (const char* good : {"0", "12", " 12 ", "-12", "+1", "1,234", "1.5", ".5", "5.", "1e3", "1E-3"}) {
        CAPTURE(good);
        CHECK(text::IsNumeric(good));
    }
    for (const char* bad : {"", " ", "abc", "12x", "1 2", "-", ".", ",", ",1", "0x10", "1e", "--1", "1.2.3"}) {
        CAPTURE(bad);
        CHECK_FALSE(text::IsNumeric(bad));
        CHECK(text::ToInt32(bad) == 0);
    }
    CHECK(text::ToInt32("1,234") == 1234);
    CHECK(text::ToInt32("2.5") == 2);
    CHECK(text::ToInt32("3.5") == 4);
    CHECK(text::ToInt32("-1e999") == -2147483647 - 1);
    CHECK(text::ToInt32("1e-999") == 0);
    CHECK(text::ToInt32(std::string(500, '9') + "e-1") == 2147483647);
}

TEST_CASE("Stored numbers survive damage") {
    CHECK(text::LeadingNumber("  -12px") == -12);
    CHECK(text::LeadingNumber("1.5 and more") == 2);
    CHECK(text::LeadingNumber("1,234") == 1);
    CHECK(text::LeadingNumber("px") == 0);
    CHECK(text::LeadingNumber("-999999") == -32768);
    CHECK(text::LeadingNumber(std::string(70'000, '9')) == 32767);
    CHECK(text::WholeNumber(" 3 ") == 3);
    for (const char* none : {"3x", "", "40000"}) CHECK_FALSE(text::WholeNumber(none));
    for (const char* yes : {"TRUE", "-1"}) CHECK(text::ToBool(yes) == true);
    for (const char* no : {"False", "0"}) CHECK(text::ToBool(no) == false);
    CHECK_FALSE(text::ToBool("yes"));
}

TEST_CASE("Numbers are shown as the list needs them") {
    CHECK(text::TwoDigits(-7) == "00");
    CHECK(text::TwoDigits(9.4) == "09");
    CHECK(text::TwoDigits(9.5) == "10");
    CHECK(text::Grouped(0).empty());
    CHECK(text::Grouped(1234567) == "1,234,567");
    CHECK(text::Decimal(-9223372036854775807LL - 1) == "-9223372036854775808");
}

TEST_CASE("File names are shown in the casing of their list") {
    platform::sim::reset();
    struct Case {
        const char *name, *process, *favorite;
    };
    for (const Case& c :
         {Case{"SVCHOST.EXE", "Svchost.exe", "Svchost.exe"},
          {"myApp.EXE", "MyApp.exe", "myApp.EXE"},
          {"aB", "AB", "aB"},
          {"", "", ""},
          {"\xC3\xA4pfel.exe", "\xC3\x84pfel.exe", "\xC3\x84pfel.exe"},
          {"Ab\xC3\xA4\xC3\xA4", "Ab\xC3\xA4\xC3\xA4", "Ab\xC3\xA4\xC3\xA4"},
          {"aB.\xC3\x84\xC3\x96\xC3\x9C", "AB.\xC3\xA4\xC3\xB6\xC3\xBC", "aB.\xC3\x84\xC3\x96\xC3\x9C"},
          {"aBC\xE9.EXE", "ABC\xE9.exe", "aBC\xE9.EXE"}}) {
        CAPTURE(c.name);
        CHECK(text::ProcessDisplayName(c.name) == c.process);
        CHECK(text::FavoriteDisplayName(c.name) == c.favorite);
    }
    CHECK(text::FileNameOf("C:\\a\\").empty());
    CHECK(text::Trim("   ").empty());
    CHECK(text::Split("", '\t').size() == 1);
    CHECK(text::ReplaceAll("\\??\\C:\\a\\??\\b", "\\??\\", "") == "C:\\ab");
}
