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

platform::Window& Control(const std::string& name) {
    platform::Window* window = sim::findWindow(name);
    REQUIRE_MESSAGE(window != nullptr, name);
    return *window;
}
void Press(const std::string& button) {
    const platform::Size size = Control(button).clientSize();
    sim::click(Control(button), {size.width / 2, size.height / 2});
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
        for (const char* path : {"C:\\a.exe", "C:\\New.exe", "C:\\one.scr", "C:\\x.txt"}) sim::putFile(path, "");
        Load("a.exe\r\nb.exe\r\nc.exe\r\n");
    }
    void Load(const std::string& content) {
        sim::putFile(kFile, content);
        filter.Load();
    }
    // Opens the dialog, has `script` use it, and closes it by Escape if it is still there.
    template <class Script>
    void Show(Script script) {
        sim::whenModal([&](platform::Window& dialog) {
            list = dynamic_cast<controls::UcList1*>(&Control("UcFilter"));
            REQUIRE(list != nullptr);
            script(dialog);
            if (sim::findWindow("UcFilter") != nullptr) sim::pressKey(key::kEscape);
        });
        filter::DlgHides dialog({filter, msgBoxes, tips, sounds, [this] { ++changes; }});
        dialog.ShowModal(owner);
        CHECK_FALSE(dialog.exists());
        CHECK(sim::tips().empty());
    }
    // The next message box is noted and answered.
    void ExpectMessage() {
        sim::whenModal([this](platform::Window& box) {
            for (const sim::Drawn& drawn : sim::paint(box, true)) {
                if (drawn.what == "text") told += box.text() + ": " + drawn.text + "\n";
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
        ~Fresh() { CHECK(sim::openHandles() == 0); }
    } fresh;
    platform::Window owner;
    controls::MsgBoxes msgBoxes;
    controls::BalloonTips tips;
    filter::FileFilter filter{kBase};
    controls::UcList1* list = nullptr;
    bool sounds = true;
    int changes = 0;
    std::string told;
};

}  // namespace

TEST_CASE_FIXTURE(Bench, "the dialog stands over its owner, kept on the screen, and ends as dialogs do") {
    Show([&](platform::Window& dialog) {
        const platform::Rect box = dialog.bounds(), over = owner.bounds();
        CHECK(std::abs(box.left + box.right - over.left - over.right) <= 1);
        CHECK(list->focused());
        CHECK(Rows() == Names{"a.exe", "b.exe", "c.exe"});
        CHECK_FALSE(Control("Remove a Filter").enabled());  // nothing is selected
        Press("Close File Filter");
    });
    owner.setBounds({900, 600, 1300, 800});
    Show([&](platform::Window& dialog) {
        const platform::Rect box = dialog.bounds();
        CHECK(platform::nearestWorkArea(box).intersect(box) == box);
        sim::closeBox(dialog);
    });
    CHECK(changes == 0);
    CHECK(Saved() == "a.exe\r\nb.exe\r\nc.exe\r\n");
}

TEST_CASE_FIXTURE(Bench, "files are added by browsing and by dropping them, and show their icons") {
    Show([&](platform::Window&) {
        Press("Browse For Files");  // cancelled
        CHECK(changes == 0);
        sim::whenChoosingFile("C:\\New.exe");
        Press("Browse For Files");
        CHECK(Saved() == "a.exe\r\nb.exe\r\nc.exe\r\nNew.exe\r\n");
        CHECK(changes == 1);
        Control("Filters:4");
        CHECK_FALSE(list->Selected(3));
        std::vector<std::uintptr_t> icons;
        for (const sim::Drawn& drawn : sim::paint(*list, true)) {
            if (drawn.what == "picture") icons.push_back(drawn.object);
        }
        REQUIRE(icons.size() == 4);
        CHECK(icons[0] == icons[1]);  // the default icon
        CHECK(icons[3] != icons[0]);
        sim::setPointer(Control("Close File Filter"), {5, 5});
        REQUIRE(sim::tips().size() == 1);
        CHECK(sim::tips()[0].title + "|" + sim::tips()[0].text == "Close File Filter|Exit File Filter.");

        // Several files, one message of each kind; what is good is added.
        ExpectMessage();
        ExpectMessage();
        sim::dropFiles(*list, {"C:\\a.exe", "C:\\x.txt", "C:\\New.exe", "C:\\gone.exe", "C:\\one.scr"});
        CHECK(Rows() == Names{"a.exe", "b.exe", "c.exe", "New.exe", "One.scr"});
        CHECK(sim::focusedWindow() == &Control("Browse For Files"));  // back from the messages
    });
    CHECK(told.find("Kestrum - Info: Files must have an extension of \".Exe\" or \".Scr\"\n") == 0);
    CHECK(told.find("already in your filter list.") != std::string::npos);
    CHECK(sim::sounds().size() == 2);
    Show([&](platform::Window&) {
        sounds = false;  // switched off meanwhile
        ExpectMessage();
        sim::dropFiles(*list, {"C:\\x.txt"});
    });
    CHECK(sim::sounds().size() == 2);
}

TEST_CASE_FIXTURE(Bench, "what is selected is removed, whatever the order shown, until nothing is left") {
    Show([&](platform::Window&) {
        sim::pressKey(key::kDelete);
        CHECK(filter.Count() == 3);
        sim::click(*list, {20, 5});
        sim::click(*list, {20, 5});  // the header: descending
        REQUIRE(Rows() == Names{"c.exe", "b.exe", "a.exe"});
        Click(0);
        Press("Remove a Filter");
        CHECK(Saved() == "a.exe\r\nb.exe\r\n");
        CHECK(Rows() == Names{"b.exe", "a.exe"});
        CHECK_FALSE(Control("Remove a Filter").enabled());
        CHECK(list->focused());

        sim::pressKey(key::kHome);
        sim::pressKey(key::kDelete);
        CHECK(Rows() == Names{"a.exe"});
        sim::pressKey('A', {.ctrl = true});
        sim::pressKey(key::kDelete);
        CHECK(Saved() == "(no file)");
        Control("Filters:0");
        CHECK(changes == 3);
    });
}

TEST_CASE_FIXTURE(Bench, "the keyboard reaches everything, and a long list stays where it is") {
    std::string content = "tab\tbed.exe\r\n";
    for (int i = 100; i < 300; ++i) content += "p" + std::to_string(i) + ".exe\r\n";
    Load(content);
    Show([&](platform::Window& dialog) {
        Click(2);
        for (const char* button : {"Browse For Files", "Remove a Filter", "Close File Filter", "UcFilter"}) {
            sim::pressKey(key::kTab);
            dialog.focus();  // the user comes back to the frame: it belongs to the control that had it
            CHECK(sim::focusedWindow() == &Control(button));
        }
        sim::whenChoosingFile("C:\\New.exe");
        sim::pressKey(0x2D);           // Insert
        CHECK(list->TopIndex() == 0);  // the new row is in sight already

        sim::whenChoosingFile("C:\\one.scr");
        sim::pressKey(key::kEnd);
        sim::pressKey(key::kDelete);  // the name with a tab, not the first one
        CHECK_FALSE(filter.Contains("tab\tbed.exe"));
        CHECK(filter.Contains("New.exe"));
        CHECK(list->TopIndex() > 100);
        sim::pressKey(0x2D);
        CHECK(list->TopIndex() < 10);  // scrolled to it
    });
}
