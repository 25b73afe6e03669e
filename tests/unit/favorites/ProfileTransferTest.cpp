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
bool Copy(const std::vector<Favorite>& rows, const std::string& name = kTarget) {
    return favorites::CopyToProfile(rows, kBase, name);
}

// A list that shows profile 1 with C:\a.exe, C:\b.exe and C:\c.exe; the first two are selected.
struct Bench : FavoritesBench {
    Bench() : FavoritesBench({"C:\\a.exe", "C:\\b.exe", "C:\\c.exe"}) {
        sim::putFile(kBase + kSource, kHeader + Line("C:\\a.exe") + Line("C:\\b.exe", "-b") + Line("C:\\c.exe"));
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
    SUBCASE("a profile without a file gets one, header first, and is no longer offered as empty") {
        CHECK(favorites::ProfileEntries(kBase)[2].caption == "My Favs 3 (Empty)");
        CHECK(Copy({Fav("C:\\a.exe", "-x"), Fav("C:\\b.exe")}));
        CHECK(Saved(kTarget) == kHeader + Line("C:\\a.exe", "-x") + Line("C:\\b.exe"));
        const auto entries = favorites::ProfileEntries(kBase);
        CHECK(entries.size() == 5);
        CHECK(entries[2].caption == kTarget);
        CHECK_FALSE(entries[2].empty);
        CHECK(entries[4].empty);
    }
    SUBCASE("content is kept as it is, but nothing is lost behind a missing header or line end") {
        const std::pair<std::string, std::string> targets[] = {
            {"", kHeader},
            {"[other]", "[other]\r\n"},
            {"[other]\nodd\xFF", "[other]\nodd\xFF\r\n"},
        };
        for (const auto& [before, kept] : targets) {
            sim::putFile(kBase + kTarget, before);
            CHECK(Copy({Fav("C:\\a.exe")}));
            CHECK(Saved(kTarget) == kept + Line("C:\\a.exe"));
        }
    }
    SUBCASE("held is a path that occurs anywhere in a line, the header too") {
        const std::string content = "[D:\\h.exe]\r\n" + Line("C:\\Games\\Go.exe.exe", "C:\\p.exe") + "C:\\cut";
        sim::putFile(kBase + kTarget, content);
        const std::vector<Favorite> held = {Fav("c:\\GAMES\\go.exe"), Fav("C:\\P.EXE"), Fav("d:\\H.exe")};
        CHECK_FALSE(Copy(held));
        CHECK(Saved(kTarget) == content);
        CHECK(favorites::HeldByProfile({held[0], Fav("C:\\cut.exe"), held[2]}, kBase, kTarget) ==
              std::vector<bool>{true, false, true});
        CHECK_FALSE(favorites::HoldsPath("C:\\a\r\n.exe", "C:\\a.exe"));
        // Favourites that come together do not keep each other out, unless they are the same.
        CHECK(Copy({Fav("C:\\n.exe.scr"), Fav("C:\\n.exe"), Fav("C:\\N.exe")}));
        CHECK(Saved(kTarget) == content + "\r\n" + Line("C:\\n.exe.scr") + Line("C:\\n.exe"));
    }
    SUBCASE("refused without a trace: nothing to copy, no profile, no readable target, a full disk") {
        const std::vector<std::string> files = sim::allFiles();
        CHECK_FALSE(Copy({}));
        for (const char* name : {"", "My Favs 0", "My Favs 6", "my favs 3", "My Favs 3 (Empty)", "..\\My Favs 3"}) {
            CHECK_FALSE(Copy({Fav("C:\\a.exe")}, name));
        }
        CHECK(sim::allFiles() == files);
        sim::putFile(kBase + kTarget, kHeader + Line("C:\\a.exe"));
        sim::setUnreadable(kBase + kTarget, true);
        CHECK_FALSE(Copy({Fav("C:\\b.exe")}));
        CHECK(favorites::HeldByProfile({Fav("C:\\a.exe")}, kBase, kTarget) == std::vector<bool>{false});
        sim::setUnreadable(kBase + kTarget, false);
        sim::setDiskSpace(20);
        CHECK_FALSE(Copy({Fav("C:\\b.exe")}));
        CHECK(Saved(kTarget) == kHeader + Line("C:\\a.exe"));
    }
}

TEST_CASE("a move takes out of the current profile what the target holds") {
    Bench bench;
    const std::string source = Saved(kSource);
    SUBCASE("copied just now or there before, under a longer path too") {
        sim::putFile(kBase + kTarget, kHeader + Line("C:\\A.EXE.exe"));
        CHECK(favorites::MoveSelectedTo(bench.favs, kTarget) == 2);
        CHECK(Saved(kTarget) == kHeader + Line("C:\\A.EXE.exe") + Line("C:\\b.exe", "-b"));
        CHECK(Saved(kSource) == kHeader + Line("C:\\c.exe"));
        bench.Select({0});
        CHECK(favorites::MoveSelectedTo(bench.favs, kTarget) == 1);
        CHECK(Saved(kSource) == kNoFile);
        CHECK(favorites::ProfileEntries(kBase)[0].empty);
    }
    SUBCASE("nothing when the target is the current profile or none at all, or cannot be read") {
        sim::putFile(kBase + kTarget, kHeader + Line("C:\\a.exe"));
        sim::setUnreadable(kBase + kTarget, true);
        for (const std::string& name : {kSource, std::string("My Favs 9"), kTarget}) {
            CHECK(favorites::MoveSelectedTo(bench.favs, name) == 0);
            CHECK_FALSE(favorites::CopySelectedTo(bench.favs, name));
        }
        CHECK(bench.favs.Count() == 3);
        CHECK(Saved(kSource) == source);
        sim::setUnreadable(kBase + kTarget, false);
        CHECK(Saved(kTarget) == kHeader + Line("C:\\a.exe"));
    }
    SUBCASE("on a full disk nothing but what was there before; the rest stays selected") {
        sim::setDiskSpace(20);
        CHECK(favorites::MoveSelectedTo(bench.favs, kTarget) == 0);
        CHECK(Saved(kSource) == source);
        CHECK(Saved(kTarget) == kNoFile);
        sim::putFile(kBase + kTarget, kHeader + Line("C:\\a.exe"));
        CHECK(favorites::MoveSelectedTo(bench.favs, kTarget) == 1);
        CHECK(bench.Selected() == Names{"b.exe"});
        CHECK(Saved(kSource) == source);  // could not be saved either; tried again later
        sim::setDiskSpace(std::nullopt);
        bench.favs.SavePending();
        CHECK(Saved(kSource) == kHeader + Line("C:\\b.exe", "-b") + Line("C:\\c.exe"));
    }
}

TEST_CASE("wherever a move is cut off, each favourite is in a file and both files are whole") {
    for (const bool everything : {false, true}) {
        int finished = 0;
        for (int steps = 0; steps <= 8; ++steps) {
            CAPTURE(everything);
            CAPTURE(steps);
            Bench bench;
            bench.Select(everything ? std::vector<int>{0, 1, 2} : std::vector<int>{0, 1});
            const std::string source = Saved(kSource);
            const std::string target = kHeader + Line("C:\\t.exe");
            sim::putFile(kBase + kTarget, target);
            sim::stopFilesAfter(steps);
            favorites::MoveSelectedTo(bench.favs, kTarget);

            const std::string moved =
                target + Line("C:\\a.exe") + Line("C:\\b.exe", "-b") + (everything ? Line("C:\\c.exe") : "");
            const std::string left = everything ? kNoFile : kHeader + Line("C:\\c.exe");
            const bool copied = Saved(kTarget) == moved;
            if (!copied) CHECK(Saved(kTarget) == target);
            if (copied && Saved(kSource) == left) {
                ++finished;
            } else {
                CHECK(Saved(kSource) == source);
            }
        }
        CHECK(finished > 0);
    }
}

TEST_CASE("edits are saved and leave the edited favourites selected") {
    Bench bench;
    bench.favs.SetSort(favorites::kColParam, false);
    bench.favs.SortFavs();
    REQUIRE(bench.favs.Row(0).name == "b.exe");
    SUBCASE("a parameter is kept in one cell of the file") {
        CHECK(favorites::SetParam(bench.favs, 2, "-z \"a b\"\t1\r\n2"));
        CHECK(bench.favs.Row(0).param == "-z \"a b\" 1  2");
        CHECK(bench.Selected() == Names{bench.favs.Row(0).name});
        CHECK(favorites::ParseProfile(Saved(kSource)).size() == 3);
        CHECK(Saved(kSource).find("-z \"a b\" 1  2\r\n") != std::string::npos);
    }
    SUBCASE("settings change only what is given, on all the rows given") {
        // Processor 3 for both; of the others each keeps its own, and none beyond the four there is a choice about.
        bench.favs.ReplaceRows({{0, {"b.exe", "17", "High", "C:\\b.exe", "-b"}}});
        CHECK(favorites::SetSettings(bench.favs, {0, 2}, {4, {{3, true}, {0, false}}, {}}).changed);
        CHECK(bench.Selected().size() == 2);
        CHECK(bench.favs.Row(0) == Favorite{"b.exe", "13", "High", "C:\\b.exe", "-b"});
        CHECK(favorites::SetSettings(bench.favs, bench.favs.SelectedRows(), {4, {}, "Low"}).changed);
        int edited = 0;
        for (const Favorite& saved : favorites::ParseProfile(Saved(kSource))) {
            const bool given = saved.affinity == "13" && saved.priority == "Low";
            if (!given) CHECK(saved == Fav(saved.path, saved.param));
            edited += given ? 1 : 0;
        }
        CHECK(edited == 2);
    }
    SUBCASE("none is left without a processor") {
        bench.favs.ReplaceRows({{0, {"b.exe", "3", "High", "C:\\b.exe", "-b"}}});
        const auto edit = favorites::SetSettings(bench.favs, {0, 1}, {4, {{0, false}, {1, false}}, "Low"});
        CHECK(edit.noCpu);
        CHECK(bench.favs.Row(0) == Favorite{"b.exe", "3", "Low", "C:\\b.exe", "-b"});
        REQUIRE(bench.favs.SelectedFavorites().size() == 2);
        CHECK(bench.favs.SelectedFavorites()[1].affinity + bench.favs.SelectedFavorites()[1].priority == "01Low");
        // One that names no processor of this machine is not what this is about.
        bench.favs.ReplaceRows({{0, {"b.exe", "7", "Low", "C:\\b.exe", "-b"}}});
        CHECK_FALSE(favorites::SetSettings(bench.favs, {0}, {4, {{0, false}}, "High"}).noCpu);
        CHECK(bench.favs.Row(0).affinity == "7");
    }
    SUBCASE("what changes nothing is neither saved nor loaded") {
        platform::deleteFile(kBase + kSource);
        CHECK_FALSE(favorites::SetParam(bench.favs, 0, "-b"));
        CHECK_FALSE(favorites::SetParam(bench.favs, 7, "-b"));
        CHECK_FALSE(favorites::SetSettings(bench.favs, {0, 1, -1}, {4, {{0, true}}, "High"}).changed);
        CHECK(Saved(kSource) == kNoFile);
        CHECK(bench.favs.Count() == 3);
    }
    SUBCASE("an edit that cannot be saved stays in the list") {
        const std::string before = Saved(kSource);
        sim::setReadOnlyFolder("C:\\Kestrum", true);
        CHECK(favorites::SetParam(bench.favs, 0, "-a"));
        CHECK(bench.favs.SelectedFavorites() == std::vector<Favorite>{Fav("C:\\b.exe", "-a")});
        CHECK(Saved(kSource) == before);
        sim::setReadOnlyFolder("C:\\Kestrum", false);
        bench.favs.SavePending();
        CHECK(Saved(kSource).find("-a") != std::string::npos);
    }
}
