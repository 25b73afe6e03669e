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
    const std::pair<std::string, std::int64_t> numbers[] = {
        {"1,234", 1234},
        {"2.5", 2},
        {"3.5", 4},
        {"99999999999999999999", 2147483647},
        {"-1e999", -2147483648LL},
        {"1e-999", 0},
        {std::string(500, '9') + "e-1", 2147483647},
    };
    for (const auto& [text, number] : numbers) CHECK(text::ToInt32(text) == number);
}

TEST_CASE("Stored numbers survive damage") {
    const std::pair<std::string, int> numbers[] = {
        {"  -12px", -12},
        {"1.5 and more", 2},
        {"1,234", 1},
        {"999999", 32767},
        {"-999999", -32768},
        {"px", 0},
        {std::string(70'000, '9'), 32767},
    };
    for (const auto& [text, number] : numbers) CHECK(text::LeadingNumber(text) == number);
    CHECK(text::WholeNumber(" 3 ") == 3);
    for (const char* none : {"3x", "", "40000"}) CHECK_FALSE(text::WholeNumber(none));
    for (const char* yes : {"TRUE", "-1"}) CHECK(text::ToBool(yes) == true);
    for (const char* no : {"False", "0"}) CHECK(text::ToBool(no) == false);
    CHECK_FALSE(text::ToBool("yes"));
}

TEST_CASE("Numbers are shown as the list needs them") {
    const std::pair<double, const char*> loads[] = {{-7, "00"}, {0, "00"}, {4.5, "05"}, {9.5, "10"}, {100, "100"}};
    for (const auto& [load, shown] : loads) CHECK(text::TwoDigits(load) == shown);
    CHECK(text::Grouped(0).empty());
    CHECK(text::Grouped(999) == "999");
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
