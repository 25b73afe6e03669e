#include "settings/Settings.h"

#include <doctest/doctest.h>

#include "controls/ComboList.h"
#include "platform/sim/Sim.h"
#include "settings/Colours.h"

namespace sim = platform::sim;
using settings::Key;

namespace {

// An empty store.
struct Store : settings::Settings {
    Store() { sim::reset(); }
    static void Put(const char* key, const std::string& value) { sim::putSetting(settings::kSection, key, value); }
    static std::string Stored(const std::string& key) {
        return sim::setting(settings::kSection, key).value_or("(none)");
    }
};

}  // namespace

TEST_CASE_FIXTURE(Store, "an empty store gives the defaults of a first start") {
    const std::pair<Key, int> numbers[] = {
        {Key::TransLevel, 85}, {Key::TrayForeColor, 5}, {Key::GrphCapColur, 7},
        {Key::GrphValColr, 3}, {Key::Splitter, 474},    {Key::EnforceInterval, 5},
        {Key::ShowTips, 1},    {Key::Hotkey, 0},        {Key::AutoSet, 0}};
    for (const auto& [key, number] : numbers) {
        CAPTURE(settings::InfoOf(key).name);
        CHECK(Number(key) == number);
    }
    CHECK(Bool(Key::FavSortDir));
    CHECK_FALSE(Bool(Key::SeeThruCPU));
    CHECK(Text(Key::FavColWideMax).empty());
    CHECK(Text(Key::SplitterMax) == "474");
    CHECK_FALSE(GraphTop(0));
    CHECK(Position("Form1").empty());
}

TEST_CASE_FIXTURE(Store, "stored texts are read by the type of their key") {
    const struct {
        const char* text;
        int number;       // as EnforceInterval, a number with the default 5
        int wholeNumber;  // as CpuToolTips, an int with the default 1
        bool sortDir;     // as FavSortDir, a bool with the default True
    } cases[] = {
        {"7", 7, 7, true},       {"0", 0, 0, false},        {"-3", -3, -3, true},
        {"12abc", 12, 1, true},  {"abc", 0, 1, true},       {"", 0, 1, true},
        {" 9", 9, 9, true},      {"99999", 32767, 1, true}, {"-99999", -32768, 1, true},
        {"True", 0, 1, true},    {"False", 0, 1, false},    {"false", 0, 1, false},
        {"1e9", 32767, 1, true}, {"4.6", 5, 5, true},       {"2147483648", 32767, 1, true},
    };
    for (const auto& each : cases) {
        CAPTURE(each.text);
        for (const char* key : {"EnforceInterval", "CpuToolTips", "FavSortDir"}) Put(key, each.text);
        CHECK(Number(Key::EnforceInterval) == each.number);
        CHECK(Number(Key::CpuToolTips) == each.wholeNumber);
        CHECK(Bool(Key::FavSortDir) == each.sortDir);
    }
    for (const char* key : {"EnforceInterval", "FavSortDir"}) sim::putBinarySetting(settings::kSection, key);
    CHECK(Number(Key::EnforceInterval) == 5);
    CHECK(Bool(Key::FavSortDir));
}

TEST_CASE_FIXTURE(Store, "the maximised layout starts out as the normal one") {
    Put("FileColWide", "1,2,");
    CHECK(Text(Key::FileColWideMax) == "1,2,");
    Put("FileColWideMax", "");
    CHECK(Text(Key::FileColWideMax).empty());
    Put("FavColWide", "3,4,");
    CHECK(Text(Key::FavColWideMax) == "3,4,");
    for (const auto& [splitter, maximised] : {std::pair{"200", "200"}, std::pair{"wide", "0"}}) {
        Put("Splitter", splitter);
        CHECK(Text(Key::SplitterMax) == maximised);
    }
    Put("SplitterMax", "700");
    CHECK(Text(Key::SplitterMax) == "700");
}

TEST_CASE_FIXTURE(Store, "values are written as text under their own keys, and all go at once") {
    WriteNumber(Key::TransLevel, -12);
    WriteBool(Key::FavSortDir, false);
    WriteText(Key::FavColWide, "134,82,");
    WritePosition("Form1", "10,20,800,600");
    CHECK(Stored("TransLevel") == "-12");
    CHECK(Stored("FavSortDir") == "False");
    CHECK(Stored("FavColWide") == "134,82,");
    CHECK(Stored("Form1_Pos") == "10,20,800,600");
    for (const int slot : {3, 16}) WriteGraphPlace(slot, 40, -50);
    CHECK(Stored("GraphTop3") == "40");
    CHECK(GraphLeft(3) == -50);
    CHECK_FALSE(GraphLeft(2));
    ForgetGraphPlaces();
    for (const char* key : {"GraphTop3", "GraphLeft3", "GraphTop16", "GraphLeft16"}) CHECK(Stored(key) == "(none)");
    CHECK(Stored("TransLevel") == "-12");
    CHECK(DeleteSection());
    CHECK(Number(Key::TransLevel) == 85);
    CHECK(Position("Form1").empty());
}

TEST_CASE("a colour is shown beside its name, but for a step that keeps it apart from what is left out") {
    for (int index = 0; index < settings::kColourCount; ++index) {
        CAPTURE(index);
        const auto swatch = controls::SwatchColor(settings::ColourName(index));
        REQUIRE(swatch);
        CHECK((*swatch & 0xFEFEFE) == (settings::ColourFromIndex(index) & 0xFEFEFE));
        CHECK(settings::ColourFromIndex(index) != 0xFFFFFF);
        CHECK(settings::ColourFromIndex(index) != 0xFF00FF);
    }
    for (const int index : {-1, 8, 32767, -32768}) {
        CHECK(settings::ColourFromIndex(index) == 0);
        CHECK(settings::ColourName(index) == nullptr);
    }
}
