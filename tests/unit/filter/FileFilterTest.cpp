// The file filter: its file, look-ups, adding and removing.
#include "filter/FileFilter.h"

#include <doctest/doctest.h>

#include "filter/FilterFile.h"
#include "platform/Files.h"
#include "platform/sim/Sim.h"
#include "storage/Folders.h"

namespace sim = platform::sim;
using filter::AddFilterResult;
using filter::FileFilter;
using Names = std::vector<std::string>;

namespace {

const std::string kBase = "C:\\Kestrum\\";
const std::string kFile = kBase + "FileFilter";
const std::string kIcons = kBase + "Cache\\Filters\\";

// A filter on a machine where C:\b.exe, C:\CALC.EXE and C:\Notes.exe exist.
struct Bench {
    Bench() {
        storage::CreateFolders(kBase);
        for (const char* path : {"C:\\b.exe", "C:\\CALC.EXE", "C:\\NoTes.Exe"}) sim::putFile(path, "");
    }
    Names Shown() const {
        Names names;
        for (int index = 0; index < filter.Count(); ++index) names.push_back(filter.Name(index));
        return names;
    }
    void AddAll() {
        for (const char* path : {"C:\\NoTes.Exe", "C:\\b.exe", "C:\\CALC.EXE"}) filter.AddFilter(path);
    }
    static std::string Saved() { return sim::file(kFile).value_or("(no file)"); }

    struct Fresh {
        Fresh() { sim::reset(); }
    } fresh;
    FileFilter filter{kBase};
};

}  // namespace

TEST_CASE("the list finds texts in any letter case, in order or not") {
    sim::reset();
    filter::cList list;
    CHECK(list.NewIndex() == -1);
    for (const char* text : {"b", "C", "a"}) list.AddItem(text);
    CHECK(list.NewIndex() == 2);
    list.SetItemData(list.NewIndex(), 7);
    CHECK(list.FindItem("A") == 2);
    list.Sort();
    CHECK(Names{list.List(0), list.List(1), list.List(2)} == Names{"a", "b", "C"});
    CHECK(list.FindItem("c") == 2);
    CHECK(list.FindItem("bb") == -1);
    CHECK(list.ItemData(0) == 7);
    CHECK(list.ItemData(1) == 0);
    CHECK((list.List(3) + list.List(-1)).empty());
    list.AddItem("aa");  // out of order again
    CHECK(list.FindItem("AA") == 3);
    list.Clear();
    CHECK(list.FindItem("a") == -1);
}

TEST_CASE("reading takes any content apart into names") {
    sim::reset();
    const std::pair<std::string, Names> cases[] = {
        {"", {}},
        {"b.exe\r\na.exe\r\n", {"b.exe", "a.exe"}},
        {"  a.exe  \r\n\r\n   \r\nmy prog.exe", {"a.exe", "my prog.exe"}},
        {"a.exe\nb.exe\rc.exe\n\rd.exe", {"a.exe", "b.exe", "c.exe", "d.exe"}},
        {"a.exe, b.exe,,c.exe,", {"a.exe", "b.exe", "c.exe"}},
        {"\"a,b.exe\" , \" c.exe \"\r\n\"\"\r\n\"d.exe\"", {"a,b.exe", "c.exe", "d.exe"}},
        // Quotes that do not enclose a name on its line are part of it.
        {"\"a.exe\r\n\"b.exe\"\r\nc\"d\".exe,\"e\"f,\"", {"\"a.exe", "b.exe", "c\"d\".exe", "\"e\"f", "\""}},
        {std::string("a\0b\t.exe\xFF\r\n", 11), {std::string("a\0b\t.exe\xFF", 9)}},
        {std::string(1 << 20, 'x') + ",y", {std::string(1 << 20, 'x'), "y"}},
    };
    for (const auto& [content, names] : cases) {
        CAPTURE(content.substr(0, 60));
        const auto parsed = filter::ParseFilter(content);
        CHECK(Names(parsed.begin(), parsed.end()) == names);
    }
}

TEST_CASE("loading sorts the names and leaves the file alone") {
    Bench bench;
    CHECK_FALSE(bench.filter.Load());
    sim::putFile(kFile, " b.exe \r\nC.EXE,a.exe\r\n\xC3\x84.exe\r\n");
    sim::clearLog();
    CHECK(bench.filter.Load());
    CHECK(bench.filter.Load());  // replaces, does not append
    CHECK(bench.Shown() == Names{"a.exe", "b.exe", "C.EXE", "\xC3\x84.exe"});
    for (const char* name : {"A.EXE", "c.exe", "\xC3\xA4.EXE"}) CHECK(bench.filter.Contains(name));
    for (const char* name : {"", "a", "a.exe ", "C:\\a.exe"}) CHECK_FALSE(bench.filter.Contains(name));
    for (const std::string& entry : sim::log()) CHECK(entry.find("writeFile") == std::string::npos);
    sim::putFile(kFile, " \r\n,\r\n");
    CHECK_FALSE(bench.filter.Load());
    CHECK(bench.filter.Empty());
}

