// What the user does with selected processes, on the whole main window.
#include <string>
#include <vector>

#include "AppFixture.h"
#include "app/MainToolBars.h"
#include "app/ProcessCommands.h"

using namespace apptest;
using platform::ProcessId;

namespace {

constexpr std::uint32_t kDenySet = 0x200, kDenyTerminate = 0x1;

// Answers the next message box with a key and gives what it said.
std::vector<std::string>& Told() {
    static std::vector<std::string> told;
    return told;
}
void Answer(std::uint16_t key) {
    sim::whenModal([key](platform::Window& dialog) {
        std::string text;
        for (const sim::Drawn& drawn : sim::paint(dialog, true)) {
            if (drawn.what == "text") text += (text.empty() ? "" : "\n") + drawn.text;
        }
        Told().push_back(text);
        sim::pressKey(key);
    });
}

struct Desk : Machine {
    app::Form1* form_ = nullptr;
    Desk() { Told().clear(); }
    void Begin() {
        form_ = &Start();
        Tick();
    }
    void Select(const std::vector<ProcessId>& ids) {
        controls::UcList1& list = form_->ProcessList();
        for (int row = 0; row < list.ListCount(); ++row) list.SelectItem(row, false);
        for (const ProcessId id : ids) list.SelectItem(RowOf(id), true);
    }
    void Menu(int command) {
        sim::whenMenu([command](const std::vector<platform::MenuItem>&) { return command; });
        sim::click(form_->ProcessList(), {300, 5}, platform::MouseButton::Right);
    }
    void Button2(int index) {
        const platform::Rect area = form_->ToolBar2().ButtonRect(index);
        sim::click(form_->ToolBar2(), {area.left + 2, area.top + 2});
    }
    // The middle of a row of the process list, client pixels.
    platform::Point RowPoint(ProcessId id) {
        return {40, form_->ProcessList().HeaderHeight() + 1 + controls::kUcListRowHeight * RowOf(id) + 8};
    }
};

}  // namespace

TEST_CASE("Apply Changes sets what was chosen, and tells what could not be set") {
    Desk desk;
    Machine::PutProfile("Fav.exe\t1\tHigh\tC:\\Apps\\fav.exe\t\r\n");
    const ProcessId one = Machine::Run("C:\\Apps\\one.exe");
    const ProcessId two = Machine::Run("C:\\Apps\\two.exe");
    const ProcessId favourite = Machine::Run("C:\\Apps\\fav.exe");
    desk.Begin();
    desk.form_->CpuAffinity().Show("02");
    desk.form_->Priority().SelectItem(5);  // "Below"

    SUBCASE("all selected, but not the others") {
        desk.Select({one, favourite});
        desk.ClickButton(app::button::kApplyChanges);
        CHECK(sim::findProcess(one)->affinityMask == 5);
        CHECK(sim::findProcess(one)->priorityClass == 0x4000);
        CHECK(sim::findProcess(favourite)->affinityMask == 5);
        CHECK(sim::findProcess(two)->affinityMask == 0xF);
        CHECK(desk.Cell(one, 1) == "02");
        CHECK(desk.Cell(one, 2) == "Below");
        CHECK(sim::focusedWindow() == &desk.form_->ProcessList());
    }
    SUBCASE("not what Auto Set looks after, nor a priority that is not chosen") {
        desk.ClickButton(app::button::kAutoSet);
        Machine::Tick(4);
        desk.Select({one, favourite});
        desk.form_->CpuAffinity().Show("02");
        desk.form_->Priority().SelectItem(0);
        desk.ClickButton(app::button::kApplyChanges);
        CHECK(sim::findProcess(favourite)->affinityMask == 2);
        CHECK(sim::findProcess(one)->affinityMask == 5);
        CHECK(sim::findProcess(one)->priorityClass == 0x20);
    }
    SUBCASE("the rest, when one is denied and one has ended") {
        sim::findProcess(one)->deniedRights = kDenySet;
        desk.Select({one, two, favourite});
        sim::endProcess(favourite);
        Answer(platform::key::kEnter);
        desk.ClickButton(app::button::kApplyChanges);
        CHECK(sim::findProcess(two)->affinityMask == 5);
        REQUIRE(Told().size() == 1);
        CHECK(Told()[0].find("Unable to make changes to some files.\nAffiniy Errors: 2\nPriority Errors: 2") !=
              std::string::npos);
    }
    SUBCASE("nothing without a processor") {
        desk.Select({one});
        desk.form_->CpuAffinity().Show("");
        Answer(platform::key::kEnter);
        desk.ClickButton(app::button::kApplyChanges);
        REQUIRE(Told().size() == 1);
        CHECK(Told()[0].find("Please select at least one CPU core for Affinity.") != std::string::npos);
        CHECK(sim::findProcess(one)->priorityClass == 0x20);
    }
    SUBCASE("inverted") {
        platform::Window* invert = sim::findWindow("Invert Affinity");
        REQUIRE(invert != nullptr);
        sim::click(*invert, {5, 5});
        CHECK(desk.form_->CpuAffinity().Text() == "13");
    }
    CHECK(desk.form_->ToolBar1().IsEnabled(app::button::kApplyChanges));
    CHECK(sim::openHandles("timer") == 3);
}

