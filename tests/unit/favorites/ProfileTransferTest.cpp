// Copying and moving favourites between profiles, and editing them, down to what is in the files.
#include "favorites/ProfileTransfer.h"

#include "FavoritesFixture.h"
#include "favorites/FavoriteEdits.h"
#include "favorites/ProfileFile.h"
#include "platform/Files.h"
#include "text/Case.h"

using namespace favoritestest;

namespace {

const std::string kSource = "My Favs 1";
const std::string kTarget = "My Favs 3";
const std::string kNoFile = "(no file)";

Favorite Fav(const std::string& path, const std::string& param = "") {
    return {std::string(text::FileNameOf(path)), "01", "High", path, param};
}
std::string Line(const std::string& path, const std::string& param = "") {
    return favorites::FormatLine(Fav(path, param));
}
const std::string kA = Line("C:\\a.exe"), kB = Line("C:\\b.exe", "-b"), kC = Line("C:\\c.exe");

bool Copy(const std::vector<Favorite>& rows, const std::string& name = kTarget) {
    return favorites::CopyToProfile(rows, kBase, name);
}
void PutTarget(const std::string& content) {
    sim::putFile(kBase + kTarget, content);
}

// A list that shows profile 1 with C:\a.exe, C:\b.exe and C:\c.exe; the first two are selected.
struct Bench : FavoritesBench {
    Bench() : FavoritesBench({"C:\\a.exe", "C:\\b.exe", "C:\\c.exe"}) {
        sim::putFile(kBase + kSource, kHeader + kA + kB + kC);
        favs.LoadFavorites();
        favs.SortFavs();
        Select({0, 1});
    }
    void Select(const std::vector<int>& rows) {
        for (int row = 0; row < favs.Count(); ++row) list.SelectItem(row, false);
        for (const int row : rows) list.SelectItem(row, true);
    }
    Names Selected() const { return NamesOf(favs.SelectedFavorites()); }
};

}  // namespace

TEST_CASE("a copy adds what the target does not hold, behind what it has") {
    sim::reset();
    SUBCASE("nothing is lost behind a missing file, header or line end") {
        CHECK(favorites::ProfileEntries(kBase)[2].caption == "My Favs 3 (Empty)");
        CHECK(Copy({Fav("C:\\a.exe"), Fav("C:\\b.exe", "-b")}));
        CHECK(Saved(kTarget) == kHeader + kA + kB);
        CHECK(favorites::ProfileEntries(kBase)[2].caption == kTarget);
        const std::pair<std::string, std::string> targets[] = {
            {"", kHeader},
            {"[other]", "[other]\r\n"},
            {"[other]\nodd\xFF", "[other]\nodd\xFF\r\n"},
        };
        for (const auto& [before, kept] : targets) {
            PutTarget(before);
            CHECK(Copy({Fav("C:\\a.exe")}));
            CHECK(Saved(kTarget) == kept + kA);
        }
    }
    SUBCASE("held is a path that occurs anywhere in a line, the header too") {
        const std::string content = "[D:\\h.exe]\r\n" + Line("C:\\Games\\Go.exe.exe", "C:\\p.exe") + "C:\\cut";
        PutTarget(content);
        const std::vector<Favorite> held = {Fav("c:\\GAMES\\go.exe"), Fav("C:\\P.EXE"), Fav("d:\\H.exe")};
        CHECK_FALSE(Copy(held));
        CHECK(favorites::HeldByProfile({held[0], Fav("C:\\cut.exe"), held[2]}, kBase, kTarget) ==
              std::vector<bool>{true, false, true});
        // Favourites that come together do not keep each other out, unless they are the same.
        CHECK(Copy({Fav("C:\\n.exe.scr"), Fav("C:\\n.exe"), Fav("C:\\N.exe")}));
        CHECK(Saved(kTarget) == content + "\r\n" + Line("C:\\n.exe.scr") + Line("C:\\n.exe"));
    }
    SUBCASE("refused without a trace: nothing to copy, no profile") {
        const std::vector<std::string> files = sim::allFiles();
        CHECK_FALSE(Copy({}));
        for (const char* name : {"", "My Favs 0", "My Favs 6", "my favs 3", "My Favs 3 (Empty)", "..\\My Favs 3"}) {
            CHECK_FALSE(Copy({Fav("C:\\a.exe")}, name));
        }
        CHECK(sim::allFiles() == files);
    }
}

