// The dialog of the file filter, as its user meets it.
#include "filter/DlgHides.h"

#include <doctest/doctest.h>

#include "platform/sim/Sim.h"
#include "storage/Folders.h"

namespace sim = platform::sim;
namespace key = platform::key;
using Names = std::vector<std::string>;

namespace {

const std::string kBase = "C:\\Kestrum\\";
const std::string kFile = kBase + "FileFilter";

void Press(const std::string& button) {
    platform::Window* window = sim::findWindow(button);
    REQUIRE(window != nullptr);
    const platform::Size size = window->clientSize();
    sim::click(*window, {size.width / 2, size.height / 2});
}

// A main window with a filter of three names, and a dialog over it.
struct Bench {
    Bench() {
        platform::WindowSpec spec;
        spec.kind = platform::WindowKind::Main;
        spec.bounds = {200, 100, 1000, 600};
        REQUIRE(owner.create(spec));
        owner.show(platform::ShowCommand::Show);
        storage::CreateFolders(kBase);
        sim::putFile(kFile, "a.exe\r\nb.exe\r\nc.exe\r\n");
        for (const char* path : {"C:\\a.exe", "C:\\New.exe", "C:\\one.scr", "C:\\x.txt"}) sim::putFile(path, "");
        filter.Load();
    }
    // Opens the dialog, has `script` use it, and closes it by Escape if it is still there.
    template <class Script>
    void Show(Script script) {
        sim::whenModal([&](platform::Window& dialog) {
            list = dynamic_cast<controls::UcList1*>(sim::findWindow("UcFilter"));
            REQUIRE(list != nullptr);
            script(dialog);
            if (sim::findWindow("UcFilter") != nullptr) sim::pressKey(key::kEscape);
        });
        filter::DlgHides dialog({filter, msgBoxes, tips, true, [this] { ++changes; }});
        dialog.ShowModal(owner);
        CHECK_FALSE(dialog.exists());
        CHECK(sim::tips().empty());
    }
    // The next message box is noted and answered.
    void ExpectMessage() {
        sim::whenModal([this](platform::Window& box) {
            for (const sim::Drawn& drawn : sim::paint(box, true)) {
                if (drawn.what == "text") messages.push_back(box.text() + ": " + drawn.text);
            }
            sim::pressKey(key::kEscape);
        });
    }
    Names Rows() const {
        Names names;
        for (int row = 0; row < list->ListCount(); ++row) names.push_back(list->CellText(row, 0));
        return names;
    }
    void Click(int row) const {
        const platform::Rect rect = list->Layout().RowRect(row);
        sim::click(*list, {rect.left + 30, rect.top + 5});
    }
    static std::string Saved() { return sim::file(kFile).value_or("(no file)"); }

    struct Fresh {
        Fresh() { sim::reset(); }
    } fresh;
    platform::Window owner;
    controls::MsgBoxes msgBoxes;
    controls::BalloonTips tips;
    filter::FileFilter filter{kBase};
    controls::UcList1* list = nullptr;
    int changes = 0;
    Names messages;
};

}  // namespace

TEST_CASE("the dialog stands over its owner, kept on the screen, and ends as dialogs do") {
    {
        Bench bench;
        bench.Show([&](platform::Window& dialog) {
            const platform::Rect box = dialog.bounds(), over = bench.owner.bounds();
            CHECK(std::abs(box.left + box.right - over.left - over.right) <= 1);
            CHECK(std::abs(box.top + box.bottom - over.top - over.bottom) <= 1);
            CHECK(bench.list->focused());
            CHECK(bench.Rows() == Names{"a.exe", "b.exe", "c.exe"});
            CHECK(sim::findWindow("Filters:3") != nullptr);
            for (const char* button : {"Browse For Files", "Close File Filter"}) {
                CHECK(sim::findWindow(button)->enabled());
            }
            CHECK_FALSE(sim::findWindow("Remove a Filter")->enabled());  // nothing is selected
            Press("Close File Filter");
        });
        bench.owner.setBounds({900, 600, 1300, 800});
        bench.Show([&](platform::Window& dialog) {
            const platform::Rect box = dialog.bounds();
            CHECK(platform::nearestWorkArea(box).intersect(box) == box);
            sim::closeBox(dialog);
        });
        CHECK(bench.changes == 0);
        CHECK(Bench::Saved() == "a.exe\r\nb.exe\r\nc.exe\r\n");
    }
    CHECK(sim::openHandles() == 0);
}