TEST_CASE("Terminate ends what was meant when it was asked, and nothing else") {
    Desk desk;
    const ProcessId one = Machine::Run("C:\\Apps\\one.exe");
    const ProcessId two = Machine::Run("C:\\Apps\\two.exe");
    const ProcessId three = Machine::Run("C:\\Apps\\zoo.exe");
    desk.Begin();
    const ProcessId own = platform::currentProcessId();
    const auto there = [](ProcessId id) { return sim::findProcess(id) != nullptr; };

    SUBCASE("with Yes, sparing the program itself") {
        desk.Select({one, own, three});
        Answer('Y');
        desk.Button2(6);
        CHECK_FALSE(there(one));
        CHECK_FALSE(there(three));
        CHECK(there(two));
        CHECK(there(own));
        CHECK(desk.RowOf(one) == -1);  // seen at once
    }
    SUBCASE("not with No, by the key and by the menu") {
        desk.Select({one});
        desk.form_->ProcessList().focus();
        Answer('N');
        sim::pressKey(platform::key::kDelete);
        Answer(platform::key::kEscape);
        desk.Menu(app::command::kTerminate);
        CHECK(Told().size() == 2);
        CHECK(there(one));
    }
    SUBCASE("not a program that got the id while the question was open") {
        desk.Select({one, two});
        sim::whenModal([&](platform::Window&) {
            sim::endProcess(one);
            sim::advance(1000);
            sim::Process other;
            other.id = one;
            other.path = "C:\\Apps\\other.exe";
            sim::addProcess(other);
            sim::pressKey('Y');
        });
        desk.Button2(6);
        CHECK(there(one));
        CHECK_FALSE(there(two));
    }
    SUBCASE("not the one that is selected when the meant one ends while the menu is open") {
        desk.Select({three});
        sim::setPointer(desk.form_->ProcessList(), desk.RowPoint(three));
        sim::mouseDown(desk.form_->ProcessList(), desk.RowPoint(three), platform::MouseButton::Right);
        sim::endProcess(three);
        sim::whenMenu([](const std::vector<platform::MenuItem>&) { return app::command::kTerminate; });
        Answer('Y');
        sim::mouseUp(desk.form_->ProcessList(), {40, 30}, platform::MouseButton::Right);
        CHECK(there(one));
        CHECK(there(two));
        CHECK(Told().size() == 1);
        CHECK(desk.RowOf(three) == -1);
    }
    SUBCASE("nor when the list was to be rebuilt while the menu was open") {
        desk.Select({three});
        sim::setPointer(desk.form_->ProcessList(), desk.RowPoint(three));
        sim::mouseDown(desk.form_->ProcessList(), desk.RowPoint(three), platform::MouseButton::Right);
        sim::whenMenu([&](const std::vector<platform::MenuItem>&) {
            sim::endProcess(three);
            desk.form_->Refresh().FullRebuild();  // another profile, by its hotkey
            CHECK(desk.RowOf(three) >= 0);        // what the menu is about stays in sight
            return app::command::kTerminate;
        });
        Answer('Y');
        sim::mouseUp(desk.form_->ProcessList(), {40, 30}, platform::MouseButton::Right);
        CHECK(there(one));
        CHECK(there(two));
        CHECK(desk.RowOf(three) == -1);
    }
    SUBCASE("up to the first that cannot be ended") {
        sim::findProcess(two)->deniedRights = kDenyTerminate;
        desk.Select({one, two, three});
        Answer('Y');
        Answer(platform::key::kEnter);
        desk.Button2(6);
        REQUIRE(Told().size() == 2);
        CHECK(Told()[1].find("Aborting, Terminate process failed for: Two.exe") != std::string::npos);
        CHECK_FALSE(there(one));
        CHECK(there(three));
    }
    CHECK(sim::openHandles("process") == 0);
}

