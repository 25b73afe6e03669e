#include "favorites/FavoritesList.h"

#include <algorithm>
#include <set>

#include "FavoritesFixture.h"
#include "platform/Files.h"
#include "storage/BitmapFile.h"

using namespace favoritestest;
using favorites::AddFavResult;

namespace {

const std::string kProfile = kBase + "My Favs 1";

const std::string kIcon = storage::EncodeBitmap({16, 16}, std::vector<std::uint32_t>(256, 7));

std::string Line(const std::string& name, const std::string& rest = "") {
    return name + "\t0\tHigh\tC:\\" + name + "\t" + rest + "\r\n";
}

struct Bench : FavoritesBench {
    Bench() : FavoritesBench({"C:\\a.exe", "C:\\b.exe", "C:\\C.EXE"}) {}
    Names Shown() const { return NamesOf(favs.Rows()); }
    void Load(const std::string& lines) {
        sim::putFile(kProfile, kHeader + lines);
        favs.LoadFavorites();
    }
    void AddThree() {
        for (const char* path : {"C:\\b.exe", "C:\\C.EXE", "C:\\a.exe"}) {
            CHECK(favs.AddFav(path, "013") == AddFavResult::Added);
        }
    }
    static std::string Saved() { return favoritestest::Saved("My Favs 1"); }
};

}  // namespace

TEST_CASE_FIXTURE(Bench, "loading shows the profile in the file's order and leaves a sound file alone") {
    const std::string odd = std::string("x\0y.exe\t01\tLow\tC:\\a.exe\t", 25) + std::string(300, 'p') + "\xFF\r\n";
    const std::string lines = Line("b.exe", "-x \"1\"") + odd;
    sim::clearLog();
    Load(lines + "B\t0\tLow\t C:\\B.EXE \t\r\n");  // one of them twice
    favs.LoadFavorites();                          // replaces, does not append
    CHECK(Shown() == Names{"b.exe", std::string("x\0y.exe", 7)});
    CHECK(list.CellText(1, favorites::kColIcon) == "2");
    CHECK(balloons.empty());
    for (const std::string& entry : sim::log()) CHECK(entry.find("writeNewFile") == std::string::npos);
    CHECK(favs.Save());
    CHECK(Saved() == kHeader + lines);
    sim::paint(list, true);
    CHECK(sim::file(kBase + "Cache\\b.exe.bmp"));  // its own icon, though it was not added here
}

TEST_CASE_FIXTURE(Bench, "programs that are gone leave the profile with one balloon, and their icons go too") {
    sim::putFile(kBase + "Cache\\gone.exe.bmp", kIcon);
    // What is no program file counts as gone, too: a folder, a share that is away, a path without end.
    sim::putFolder("C:\\Folder.exe");
    Load(Line("gone.exe") + Line("a.exe") + Line("Folder.exe") + "P\t0\tLow\t\\\\away\\share\\p.exe\t\r\n" +
         "Endless\t0\tLow\tC:\\" + std::string(10000, 'x') + "\t\r\n");
    CHECK(Shown() == Names{"a.exe"});
    CHECK(Saved() == kHeader + Line("a.exe"));
    REQUIRE(balloons.size() == 1);
    CHECK(
        balloons[0].starts_with("Kestrum 2|4 favorites not found and removed from current profile!\r\n"
                                "gone.exe, Folder.exe, p.exe, "));
    CHECK(balloons[0].ends_with("|info"));
    CHECK_FALSE(sim::file(kBase + "Cache\\gone.exe.bmp"));
    favs.LoadFavorites();
    CHECK(balloons.size() == 1);

    platform::deleteFile("C:\\a.exe");
    favs.LoadFavorites();
    CHECK(Saved() == "(no file)");
}

