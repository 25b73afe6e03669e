// What the program is for: favourites get their affinity and priority, and their profile survives anything.
#include <doctest/doctest.h>

#include "desktop/Session.h"

using namespace desktop;

namespace {

constexpr int kAutoSet = 6;

}  // namespace

TEST_CASE("Auto Set: a favourite started later gets its affinity and priority") {
    const Installation installation;
    WriteWholeFile(installation.ProfilePath(), kProfileHeader + FavoriteLine("1", "Below", installation.Target()));
    const std::string stranger = installation.AddProgram("Stranger.exe");
    Process other(stranger);

    SUBCASE("switched on with the toolbar") {
        Session session(installation);
        REQUIRE(session.Started());
        Process early(installation.Target());
        CHECK(early.PriorityClass() == NORMAL_PRIORITY_CLASS);
        CHECK(session.ToggleToolBar1(kAutoSet));
        CHECK(BecomesSet(early, 2, BELOW_NORMAL_PRIORITY_CLASS));
        Process late(installation.Target());
        CHECK(BecomesSet(late, 2, BELOW_NORMAL_PRIORITY_CLASS));
        CHECK(session.End());
    }
    SUBCASE("switched on by the setting") {
        WriteSetting("AutoSet", "1");
        Session session(installation);
        REQUIRE(session.Started());
        Process late(installation.Target());
        CHECK(BecomesSet(late, 2, BELOW_NORMAL_PRIORITY_CLASS));
        CHECK(session.End());
    }
    CHECK(other.PriorityClass() == NORMAL_PRIORITY_CLASS);
    CHECK(other.Affinity() == 3);
}

TEST_CASE("profile: a program that is killed leaves it whole") {
    const Installation installation;
    const std::string kept = kProfileHeader + FavoriteLine("0", "High", installation.Target());
    // The missing favourite makes the program rewrite the file at its start.
    const std::string full = kept + FavoriteLine("1", "Low", installation.Folder() + "Gone.exe");
    {
        Session session(installation);  // makes its folders
        REQUIRE(session.Started());
        session.Kill();
    }
    const auto rewritten = [&] { return FileSizes(installation.Folder())["My Favs 1"] == kept.size(); };
    for (int round = 0; round < 6; ++round) {
        WriteWholeFile(installation.ProfilePath(), full);
        const auto sizes = FileSizes(installation.Folder());
        Process program(installation.Folder() + "Kestrum2.exe");
        // At the first sign of the rewriting, whatever that is, or a little later.
        CHECK(WaitFor([&] { return FileSizes(installation.Folder()) != sizes; }));
        if (round % 2 == 1) CHECK(WaitFor([&] { return rewritten(); }));
        program.Kill();
        const std::string left = ReadWholeFile(installation.ProfilePath());
        CHECK_MESSAGE((left == full || left == kept), "round ", round, ": ", left);
    }
    Session session(installation);
    REQUIRE(session.Started());
    CHECK(FileBecomes(installation.ProfilePath(), kept));
    CHECK(WaitFor([&] { return session.Favorites().HasText(0) && !session.Favorites().HasText(1); }));
}