TEST_CASE("The filter hides, marks and shows file names again") {
    Desk desk;
    const ProcessId one = Machine::Run("C:\\Apps\\one.exe");
    const ProcessId again = Machine::Run("D:\\Other\\ONE.EXE");
    const ProcessId two = Machine::Run("C:\\Apps\\two.exe");
    desk.Begin();
    app::Form1& form = *desk.form_;
    CHECK_FALSE(form.ToolBar1().IsEnabled(app::button::kFileFilter));

    desk.Select({one, again});
    desk.Menu(app::command::kAddToFilter);  // one name, whatever the folder: nothing to tell
    CHECK(Told().empty());
    CHECK(sim::file("C:\\Kestrum\\FileFilter") == "One.exe\r\n");
    REQUIRE(form.ToolBar1().IsEnabled(app::button::kFileFilter));
    CHECK(desk.RowOf(one) >= 0);
    CHECK(desk.Cell(one, 6) == desk.Cell(again, 6));  // both wear the mark of the filtered
    CHECK(desk.Cell(one, 6) != desk.Cell(two, 6));

    desk.ClickButton(app::button::kFileFilter);
    CHECK(desk.RowOf(one) == -1);
    CHECK(desk.RowOf(again) == -1);
    CHECK(desk.RowOf(two) >= 0);
    desk.ClickButton(app::button::kFileFilter);
    CHECK(desk.RowOf(one) >= 0);

    desk.Select({one});
    Answer(platform::key::kEnter);
    desk.Button2(1);
    REQUIRE(Told().size() == 1);
    CHECK(Told()[0].find("already in your filter list") != std::string::npos);

    desk.Exit();
    desk.Begin();  // filtering is on after a start
    CHECK(desk.RowOf(one) == -1);
    sim::whenModal([](platform::Window& dialog) {  // the filter dialog
        platform::Window* list = sim::findWindow("UcFilter");
        REQUIRE(list != nullptr);
        sim::click(*list, {40, 30});
        sim::pressKey(platform::key::kDelete);
        sim::closeBox(dialog);
    });
    desk.Menu(app::command::kFilterDialog);
    CHECK_FALSE(desk.form_->ToolBar1().IsEnabled(app::button::kFileFilter));
    CHECK_FALSE(sim::file("C:\\Kestrum\\FileFilter"));
    CHECK(desk.RowOf(one) >= 0);
}