TEST_CASE_FIXTURE(Bench, "a move takes out of the current profile what the target holds") {
    SUBCASE("copied just now or there before, under a longer path too") {
        PutTarget(kHeader + Line("C:\\A.EXE.exe"));
        CHECK(favorites::MoveSelectedTo(favs, kTarget) == 2);
        CHECK(Saved(kTarget) == kHeader + Line("C:\\A.EXE.exe") + kB);
        CHECK(Saved(kSource) == kHeader + kC);
        Select({0});
        CHECK(favorites::MoveSelectedTo(favs, kTarget) == 1);
        CHECK(Saved(kSource) == kNoFile);
    }
    SUBCASE("nothing when the target is the current profile or none at all, or cannot be read") {
        PutTarget(kHeader + kA);
        sim::setUnreadable(kBase + kTarget, true);
        for (const std::string& name : {kSource, std::string("My Favs 9"), kTarget}) {
            CHECK(favorites::MoveSelectedTo(favs, name) == 0);
            CHECK_FALSE(favorites::CopySelectedTo(favs, name));
        }
        CHECK(Saved(kSource) == kHeader + kA + kB + kC);
        sim::setUnreadable(kBase + kTarget, false);
        CHECK(Saved(kTarget) == kHeader + kA);
    }
    SUBCASE("on a full disk nothing but what was there before; the rest stays selected") {
        sim::setDiskSpace(20);
        CHECK(favorites::MoveSelectedTo(favs, kTarget) == 0);
        CHECK(Saved(kTarget) == kNoFile);
        PutTarget(kHeader + kA);
        CHECK(favorites::MoveSelectedTo(favs, kTarget) == 1);
        CHECK(Selected() == Names{"b.exe"});
        CHECK(Saved(kSource) == kHeader + kA + kB + kC);  // could not be saved either; tried again later
        sim::setDiskSpace(std::nullopt);
        favs.SavePending();
        CHECK(Saved(kSource) == kHeader + kB + kC);
    }
}

TEST_CASE("wherever a move is cut off, each favourite is in a file and both files are whole") {
    const std::string target = kHeader + Line("C:\\t.exe");
    for (const bool everything : {false, true}) {
        const std::string moved = target + kA + kB + (everything ? kC : "");
        const std::string left = everything ? kNoFile : kHeader + kC;
        int finished = 0;
        for (int steps = 0; steps <= 8; ++steps) {
            CAPTURE(everything);
            CAPTURE(steps);
            Bench bench;
            if (everything) bench.Select({0, 1, 2});
            PutTarget(target);
            sim::stopFilesAfter(steps);
            favorites::MoveSelectedTo(bench.favs, kTarget);
            const bool copied = Saved(kTarget) == moved;
            if (!copied) CHECK(Saved(kTarget) == target);
            if (copied && Saved(kSource) == left) {
                ++finished;
            } else {
                CHECK(Saved(kSource) == kHeader + kA + kB + kC);
            }
        }
        CHECK(finished > 0);
    }
}

TEST_CASE_FIXTURE(Bench, "edits are saved and leave the edited favourites selected") {
    favs.SetSort(favorites::kColParam, false);
    favs.SortFavs();
    REQUIRE(favs.Row(0).name == "b.exe");
    const auto setFirst = [&](const std::string& affinity) {
        favs.ReplaceRows({{0, {"b.exe", affinity, "High", "C:\\b.exe", "-b"}}});
    };
    SUBCASE("a parameter is kept in one cell of the file") {
        CHECK(favorites::SetParam(favs, 2, "-z \"a b\"\t1\r\n2"));
        CHECK(favs.Row(0).param == "-z \"a b\" 1  2");
        CHECK(Selected() == Names{favs.Row(0).name});
        CHECK(Saved(kSource).find("-z \"a b\" 1  2\r\n") != std::string::npos);
    }
    SUBCASE("settings change only what is given, on all the rows given") {
        // Processor 3 for both; of the others each keeps its own, and none beyond the four there is a choice about.
        setFirst("17");
        const std::string third = favs.Row(2).path;
        CHECK(favorites::SetSettings(favs, {0, 2}, {4, {{3, true}, {0, false}}, {}}).changed);
        CHECK(Selected().size() == 2);
        CHECK(favorites::SetSettings(favs, favs.SelectedRows(), {4, {}, "Low"}).changed);
        for (const Favorite& saved : favorites::ParseProfile(Saved(kSource))) {
            const bool given = saved.path == "C:\\b.exe" || saved.path == third;
            CHECK(saved.affinity == (given ? "13" : "01"));
            CHECK(saved.priority == (given ? "Low" : "High"));
        }
    }
    SUBCASE("none is left without a processor") {
        setFirst("3");
        CHECK(favorites::SetSettings(favs, {0, 1}, {4, {{0, false}, {1, false}}, "Low"}).noCpu);
        REQUIRE(favs.SelectedFavorites().size() == 2);
        CHECK(favs.Row(0).affinity == "3");
        CHECK(favs.SelectedFavorites()[1].affinity == "01");
        for (const Favorite& favorite : favs.SelectedFavorites()) CHECK(favorite.priority == "Low");
        // One that names no processor of this machine is not what this is about.
        setFirst("7");
        CHECK_FALSE(favorites::SetSettings(favs, {0}, {4, {{0, false}}, "Low"}).noCpu);
        CHECK(favs.Row(0).affinity == "7");
    }
    SUBCASE("what is no row, or changes nothing, is neither saved nor loaded") {
        platform::deleteFile(kBase + kSource);
        for (const int row : {0, 7, -1}) CHECK_FALSE(favorites::SetParam(favs, row, "-b"));
        CHECK(Saved(kSource) == kNoFile);
        CHECK(favs.Count() == 3);
    }
    SUBCASE("an edit that cannot be saved stays in the list") {
        sim::setReadOnlyFolder("C:\\Kestrum", true);
        CHECK(favorites::SetParam(favs, 0, "-a"));
        CHECK(favs.SelectedFavorites() == std::vector<Favorite>{Fav("C:\\b.exe", "-a")});
        CHECK(Saved(kSource) == kHeader + kA + kB + kC);
        sim::setReadOnlyFolder("C:\\Kestrum", false);
        favs.SavePending();
        CHECK(Saved(kSource).find("-a") != std::string::npos);
    }
}