TEST_CASE_FIXTURE(Bench, "a program is added once, sorted in and saved, with its icon") {
    AddThree();
    CHECK(Shown() == Names{"A.exe", "B.exe", "C.exe"});
    const std::string content = kHeader + "A.exe\t013\tDefault\tC:\\a.exe\t\r\n" +
                                "B.exe\t013\tDefault\tC:\\b.exe\t\r\n" + "C.exe\t013\tDefault\tC:\\C.EXE\t\r\n";
    CHECK(Saved() == content);
    CHECK(sim::file(kBase + "Cache\\b.exe.bmp"));

    sim::putFile("C:\\exe", "");
    sim::putFolder("C:\\Folder.exe");
    const std::pair<const char*, AddFavResult> refused[] = {
        {"c:\\B.EXE", AddFavResult::Duplicate},  {"C:\\exe", AddFavResult::BadExtension},
        {"", AddFavResult::BadExtension},        {"C:\\b.exe.lnk", AddFavResult::BadExtension},
        {"C:\\gone.exe", AddFavResult::Missing}, {"C:\\Folder.exe", AddFavResult::Missing},
    };
    for (const auto& [path, result] : refused) {
        CAPTURE(path);
        CHECK(favs.AddFav(path, "0") == result);
    }
    CHECK(Saved() == content);
    CHECK(favorites::DuplicateText("C:\\x\\B.EXE") ==
          "The file B.EXE at the selected path\r\nis already in your favorites list!");
}

TEST_CASE_FIXTURE(Bench, "the sort is kept, with each program's icon, and a damaged one still sorts by a column") {
    AddThree();
    const auto iconsDrawn = [&] {
        std::vector<std::uintptr_t> icons;
        for (const sim::Drawn& drawn : sim::paint(list, true)) {
            if (drawn.what == "picture") icons.push_back(drawn.object);
        }
        return icons;
    };
    std::vector<std::uintptr_t> icons = iconsDrawn();
    CHECK(std::set<std::uintptr_t>(icons.begin(), icons.end()).size() == 3);
    favs.SetSort(favorites::kColPath, false);
    favs.SortFavs();
    list.ReDraw();
    std::reverse(icons.begin(), icons.end());
    CHECK(iconsDrawn() == icons);
    CHECK(favs.Save());
    favs.LoadFavorites();
    CHECK(Shown() == Names{"C.exe", "B.exe", "A.exe"});
    favs.SetSort(-7, true);
    CHECK(favs.SortColumn() == 0);
    favs.SortFavs();
    CHECK(Shown() == Names{"A.exe", "B.exe", "C.exe"});
    favs.SetSort(99, true);
    CHECK(favs.SortColumn() == favorites::kColParam);
}

TEST_CASE_FIXTURE(Bench, "a reload leaves the user where they were, but not in another profile") {
    for (int i = 0; i < 60; ++i) {
        const std::string path = "C:\\z" + std::to_string(i) + ".exe";
        sim::putFile(path, "");
        favs.AddFav(path, "0");
    }
    sim::putFile(kBase + "My Favs 2", Saved());
    list.SelectItem(42, true);
    list.SetTopIndex(40);
    const int top = list.TopIndex();
    REQUIRE(top > 0);
    favs.Reload();
    CHECK(favs.SelectedRows() == std::vector<int>{42});
    CHECK(list.TopIndex() == top);
    favs.SetFavName("My Favs 2");
    favs.Reload();
    CHECK_FALSE(favs.AnySelected());
    CHECK(list.TopIndex() == 0);
}

TEST_CASE_FIXTURE(Bench, "removing takes the selected rows, whatever the order shown") {
    AddThree();
    favs.SetSort(0, false);
    favs.SortFavs();
    CHECK(favs.RemoveRows(favs.SelectedRows()) == 0);
    list.SelectItem(0, true);
    list.SelectItem(2, true);
    const std::string before = Saved();

    SUBCASE("and their icons") {
        CHECK(favs.RemoveRows(favs.SelectedRows()) == 2);
        CHECK(Saved() == kHeader + "B.exe\t013\tDefault\tC:\\b.exe\t\r\n");
        CHECK(platform::listFiles(kBase + "Cache\\", "*.bmp") == Names{"b.exe.bmp"});
        list.SelectItem(0, true);
        CHECK(favs.RemoveRows(favs.SelectedRows()) == 1);
        CHECK(Saved() == "(no file)");
    }
    SUBCASE("and the row that moved up is selected, in view") {
        for (int i = 0; i < 60; ++i) {
            const std::string path = "C:\\z" + std::to_string(i) + ".exe";
            sim::putFile(path, "");
            favs.AddFav(path, "0");
        }
        list.SetTopIndex(30);
        const int top = list.TopIndex();
        for (int row = 0; row < favs.Count(); ++row) list.SelectItem(row, row == top + 2);
        const std::string next = favs.Row(top + 3).name;
        CHECK(favs.RemoveRows(favs.SelectedRows()) == 1);
        CHECK(list.TopIndex() == top);
        CHECK(list.Selected(top + 2));
        CHECK(favs.Row(top + 2).name == next);
    }
    SUBCASE("but no icon while a profile that may need it cannot be read") {
        sim::putFile(kBase + "My Favs 4", kHeader);
        sim::setUnreadable(kBase + "My Favs 4", true);
        CHECK(favs.RemoveRows(favs.SelectedRows()) == 2);
        CHECK(sim::file(kBase + "Cache\\a.exe.bmp"));
    }
    SUBCASE("even when that cannot be saved") {
        sim::setReadOnlyFolder("C:\\Kestrum", true);
        CHECK(favs.RemoveRows(favs.SelectedRows()) == 2);
        CHECK(Shown() == Names{"B.exe"});
        CHECK(Saved() == before);
    }
}

