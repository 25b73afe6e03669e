#include "favorites/FavoritesList.h"

#include "FavoritesFixture.h"
#include "platform/Files.h"

using namespace favoritestest;
using favorites::AddFavResult;

namespace {

const std::string kProfile = kBase + "My Favs 1";

std::string Line(const std::string& name, const std::string& rest = "") {
    return name + "\t0\tHigh\tC:\\" + name + "\t" + rest + "\r\n";
}

struct Bench : FavoritesBench {
    Bench() : FavoritesBench({"C:\\a.exe", "C:\\b.exe", "C:\\C.EXE"}) {}
    Names Shown() const { return NamesOf(favs.Rows()); }
    static std::string Saved() { return favoritestest::Saved("My Favs 1"); }
};

}  // namespace

TEST_CASE("loading shows the profile in the file's order and leaves a sound file alone") {
    Bench bench;
    const std::string odd = std::string("x\0y.exe\t01\tLow\tC:\\a.exe\t", 25) + std::string(300, 'p') + "\xFF\r\n";
    const std::string content = kHeader + Line("b.exe", "-x \"1\"") + odd;
    sim::putFile(kProfile, content);
    sim::clearLog();
    bench.favs.LoadFavorites();
    bench.favs.LoadFavorites();  // replaces, does not append
    CHECK(bench.Shown() == Names{"b.exe", std::string("x\0y.exe", 7)});
    CHECK(bench.list.CellText(1, favorites::kColIcon) == "2");
    CHECK(bench.balloons.empty());
    for (const std::string& entry : sim::log()) CHECK(entry.find("writeFile") == std::string::npos);
    CHECK(bench.favs.Save());
    CHECK(Bench::Saved() == content);
}

TEST_CASE("programs that are gone leave the profile with one balloon, and their icons go too") {
    Bench bench;
    sim::putFile(kBase + "Cache\\gone.exe.bmp", "");
    sim::putFile(kProfile, kHeader + Line("gone.exe") + Line("a.exe") + Line("away.exe"));
    bench.favs.LoadFavorites();
    CHECK(bench.Shown() == Names{"a.exe"});
    CHECK(Bench::Saved() == kHeader + Line("a.exe"));
    CHECK(bench.balloons == Names{"Kestrum 2|2 favorites not found and removed from current profile!\r\n"
                                  "gone.exe, away.exe|info"});
    CHECK_FALSE(sim::file(kBase + "Cache\\gone.exe.bmp"));
    bench.favs.LoadFavorites();
    CHECK(bench.balloons.size() == 1);

    platform::deleteFile("C:\\a.exe");
    bench.favs.LoadFavorites();
    CHECK(Bench::Saved() == "(no file)");
}

TEST_CASE("what is no program file counts as gone: a folder, a share that is away, a path without end") {
    Bench bench;
    sim::putFolder("C:\\Folder.exe");
    const std::string endless = "C:\\" + std::string(10000, 'x') + ".exe";
    std::string content = kHeader + Line("a.exe");
    for (const std::string& path :
         {std::string("C:\\Folder.exe"), std::string("\\\\away\\share\\p.exe"), endless}) {
        content += "P.exe\t01\tHigh\t" + path + "\t\r\n";
    }
    sim::putFile(kProfile, content);
    bench.favs.LoadFavorites();
    CHECK(bench.Shown() == Names{"a.exe"});
    CHECK(Bench::Saved() == kHeader + Line("a.exe"));
    REQUIRE(bench.balloons.size() == 1);
    CHECK(bench.balloons[0].find("3 favorites not found") != std::string::npos);
}

TEST_CASE("a program is added once, sorted in and saved") {
    Bench bench;
    CHECK(bench.favs.AddFav("C:\\b.exe", "013") == AddFavResult::Added);
    CHECK(bench.favs.AddFav("C:\\C.EXE", "") == AddFavResult::Added);
    CHECK(bench.favs.AddFav("C:\\a.exe", "2") == AddFavResult::Added);
    CHECK(bench.Shown() == Names{"A.exe", "B.exe", "C.exe"});
    const std::string content = kHeader + "A.exe\t2\tDefault\tC:\\a.exe\t\r\n" +
                                "B.exe\t013\tDefault\tC:\\b.exe\t\r\n" + "C.exe\t\tDefault\tC:\\C.EXE\t\r\n";
    CHECK(Bench::Saved() == content);
    CHECK(sim::file(kBase + "Cache\\b.exe.bmp"));

    sim::putFile("C:\\readme.txt", "");
    sim::putFile("C:\\exe", "");
    sim::putFolder("C:\\Folder.exe");
    const std::pair<const char*, AddFavResult> refused[] = {
        {"c:\\B.EXE", AddFavResult::Duplicate},        {"C:\\readme.txt", AddFavResult::BadExtension},
        {"C:\\exe", AddFavResult::BadExtension},       {"", AddFavResult::BadExtension},
        {"C:\\gone.exe", AddFavResult::Missing},       {"C:\\Folder.exe", AddFavResult::Missing},
        {"C:\\b.exe.lnk", AddFavResult::BadExtension},
    };
    for (const auto& [path, result] : refused) {
        CAPTURE(path);
        CHECK(bench.favs.AddFav(path, "0") == result);
    }
    CHECK(Bench::Saved() == content);
    sim::putFile("C:\\saver.SCR", "");
    CHECK(bench.favs.AddFav("C:\\saver.SCR", "0") == AddFavResult::Added);
    CHECK(favorites::DuplicateText("C:\\x\\B.EXE") ==
          "The file B.EXE at the selected path\r\nis already in your favorites list!");
}

