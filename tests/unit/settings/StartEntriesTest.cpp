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
    settings::SetStartEntry("Kestrum2", "C:\\Kestrum", true, "");
    CHECK(sim::runEntry("Kestrum2") == kOwn);
    settings::SetStartEntry("Kestrum2", "D:\\My Tools\\", true, " /x y");
    CHECK(sim::runEntry("Kestrum2") == std::string("D:\\My Tools\\Kestrum2.exe /x y") + '\0');
    sim::refuseRunEntries(true);
    settings::SetStartEntry("Kestrum2", "C:\\", false, "");
    settings::SetStartEntry("Other", "C:\\", true, "");
    CHECK(settings::IsStartEntry("Kestrum2"));
    CHECK_FALSE(settings::IsStartEntry("Other"));
    sim::refuseRunEntries(false);
    for (int i = 0; i < 2; ++i) settings::SetStartEntry("Kestrum2", "C:\\", false, "");
    CHECK_FALSE(settings::IsStartEntry("Kestrum2"));
}

TEST_CASE_FIXTURE(OptionsBench, "the program starts with Windows in place of Kestrum Jr.") {
    sim::putRunEntry("Kestrum_Jr", JrEntry(" /My Favs 1"));
    Show([&] {
        CHECK_FALSE(Check(Option::ChkStart).Value());
        CHECK(Check(Option::ChkStartJr).Value());
        Click(Option::ChkStart);
        CHECK(sim::runEntry("Kestrum2") == kOwn);
        CHECK_FALSE(sim::runEntry("Kestrum_Jr"));
        CHECK_FALSE(Check(Option::ChkStartJr).Value());
        sim::pressKey(key::kSpace);
        CHECK_FALSE(sim::runEntry("Kestrum2"));
        sim::pressKey(key::kSpace);
    });
    Show([&] { CHECK(Check(Option::ChkStart).Value()); });
}

TEST_CASE_FIXTURE(OptionsBench, "Kestrum Jr. starts in place of the program, with its profile and interval") {
    sim::putFile(kJrFile, "");
    sim::putRunEntry("Kestrum2", kOwn);
    Show([&] {
        Pick(Option::CboFavJr, 2);
        Pick(Option::CboEnforceJr, 3);
        CHECK(Stored(Key::FavNameJr) == "2");
        CHECK(Stored(Key::JrEnforceInterval) == "3");
        CHECK_FALSE(sim::runEntry("Kestrum_Jr"));
        CHECK(Check(Option::ChkStart).Value());  // still

        Click(Option::ChkStartJr);
        CHECK(sim::runEntry("Kestrum_Jr") == JrEntry(" /My Favs 3 /Enforce 30"));
        CHECK_FALSE(Check(Option::ChkStart).Value());
        CHECK_FALSE(sim::runEntry("Kestrum2"));

        Pick(Option::CboEnforceJr, 0);
        CHECK(sim::runEntry("Kestrum_Jr") == JrEntry(" /My Favs 3"));
        CHECK(Stored(Key::JrEnforceInterval) == "0");
        Pick(Option::CboFavJr, 4);
        CHECK(sim::runEntry("Kestrum_Jr") == JrEntry(" /My Favs 5"));
        Click(Option::ChkStartJr);
        CHECK_FALSE(sim::runEntry("Kestrum_Jr"));
        CHECK(Stored(Key::FavNameJr) == "4");
    });
    CHECK(messages.empty());
}

TEST_CASE_FIXTURE(OptionsBench, "Kestrum Jr. that is not there is not started") {
    sim::putRunEntry("Kestrum_Jr", JrEntry(" /My Favs 1"));
    sim::putRunEntry("Kestrum2", kOwn);
    Show([&] {
        Answer(key::kEscape);
        Pick(Option::CboFavJr, 1);
        CHECK(List(Option::CboFavJr).GetIndex() == 0);  // as it is stored
        CHECK(messages == Calls{"File Missing: Missing File: Kestrum_Jr.exe"});
        CHECK_FALSE(Check(Option::ChkStartJr).Value());
        CHECK_FALSE(sim::runEntry("Kestrum_Jr"));
        CHECK(Stored(Key::FavNameJr) == "(none)");
        Answer(key::kEscape);
        Click(Option::ChkStartJr);
        CHECK_FALSE(Check(Option::ChkStartJr).Value());
        CHECK(sim::runEntry("Kestrum2") == kOwn);
    });
}