TEST_CASE("Selected rows are dragged to the favourites, whatever the list does meanwhile") {
    Desk desk;
    const ProcessId one = Machine::Run("C:\\Apps\\one.exe");
    const ProcessId two = Machine::Run("C:\\Apps\\two.exe");
    Machine::Run("C:\\Apps\\zoo.exe");
    sim::putFile("C:\\Apps\\aav.exe", "");
    Machine::PutProfile("Aav.exe\t1\tHigh\tC:\\Apps\\aav.exe\t\r\n");
    sim::putSetting(kSection, "AutoSet", "1");
    desk.Begin();
    controls::UcList1& list = desk.form_->ProcessList();
    controls::UcList1& favourites = desk.form_->FavoritesListControl();
    desk.Select({one, two});
    const platform::Point target{favourites.bounds().left - list.bounds().left + 50, 60};
    sim::mouseDown(list, desk.RowPoint(two));
    Machine::Run("C:\\Apps\\a-new-one.exe");
    Machine::Tick(3);
    Machine::Run("C:\\Apps\\aav.exe");  // a favourite, set at once
    Machine::Tick(2);
    sim::setPointer(list, {50, -30});
    CHECK(sim::pointerShape() == platform::Pointer::NoDrop);
    sim::setPointer(list, target);
    CHECK(sim::pointerShape() == platform::Pointer::Drop);
    CHECK(list.SelectedRows().size() == 2);
    sim::mouseUp(list, target);
    REQUIRE(favourites.ListCount() == 3);
    CHECK(favourites.CellText(1, 0) == "One.exe");
    CHECK(favourites.CellText(2, 0) == "Two.exe");
    sim::setPointer(list, {50, 40});
    CHECK(sim::pointerShape() == platform::Pointer::Arrow);
    Machine::Tick(2);
    CHECK(list.ListCount() == 6);  // what came meanwhile is there now

    // Dropped elsewhere nothing is added.
    sim::mouseDown(list, desk.RowPoint(one));
    sim::setPointer(list, {50, -30});
    sim::mouseUp(list, {50, -30});
    CHECK(favourites.ListCount() == 3);
}

TEST_CASE("Extensions and row tips follow their options, which are kept") {
    Desk desk;
    const ProcessId one = Machine::Run("C:\\Apps\\one.exe");
    desk.Begin();
    app::Form1& form = *desk.form_;
    CHECK(form.ToolBar2().IsChecked(app::button2::kFileExtensions));
    desk.Button2(app::button2::kFileExtensions);
    CHECK(desk.Cell(one, 0) == "One");
    CHECK(sim::setting(kSection, "ShowExt") == "0");

    platform::WindowFacts window;
    window.visible = true;
    window.style = 0x00CF0000;
    window.caption = "A title\r\nin two lines";
    window.className = "Notes";
    window.process = one;
    sim::addOtherWindow(window);
    sim::setPointer(form.ProcessList(), desk.RowPoint(one));
    REQUIRE(sim::tips().size() == 1);
    CHECK(sim::tips()[0].title == "A title");
    CHECK(sim::tips()[0].text == "C:\\Apps\\one.exe\r\nUpTime: 00:00:00:00");
    sim::setPointer(form.ProcessList(), {300, 300});
    desk.Menu(app::command::kFileTips);
    CHECK(sim::setting(kSection, "ShowFileTips") == "0");
    sim::setPointer(form.ProcessList(), desk.RowPoint(one));
    CHECK(sim::tips().empty());

    desk.Exit();
    desk.Begin();
    CHECK(desk.Cell(one, 0) == "One");
    CHECK_FALSE(desk.form_->ToolBar2().IsChecked(app::button2::kFileTips));
}

TEST_CASE("By keyboard alone: the menu, the chooser, the buttons") {
    Desk desk;
    const ProcessId one = Machine::Run("C:\\Apps\\one.exe");
    desk.Begin();
    desk.Select({one});
    desk.form_->ProcessList().focus();
    bool asked = false;
    sim::whenMenu([&](const std::vector<platform::MenuItem>& items) {
        asked = true;
        CHECK(items.size() == 11);
        return app::command::kAddToFavorites;
    });
    sim::pressKey(platform::key::kApps);
    CHECK(asked);
    CHECK(desk.form_->FavoritesListControl().ListCount() == 1);

    desk.form_->Priority().SelectItem(0);
    desk.form_->Priority().focus();
    sim::pressKey(platform::key::kDown);
    CHECK(desk.form_->Priority().GetIndex() == 1);
    platform::Window* refresh = sim::findWindow("File List Refresh");
    REQUIRE(refresh != nullptr);
    refresh->focus();
    sim::clearLog();
    sim::pressKey(platform::key::kSpace);
    CHECK(sim::focusedWindow() == &desk.form_->ProcessList());
}