TEST_CASE_FIXTURE(Bench, "a profile that could not be read is never written over, and joined when it can be") {
    sim::putFile(kProfile, kHeader + Line("b.exe") + Line("a.exe") + Line("gone.exe"));
    sim::setUnreadable(kProfile, true);
    favs.LoadFavorites();
    CHECK_FALSE(favs.Save());
    CHECK(favs.AddFav("C:\\A.EXE", "013") == AddFavResult::Added);
    CHECK(Shown() == Names{"A.exe"});
    std::string joined = Line("a.exe");  // with the settings that it had
    SUBCASE("by what is saved next") {
        sim::setUnreadable(kProfile, false);
        CHECK(Saved() == kHeader + Line("b.exe") + Line("a.exe") + Line("gone.exe"));
        favs.SavePending();
    }
    SUBCASE("and what was edited holds") {
        favs.ReplaceRows({{0, {"A.exe", "2", "Low", "C:\\A.EXE", ""}}});
        sim::setUnreadable(kProfile, false);
        favs.SavePending();
        joined = "A.exe\t2\tLow\tC:\\A.EXE\t\r\n";
    }
    SUBCASE("by a reload") {
        favs.LoadFavorites();
        CHECK(Shown() == Names{"A.exe"});
        sim::setUnreadable(kProfile, false);
        favs.LoadFavorites();
    }
    CHECK(balloons.size() == 1);  // one is gone
    CHECK(Saved() == kHeader + joined + Line("b.exe"));
}

TEST_CASE_FIXTURE(Bench, "a reload takes nothing from the list that its file does not give or have yet") {
    Load(Line("b.exe") + Line("a.exe"));
    sim::setUnreadable(kProfile, true);
    favs.LoadFavorites();
    CHECK(Shown() == Names{"b.exe", "a.exe"});
    sim::setUnreadable(kProfile, false);

    sim::setReadOnlyFolder("C:\\Kestrum", true);
    CHECK(favs.AddFav("C:\\C.EXE", "0") == AddFavResult::Added);
    favs.LoadFavorites();
    CHECK(Shown() == Names{"a.exe", "b.exe", "C.exe"});
    SUBCASE("of the same profile") {
        sim::setReadOnlyFolder("C:\\Kestrum", false);
        favs.LoadFavorites();
    }
    SUBCASE("of one that comes back") {
        favs.SetFavName("My Favs 2");
        favs.LoadFavorites();
        CHECK(Shown().empty());
        favs.SetFavName("My Favs 1");
        favs.LoadFavorites();
        CHECK(Shown() == Names{"a.exe", "b.exe", "C.exe"});
        sim::setReadOnlyFolder("C:\\Kestrum", false);
        favs.SavePending();
    }
    SUBCASE("of one that was left") {
        favs.SetFavName("My Favs 2");
        favs.LoadFavorites();
        sim::setReadOnlyFolder("C:\\Kestrum", false);
        favs.SavePending();
    }
    CHECK(Saved().ends_with("C:\\C.EXE\t\r\n"));

    favs.SetFavName("My Favs 2");  // another profile has its own
    favs.LoadFavorites();
    CHECK(Shown().empty());
}