TEST_CASE("a program is added by its file name, sorted in, with its icon, and saved") {
    Bench bench;
    bench.AddAll();
    CHECK(bench.Shown() == Names{"B.exe", "Calc.exe", "NoTes.Exe"});
    CHECK(Bench::Saved() == "B.exe\r\nCalc.exe\r\nNoTes.Exe\r\n");
    CHECK(sim::file(kIcons + "calc.exe.bmp"));

    sim::putFile("D:\\Other\\B.exe", "");
    sim::putFile("C:\\b.txt", "");
    sim::putFolder("C:\\Folder.exe");
    const std::pair<const char*, AddFilterResult> refused[] = {
        {"D:\\Other\\B.exe", AddFilterResult::Duplicate},
        {"C:\\b.txt", AddFilterResult::BadExtension},
        {"", AddFilterResult::BadExtension},
        {"C:\\gone.exe", AddFilterResult::Missing},
        {"C:\\Folder.exe", AddFilterResult::Missing},
    };
    for (const auto& [path, result] : refused) {
        CAPTURE(path);
        CHECK(bench.filter.AddFilter(path) == result);
    }
    CHECK(bench.filter.Count() == 3);
    sim::putFile("C:\\one,two.scr", "");
    CHECK(bench.filter.AddFilter("C:\\one,two.scr") == AddFilterResult::Added);
    FileFilter again(kBase);
    again.Load();
    CHECK(again.Count() == 5);
    CHECK(again.Contains("two.scr"));
}

TEST_CASE("removing takes entries and their icons away, the last one the file") {
    Bench bench;
    bench.AddAll();
    sim::clearLog();
    bench.filter.Remove({-1, 3});
    CHECK(sim::log().empty());
    bench.filter.Remove({2, 0, 2, 99});
    CHECK(bench.Shown() == Names{"Calc.exe"});
    CHECK(Bench::Saved() == "Calc.exe\r\n");
    CHECK(platform::listFiles(kIcons, "*.bmp") == Names{"calc.exe.bmp"});
    bench.filter.Remove({0});
    CHECK(bench.filter.Empty());
    CHECK(Bench::Saved() == "(no file)");
    CHECK(platform::listFiles(kIcons, "*.bmp").empty());
}

TEST_CASE("what cannot be written stays in memory, and the file what it was") {
    Bench bench;
    bench.filter.AddFilter("C:\\b.exe");
    SUBCASE("full disk") {
        sim::setDiskSpace(3);
    }
    SUBCASE("no right to write") {
        sim::setReadOnlyFolder("C:\\Kestrum", true);
    }
    CHECK(bench.filter.AddFilter("C:\\CALC.EXE") == AddFilterResult::Added);
    bench.filter.Remove({0});
    CHECK(bench.Shown() == Names{"Calc.exe"});
    CHECK(Bench::Saved() == "B.exe\r\n");
    CHECK(sim::file(kIcons + "b.exe.bmp"));
    sim::setDiskSpace(std::nullopt);
    sim::setReadOnlyFolder("C:\\Kestrum", false);
    bench.filter.SavePending();
    CHECK(Bench::Saved() == "Calc.exe\r\n");
}

TEST_CASE("a filter file that could not be read is never written over or deleted") {
    Bench bench;
    sim::putFile(kFile, "a.exe\r\n");
    sim::putFile(kIcons + "a.exe.bmp", "");
    sim::setUnreadable(kFile, true);
    CHECK_FALSE(bench.filter.Load());
    CHECK(bench.filter.AddFilter("C:\\b.exe") == AddFilterResult::Added);
    sim::setUnreadable(kFile, false);
    bench.filter.Remove({0});
    bench.filter.SavePending();
    CHECK(Bench::Saved() == "a.exe\r\n");
    CHECK(sim::file(kIcons + "a.exe.bmp"));
    CHECK(bench.filter.Load());
    CHECK(bench.filter.AddFilter("C:\\b.exe") == AddFilterResult::Added);
    CHECK(Bench::Saved() == "a.exe\r\nB.exe\r\n");
}

TEST_CASE("a hundred thousand names load, are found and survive a change") {
    Bench bench;
    std::string content;
    for (int i = 99999; i >= 0; --i) content += "program number " + std::to_string(i) + ".exe\r\n";
    sim::putFile(kFile, content);
    CHECK(bench.filter.Load());
    CHECK(bench.filter.Count() == 100000);
    for (int i = 0; i < 100000; i += 777) {
        CHECK(bench.filter.Contains("PROGRAM number " + std::to_string(i) + ".exe"));
        CHECK_FALSE(bench.filter.Contains("program number " + std::to_string(i) + ".ex"));
    }
    CHECK(bench.filter.AddFilter("C:\\b.exe") == AddFilterResult::Added);
    CHECK(Bench::Saved().size() == content.size() + std::string("B.exe\r\n").size());
}
