#include "settings/Settings.h"

#include <doctest/doctest.h>

#include <map>

#include "platform/sim/Sim.h"
#include "settings/Colours.h"

namespace sim = platform::sim;
using settings::Key;
using settings::KeyType;
using settings::Settings;

namespace {

void Put(const std::string& key, const std::string& value) {
    sim::putSetting("Morvell\\Kestrum2", key, value);
}

}  // namespace

TEST_CASE("an empty store gives the defaults of a first start") {
    sim::reset();
    const Settings store;
    const std::map<Key, int> notZero = {
        {Key::CpuToolTips, 1},    {Key::EdgeDetect, 1},      {Key::TransLevel, 85}, {Key::TrayNum, 1},
        {Key::TrayForeColor, 5},  {Key::ShowTips, 1},        {Key::MsgBeep, 1},     {Key::ShowExt, 1},
        {Key::ShowFileTips, 1},   {Key::GrphCapColur, 7},    {Key::GrphValColr, 3}, {Key::Splitter, 474},
        {Key::ChkCPUGraphTop, 1}, {Key::EnforceInterval, 5},
    };
    for (int i = 0; i < static_cast<int>(Key::Count); ++i) {
        const auto key = static_cast<Key>(i);
        const KeyType type = settings::InfoOf(key).type;
        if (type != KeyType::Number && type != KeyType::Int) continue;
        CAPTURE(settings::InfoOf(key).name);
        CHECK(store.Number(key) == (notZero.contains(key) ? notZero.at(key) : 0));
    }
    CHECK(store.Bool(Key::FavSortDir));
    CHECK_FALSE(store.Bool(Key::SeeThruCPU));
    CHECK(store.Text(Key::FileColWide).empty());
    CHECK(store.Text(Key::FavColWideMax).empty());
    CHECK(store.Text(Key::SplitterMax) == "474");
    CHECK_FALSE(store.GraphTop(0));
    CHECK(store.Position("Form1").empty());
}

TEST_CASE("stored texts are read by the type of their key") {
    sim::reset();
    const Settings store;
    struct Case {
        const char* text;
        int number;       // as EnforceInterval, a number with the default 5
        int wholeNumber;  // as CpuToolTips, an int with the default 1
        bool sortDir;     // as FavSortDir, a bool with the default True
    };
    const Case cases[] = {
        {"7", 7, 7, true},       {"0", 0, 0, false},        {"-3", -3, -3, true},
        {"12abc", 12, 1, true},  {"abc", 0, 1, true},       {"", 0, 1, true},
        {" 9", 9, 9, true},      {"99999", 32767, 1, true}, {"-99999", -32768, 1, true},
        {"True", 0, 1, true},    {"False", 0, 1, false},    {"false", 0, 1, false},
        {"1e9", 32767, 1, true}, {"4.6", 5, 5, true},       {"2147483648", 32767, 1, true},
    };
    for (const Case& each : cases) {
        CAPTURE(each.text);
        Put("EnforceInterval", each.text);
        Put("CpuToolTips", each.text);
        Put("FavSortDir", each.text);
        CHECK(store.Number(Key::EnforceInterval) == each.number);
        CHECK(store.Number(Key::CpuToolTips) == each.wholeNumber);
        CHECK(store.Bool(Key::FavSortDir) == each.sortDir);
    }
    for (const char* key : {"EnforceInterval", "CpuToolTips", "FavSortDir"}) {
        sim::putBinarySetting("Morvell\\Kestrum2", key);
    }
    CHECK(store.Number(Key::EnforceInterval) == 5);
    CHECK(store.Number(Key::CpuToolTips) == 1);
    CHECK(store.Bool(Key::FavSortDir));
}

TEST_CASE("the maximised layout starts out as the normal one") {
    sim::reset();
    Settings store;
    Put("FileColWide", "1,2,");
    Put("FavColWide", "3,4,");
    Put("Splitter", "200");
    CHECK(store.Text(Key::FileColWideMax) == "1,2,");
    CHECK(store.Text(Key::FavColWideMax) == "3,4,");
    CHECK(store.Text(Key::SplitterMax) == "200");
    Put("Splitter", "wide");
    CHECK(store.Text(Key::SplitterMax) == "0");

    Put("FileColWideMax", "");
    Put("SplitterMax", "700");
    CHECK(store.Text(Key::FileColWideMax).empty());
    CHECK(store.Text(Key::SplitterMax) == "700");
}

TEST_CASE("values are written as text under their own keys, and all go at once") {
    sim::reset();
    Settings store;
    const auto stored = [](const char* key) { return sim::setting("Morvell\\Kestrum2", key).value_or("(none)"); };
    store.WriteNumber(Key::TransLevel, -12);
    store.WriteBool(Key::FavSortDir, false);
    store.WriteBool(Key::SeeThruCPU, true);
    store.WriteText(Key::FavColWide, "134,82,70,50,50,");
    store.WriteGraphPlace(3, 40, -50);
    store.WritePosition("Form1", "10,20,800,600");
    CHECK(stored("TransLevel") == "-12");
    CHECK(stored("FavSortDir") == "False");
    CHECK(stored("SeeThruCPU") == "True");
    CHECK(stored("FavColWide") == "134,82,70,50,50,");
    CHECK(stored("GraphTop3") == "40");
    CHECK(stored("GraphLeft3") == "-50");
    CHECK(stored("Form1_Pos") == "10,20,800,600");
    CHECK(store.GraphLeft(3) == -50);
    CHECK_FALSE(store.GraphLeft(2));
    store.WriteGraphPlace(16, 1, 2);
    store.ForgetGraphPlaces();
    for (const char* key : {"GraphTop3", "GraphLeft3", "GraphTop16", "GraphLeft16"}) {
        CHECK(stored(key) == "(none)");
    }
    CHECK(stored("TransLevel") == "-12");
    store.WriteGraphPlace(3, 40, -50);

    CHECK(store.DeleteSection());
    CHECK(store.Number(Key::TransLevel) == 85);
    CHECK(store.Position("Form1").empty());
    CHECK(stored("GraphTop3") == "(none)");
}

TEST_CASE("colour indexes outside the table are black") {
    sim::reset();
    CHECK(settings::ColourFromIndex(4) == 0x00FE00FE);
    CHECK(settings::ColourFromIndex(5) == 0x000000FF);
    CHECK(settings::ColourFromIndex(6) == 0x00FEFEFE);
    CHECK(settings::ColourFromIndex(7) == 0x0000FFFF);
    for (const int index : {-1, 8, 32767, -32768}) {
        CHECK(settings::ColourFromIndex(index) == 0);
        CHECK(settings::ColourName(index) == nullptr);
    }
}
