// Programs that start with Windows: the entries themselves, and how the options dialog keeps them.
#include "settings/StartEntries.h"

#include "OptionsFixture.h"

using settings::Key;

namespace {

const std::string kOwn = std::string("C:\\Kestrum\\Kestrum2.exe") + '\0';
const std::string kJrFile = "C:\\Kestrum\\Kestrum_Jr.exe";

std::string JrEntry(const std::string& arguments) {
    return kJrFile + arguments + '\0';
}

}  // namespace

TEST_CASE("an entry holds the program's path, its arguments and a NUL") {
    sim::reset();
    CHECK(settings::OwnStartEntry() == "Kestrum2");
    CHECK_FALSE(settings::IsStartEntry("Kestrum2"));
    settings::SetStartEntry("Kestrum2", "C:\\Kestrum", true, "");
    CHECK(sim::runEntry("Kestrum2") == kOwn);
    settings::SetStartEntry("Kestrum2", "D:\\My Tools\\", true, " /x y");
    CHECK(sim::runEntry("Kestrum2") == std::string("D:\\My Tools\\Kestrum2.exe /x y") + '\0');
    CHECK(settings::IsStartEntry("Kestrum2"));
    sim::refuseRunEntries(true);
    settings::SetStartEntry("Kestrum2", "C:\\", false, "");
    settings::SetStartEntry("Other", "C:\\", true, "");
    CHECK(settings::IsStartEntry("Kestrum2"));
    CHECK_FALSE(settings::IsStartEntry("Other"));
    sim::refuseRunEntries(false);
    settings::SetStartEntry("Kestrum2", "C:\\", false, "");
    settings::SetStartEntry("Kestrum2", "C:\\", false, "");
    CHECK_FALSE(settings::IsStartEntry("Kestrum2"));
}

TEST_CASE("the program starts with Windows in place of Kestrum Jr.") {
    OptionsBench bench;
    sim::putRunEntry("Kestrum_Jr", JrEntry(" /My Favs 1"));
    bench.Show([&] {
        CHECK_FALSE(bench.Check(Option::ChkStart).Value());
        CHECK(bench.Check(Option::ChkStartJr).Value());
        bench.Click(Option::ChkStart);
        CHECK(sim::runEntry("Kestrum2") == kOwn);
        CHECK_FALSE(sim::runEntry("Kestrum_Jr"));
        CHECK_FALSE(bench.Check(Option::ChkStartJr).Value());
        sim::pressKey(key::kSpace);
        CHECK_FALSE(sim::runEntry("Kestrum2"));
        sim::pressKey(key::kSpace);
    });
    bench.Show([&] { CHECK(bench.Check(Option::ChkStart).Value()); });
}

TEST_CASE("Kestrum Jr. starts with Windows in place of the program, with its profile and interval") {
    OptionsBench bench;
    sim::putFile(kJrFile, "");
    sim::putRunEntry("Kestrum2", kOwn);
    bench.Show([&] {
        bench.Pick(Option::CboFavJr, 2);
        bench.Pick(Option::CboEnforceJr, 3);
        CHECK(OptionsBench::Stored(Key::FavNameJr) == "2");
        CHECK(OptionsBench::Stored(Key::JrEnforceInterval) == "3");
        CHECK_FALSE(sim::runEntry("Kestrum_Jr"));
        CHECK(bench.Check(Option::ChkStart).Value());  // still

        bench.Click(Option::ChkStartJr);
        CHECK(sim::runEntry("Kestrum_Jr") == JrEntry(" /My Favs 3 /Enforce 30"));
        CHECK_FALSE(bench.Check(Option::ChkStart).Value());
        CHECK_FALSE(sim::runEntry("Kestrum2"));

        bench.Pick(Option::CboEnforceJr, 0);
        CHECK(sim::runEntry("Kestrum_Jr") == JrEntry(" /My Favs 3"));
        CHECK(OptionsBench::Stored(Key::JrEnforceInterval) == "0");
        bench.Pick(Option::CboFavJr, 4);
        CHECK(sim::runEntry("Kestrum_Jr") == JrEntry(" /My Favs 5"));
        bench.Click(Option::ChkStartJr);
        CHECK_FALSE(sim::runEntry("Kestrum_Jr"));
        CHECK(OptionsBench::Stored(Key::FavNameJr) == "4");
    });
    CHECK(bench.messages.empty());
}

TEST_CASE("Kestrum Jr. that is not there is not started") {
    OptionsBench bench;
    sim::putRunEntry("Kestrum_Jr", JrEntry(" /My Favs 1"));
    sim::putRunEntry("Kestrum2", kOwn);
    bench.Show([&] {
        bench.Answer(key::kEscape);
        bench.Pick(Option::CboFavJr, 1);
        CHECK(bench.messages == Calls{"File Missing: Missing File: Kestrum_Jr.exe"});
        CHECK_FALSE(bench.Check(Option::ChkStartJr).Value());
        CHECK_FALSE(sim::runEntry("Kestrum_Jr"));
        CHECK(OptionsBench::Stored(Key::FavNameJr) == "(none)");
        bench.Answer(key::kEscape);
        bench.Click(Option::ChkStartJr);
        CHECK_FALSE(bench.Check(Option::ChkStartJr).Value());
        CHECK(sim::runEntry("Kestrum2") == kOwn);
    });
}