TEST_CASE("the sort is kept, and a damaged one still sorts by a column") {
    Bench bench;
    sim::putFile(kProfile, kHeader + Line("b.exe", "1") + Line("C.EXE", "2") + Line("a.exe", "3"));
    bench.favs.LoadFavorites();
    bench.favs.SetSort(favorites::kColParam, false);
    bench.favs.SortFavs();
    CHECK(bench.Shown() == Names{"a.exe", "C.EXE", "b.exe"});
    CHECK(bench.favs.Save());
    CHECK(Bench::Saved() == kHeader + Line("a.exe", "3") + Line("C.EXE", "2") + Line("b.exe", "1"));
    bench.favs.SetSort(-7, true);
    CHECK(bench.favs.SortColumn() == 0);
    bench.favs.SortFavs();
    CHECK(bench.Shown() == Names{"a.exe", "b.exe", "C.EXE"});
    bench.favs.SetSort(99, true);
    CHECK(bench.favs.SortColumn() == favorites::kColParam);
}

TEST_CASE("removing takes the selected rows, whatever the order shown") {
    Bench bench;
    for (const char* path : {"C:\\a.exe", "C:\\b.exe", "C:\\C.EXE"}) bench.favs.AddFav(path, "0");
    bench.favs.SetSort(0, false);
    bench.favs.SortFavs();
    CHECK_FALSE(bench.favs.AnySelected());
    CHECK(bench.favs.RemoveSelected() == 0);
    bench.list.SelectItem(0, true);
    bench.list.SelectItem(2, true);
    CHECK(bench.favs.AnySelected());

    SUBCASE("and their icons") {
        CHECK(bench.favs.RemoveSelected() == 2);
        CHECK(bench.Shown() == Names{"B.exe"});
        CHECK(Bench::Saved() == kHeader + "B.exe\t0\tDefault\tC:\\b.exe\t\r\n");
        CHECK(platform::listFiles(kBase + "Cache\\", "*.bmp") == Names{"b.exe.bmp"});
        bench.list.SelectItem(0, true);
        CHECK(bench.favs.RemoveSelected() == 1);
        CHECK(Bench::Saved() == "(no file)");
    }
    SUBCASE("and the row that moved up is selected, in view") {
        for (int i = 0; i < 60; ++i) {
            const std::string path = "C:\\z" + std::to_string(i) + ".exe";
            sim::putFile(path, "");
            bench.favs.AddFav(path, "0");
        }
        bench.list.SetTopIndex(30);
        const int top = bench.list.TopIndex();
        for (int row = 0; row < bench.favs.Count(); ++row) bench.list.SelectItem(row, row == top + 2);
        const std::string next = bench.favs.Row(top + 3).name;
        CHECK(bench.favs.RemoveSelected() == 1);
        CHECK(bench.list.TopIndex() == top);
        CHECK(bench.list.Selected(top + 2));
        CHECK(bench.favs.Row(top + 2).name == next);
    }
    SUBCASE("but no icon while a profile that may need it cannot be read") {
        sim::putFile(kBase + "My Favs 4", kHeader);
        sim::setUnreadable(kBase + "My Favs 4", true);
        CHECK(bench.favs.RemoveSelected() == 2);
        CHECK(sim::file(kBase + "Cache\\a.exe.bmp"));
    }
    SUBCASE("even when that cannot be saved") {
        const std::string before = Bench::Saved();
        sim::setReadOnlyFolder("C:\\Kestrum", true);
        CHECK(bench.favs.RemoveSelected() == 2);
        CHECK(bench.Shown() == Names{"B.exe"});
        CHECK(Bench::Saved() == before);
    }
}

TEST_CASE("a profile that could not be read is never written over or deleted") {
    Bench bench;
    const std::string content = kHeader + Line("b.exe");
    sim::putFile(kProfile, content);
    sim::setUnreadable(kProfile, true);
    bench.favs.LoadFavorites();
    CHECK(bench.favs.Count() == 0);
    CHECK_FALSE(bench.favs.Save());
    CHECK(bench.favs.AddFav("C:\\a.exe", "0") == AddFavResult::Added);
    CHECK(bench.Shown() == Names{"A.exe"});
    sim::setUnreadable(kProfile, false);
    CHECK_FALSE(bench.favs.Save());
    CHECK(Bench::Saved() == content);

    bench.favs.SetFavName("My Favs 2");  // another profile is not concerned
    CHECK(bench.favs.Save());
    CHECK(sim::file(kBase + "My Favs 2"));

    bench.favs.SetFavName("My Favs 1");
    bench.favs.LoadFavorites();
    CHECK(bench.Shown() == Names{"b.exe"});
    CHECK(bench.favs.Save());
}

TEST_CASE("each row shows its program's icon, after sorting too") {
    Bench bench;
    bench.favs.AddFav("C:\\b.exe", "0");
    bench.favs.AddFav("C:\\a.exe", "0");
    const auto iconsDrawn = [&bench] {
        std::vector<std::uintptr_t> icons;
        for (const sim::Drawn& drawn : sim::paint(bench.list, true)) {
            if (drawn.what == "picture") icons.push_back(drawn.object);
        }
        return icons;
    };
    const auto ascending = iconsDrawn();
    REQUIRE(ascending.size() == 2);
    CHECK(ascending[0] != ascending[1]);
    bench.favs.SetSort(0, false);
    bench.favs.SortFavs();
    bench.list.ReDraw();
    CHECK(iconsDrawn() == std::vector<std::uintptr_t>{ascending[1], ascending[0]});
}
