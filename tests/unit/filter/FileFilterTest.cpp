// The file filter: its file, look-ups, adding and removing.
#include "filter/FileFilter.h"

#include <doctest/doctest.h>

#include "filter/FilterFile.h"
#include "platform/Files.h"
#include "platform/sim/Sim.h"
#include "storage/BitmapFile.h"
#include "storage/Folders.h"

namespace sim = platform::sim;
using filter::AddFilterResult;
using filter::FileFilter;
using Names = std::vector<std::string>;

namespace {

const std::string kBase = "C:\\Kestrum\\";
const std::string kFile = kBase + "FileFilter";
const std::string kIcons = kBase + "Cache\\Filters\\";

// A filter on a machine where C:\b.exe, C:\CALC.EXE and C:\NoTes.Exe exist.
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
    for (const char* text : {"b", "C", "a"}) list.AddItem(text);
    list.SetItemData(list.NewIndex(), 7);
    CHECK(list.FindItem("A") == 2);
    list.Sort();
    CHECK(Names{list.List(0), list.List(1), list.List(2), list.List(3)} == Names{"a", "b", "C", ""});
    CHECK(list.FindItem("c") == 2);
    CHECK(list.FindItem("bb") == -1);
    CHECK(list.ItemData(0) == 7);
    list.AddItem("aa");  // out of order again
    CHECK(list.FindItem("AA") == 3);
}

TEST_CASE("reading takes any content apart into names") {
    sim::reset();
    const std::pair<std::string, Names> cases[] = {
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

TEST_CASE_FIXTURE(Bench, "loading sorts the names, however many, and leaves the file alone") {
    CHECK_FALSE(filter.Load());
    std::string content = " b.exe \r\nC.EXE,a.exe\r\n\xC3\x84.exe\r\n";
    sim::putFile(kFile, content);
    CHECK(filter.Load());
    CHECK(filter.Load());  // replaces, does not append
    CHECK(Shown() == Names{"a.exe", "b.exe", "C.EXE", "\xC3\x84.exe"});
    for (int i = 29999; i >= 0; --i) content += "program number " + std::to_string(i) + ".exe\r\n";
    sim::putFile(kFile, content);
    sim::clearLog();
    CHECK(filter.Load());
    CHECK(filter.Count() == 30004);
    for (const char* name : {"A.EXE", "c.exe", "\xC3\xA4.EXE", "PROGRAM number 17777.exe"}) {
        CHECK(filter.Contains(name));
    }
    for (const char* name : {"", "a", "a.exe ", "C:\\a.exe"}) CHECK_FALSE(filter.Contains(name));
    for (const std::string& entry : sim::log()) CHECK(entry.find("writeNewFile") == std::string::npos);
}

TEST_CASE_FIXTURE(Bench, "programs are added by file name, sorted, with icons, and removed the same way") {
    for (const char* path : {"C:\\NoTes.Exe", "C:\\b.exe", "C:\\CALC.EXE"}) {
        CHECK(filter.AddFilter(path) == AddFilterResult::Added);
    }
    CHECK(Saved() == "B.exe\r\nCalc.exe\r\nNoTes.Exe\r\n");
    sim::putFile("D:\\Other\\B.exe", "");
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
        CHECK(filter.AddFilter(path) == result);
    }
    sim::clearLog();
    filter.Remove({-1, 3});
    CHECK(sim::log().empty());
    filter.Remove({2, 0, 2, 99});
    CHECK(Shown() == Names{"Calc.exe"});
    CHECK(Saved() == "Calc.exe\r\n");
    CHECK(platform::listFiles(kIcons, "*.bmp") == Names{"calc.exe.bmp"});
    filter.Remove({0});
    CHECK(Saved() == "(no file)");
    CHECK(platform::listFiles(kIcons, "*.bmp").empty());

    // A name with the separator in it comes back as two.
    sim::putFile("C:\\one,two.scr", "");
    CHECK(filter.AddFilter("C:\\one,two.scr") == AddFilterResult::Added);
    filter.Load();
    CHECK(Shown() == Names{"One", "two.scr"});
}

TEST_CASE_FIXTURE(Bench, "what cannot be written stays in memory, and the file what it was") {
    filter.AddFilter("C:\\b.exe");
    SUBCASE("full disk") {
        sim::setDiskSpace(3);
    }
    SUBCASE("no right to write") {
        sim::setReadOnlyFolder("C:\\Kestrum", true);
    }
    CHECK(filter.AddFilter("C:\\CALC.EXE") == AddFilterResult::Added);
    filter.Remove({0});
    CHECK(Shown() == Names{"Calc.exe"});
    CHECK(Saved() == "B.exe\r\n");
    CHECK(sim::file(kIcons + "b.exe.bmp"));
    sim::setDiskSpace(std::nullopt);
    sim::setReadOnlyFolder("C:\\Kestrum", false);
    filter.SavePending();
    CHECK(Saved() == "Calc.exe\r\n");
}

TEST_CASE_FIXTURE(Bench, "a filter file that could not be read is never written over, and joined when it can be") {
    sim::putFile(kFile, "a.exe\r\nb.exe\r\n");
    sim::putFile(kIcons + "a.exe.bmp", storage::EncodeBitmap({16, 16}, std::vector<std::uint32_t>(256, 7)));
    sim::setUnreadable(kFile, true);
    CHECK_FALSE(filter.Load());
    CHECK(filter.AddFilter("C:\\b.exe") == AddFilterResult::Added);
    CHECK(filter.AddFilter("C:\\CALC.EXE") == AddFilterResult::Added);
    filter.Remove({0});
    CHECK_FALSE(filter.ReadUnread());
    sim::setUnreadable(kFile, false);
    CHECK(Saved() == "a.exe\r\nb.exe\r\n");
    SUBCASE("by what is saved next") {}
    SUBCASE("by a look at it") {
        CHECK(filter.ReadUnread());
        CHECK_FALSE(filter.ReadUnread());
    }
    filter.SavePending();
    CHECK(Shown() == Names{"a.exe", "b.exe", "Calc.exe"});
    CHECK(Saved() == "a.exe\r\nb.exe\r\nCalc.exe\r\n");
    CHECK(sim::file(kIcons + "a.exe.bmp"));
}