TEST_CASE("files are added by browsing and by dropping them") {
    Bench bench;
    bench.Show([&](platform::Window&) {
        Press("Browse For Files");  // cancelled
        CHECK(bench.changes == 0);
        sim::whenChoosingFile("C:\\New.exe");
        Press("Browse For Files");
        CHECK(bench.Rows() == Names{"a.exe", "b.exe", "c.exe", "New.exe"});
        CHECK(Bench::Saved() == "a.exe\r\nb.exe\r\nc.exe\r\nNew.exe\r\n");
        CHECK(bench.changes == 1);
        CHECK(sim::findWindow("Filters:4") != nullptr);
        CHECK_FALSE(bench.list->Selected(3));

        // Several files, one message of each kind; what is good is added.
        bench.ExpectMessage();
        bench.ExpectMessage();
        sim::dropFiles(*bench.list, {"C:\\a.exe", "C:\\x.txt", "C:\\New.exe", "C:\\gone.exe", "C:\\one.scr"});
        CHECK(bench.filter.Count() == 5);
        CHECK(bench.filter.Contains("one.scr"));
        CHECK(sim::focusedWindow() == sim::findWindow("Browse For Files"));  // back from the messages
    });
    std::string told;
    for (const std::string& line : bench.messages) told += line + '\n';
    CHECK(told.find("Kestrum - Info: Files must have an extension of \".Exe\" or \".Scr\"\n") == 0);
    CHECK(told.find("already in your filter list.") != std::string::npos);
    CHECK(sim::sounds().size() == 2);
}

TEST_CASE("what is selected is removed, whatever the order shown, until nothing is left") {
    Bench bench;
    bench.Show([&](platform::Window&) {
        sim::pressKey(key::kDelete);
        CHECK(bench.filter.Count() == 3);
        sim::click(*bench.list, {20, 5});
        sim::click(*bench.list, {20, 5});  // the header: descending
        REQUIRE(bench.Rows() == Names{"c.exe", "b.exe", "a.exe"});
        bench.Click(0);
        Press("Remove a Filter");
        CHECK(Bench::Saved() == "a.exe\r\nb.exe\r\n");
        CHECK(bench.Rows() == Names{"b.exe", "a.exe"});
        CHECK_FALSE(sim::findWindow("Remove a Filter")->enabled());
        CHECK(bench.list->focused());

        sim::pressKey(key::kHome);
        sim::pressKey(key::kDelete);
        CHECK(bench.Rows() == Names{"a.exe"});
        sim::pressKey('A', {.ctrl = true});
        sim::pressKey(key::kDelete);
        CHECK(Bench::Saved() == "(no file)");
        CHECK(sim::findWindow("Filters:0") != nullptr);
        CHECK(bench.changes == 3);
    });
}

TEST_CASE("the keyboard reaches everything, and a long list stays where it is") {
    Bench bench;
    std::string content = "tab\tbed.exe\r\n";
    for (int i = 100; i < 300; ++i) content += "p" + std::to_string(i) + ".exe\r\n";
    sim::putFile(kFile, content);
    bench.filter.Load();
    bench.Show([&](platform::Window&) {
        bench.Click(2);
        for (const char* button : {"Browse For Files", "Remove a Filter", "Close File Filter", "UcFilter"}) {
            sim::pressKey(key::kTab);
            CHECK(sim::focusedWindow() == sim::findWindow(button));
        }
        sim::whenChoosingFile("C:\\New.exe");
        sim::pressKey(0x2D);                 // Insert
        CHECK(bench.list->TopIndex() == 0);  // the new row is in sight already

        sim::whenChoosingFile("C:\\one.scr");
        sim::pressKey(key::kEnd);
        sim::pressKey(key::kDelete);  // the name with a tab, not the first one
        CHECK_FALSE(bench.filter.Contains("tab\tbed.exe"));
        CHECK(bench.filter.Contains("New.exe"));
        CHECK(bench.list->TopIndex() > 100);
        sim::pressKey(0x2D);
        CHECK(bench.list->TopIndex() < 10);  // scrolled to it
    });
}

TEST_CASE("rows show the icons kept for their names, buttons explain themselves") {
    Bench bench;
    bench.filter.AddFilter("C:\\New.exe");
    bench.Show([&](platform::Window&) {
        std::vector<std::uintptr_t> icons;
        for (const sim::Drawn& drawn : sim::paint(*bench.list, true)) {
            if (drawn.what == "picture") icons.push_back(drawn.object);
        }
        REQUIRE(icons.size() == 4);
        CHECK(icons[0] == icons[1]);  // the default icon
        CHECK(icons[3] != icons[0]);
        sim::setPointer(*sim::findWindow("Browse For Files"), {5, 5});
        REQUIRE(sim::tips().size() == 1);
        CHECK(sim::tips()[0].title + "|" + sim::tips()[0].text == "Browse For Files|Add a file name to filter.");
    });
}
