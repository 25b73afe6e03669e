// What the user does with selected processes, on the whole main window.
#include "AppFixture.h"

using namespace apptest;

namespace {

constexpr std::uint32_t kDenySet = 0x200, kDenyTerminate = 0x1;
constexpr const char* kTerminate = "Terminate Selected (Kill Process)";

struct Desk : Machine {
    Desk() {
        one = Run("C:\\Apps\\one.exe");
        two = Run("C:\\Apps\\two.exe");
    }
    void Begin() {
        Start();
        Tick();
    }
    void Menu(const std::string& caption) {
        ChooseNext(caption);
        sim::click(Processes(), {300, 5}, platform::MouseButton::Right);
    }
    // The middle of a row of the process list, client pixels.
    platform::Point RowPoint(ProcessId id) {
        return {40, Processes().HeaderHeight() + 1 + controls::kUcListRowHeight * RowOf(id) + 8};
    }
    void PressRow(ProcessId id, platform::MouseButton button = platform::MouseButton::Left) {
        sim::setPointer(Processes(), RowPoint(id));
        sim::mouseDown(Processes(), RowPoint(id), button);
    }
    static bool Runs(ProcessId id) { return sim::findProcess(id) != nullptr; }
    // The last message said this.
    bool Told(const std::string& text) const {
        return !told.empty() && told.back().find(text) != std::string::npos;
    }

    ProcessId one = 0, two = 0;
};

}  // namespace

TEST_CASE_FIXTURE(Desk, "Apply Changes sets what was chosen, and tells what could not be set") {
    PutProfile("Fav.exe\t1\tHigh\tC:\\Apps\\fav.exe\t\r\n");
    const ProcessId favourite = Run("C:\\Apps\\fav.exe");
    Begin();
    SUBCASE("all selected that let it, but not the others") {
        const ProcessId zoo = Run("C:\\Apps\\zoo.exe");
        const ProcessId gone = Run("C:\\Apps\\gone.exe");
        Tick();
        sim::findProcess(two)->deniedRights = kDenySet;
        Select({one, gone, two, favourite});
        sim::endProcess(gone);
        form->CpuAffinity().Show("02");
        form->Priority().SelectItem(5);  // "Below"
        Answer(key::kEnter);
        ClickButton(app::button::kApplyChanges);
        CHECK(Told("Unable to make changes to some files.\nAffiniy Errors: 2\nPriority Errors: 2"));
        for (const ProcessId id : {one, favourite}) {
            CHECK(MaskOf(id) == 5);
            CHECK(ClassOf(id) == 0x4000);
        }
        CHECK(MaskOf(zoo) == 0xF);
        CHECK(Cell(one, 1) == "02");
        CHECK(Cell(one, 2) == "Below");
        CHECK(sim::focusedWindow() == &Processes());
    }
    SUBCASE("not what Auto Set looks after, nor a priority that is not chosen") {
        ClickButton(app::button::kAutoSet);
        Tick(4);
        Select({one, favourite});
        form->CpuAffinity().Show("02");
        form->Priority().SelectItem(0);
        ClickButton(app::button::kApplyChanges);
        CHECK(MaskOf(favourite) == 2);
        CHECK(MaskOf(one) == 5);
        CHECK(ClassOf(one) == kNormal);
    }
    SUBCASE("nothing without a processor") {
        Select({one});
        form->CpuAffinity().Show("012");
        sim::click(*sim::findWindow("Invert Affinity"), {5, 5});
        CHECK(form->CpuAffinity().Text() == "3");
        form->CpuAffinity().Show("");
        Answer(key::kEnter);
        ClickButton(app::button::kApplyChanges);
        CHECK(Told("Please select at least one CPU core for Affinity."));
        CHECK(ClassOf(one) == kNormal);
    }
    CHECK(form->ToolBar1().IsEnabled(app::button::kApplyChanges));
    CHECK(sim::openHandles("timer") == 3);
}

TEST_CASE_FIXTURE(Desk, "Terminate ends what was meant when it was asked, and nothing else") {
    const ProcessId zoo = Run("C:\\Apps\\zoo.exe");
    const ProcessId own = platform::currentProcessId();
    Begin();
    bool oneRuns = true, zooRuns = false;
    SUBCASE("sparing the program itself, and up to the first that cannot be ended") {
        sim::findProcess(two)->deniedRights = kDenyTerminate;
        Select({one, own, two, zoo});
        Answer('Y');
        Answer(key::kEnter);
        ClickButton2(6);
        CHECK(Told("Aborting, Terminate process failed for: Two.exe"));
        CHECK(RowOf(one) == -1);  // seen at once
        oneRuns = false;
        zooRuns = true;
    }
    SUBCASE("not with No, by the key and by the menu, which Enter says") {
        Select({zoo});
        Processes().focus();
        Answer(key::kEnter);
        sim::pressKey(key::kDelete);
        Answer(key::kEscape);
        Menu(kTerminate);
        CHECK(told.size() == 2);
        zooRuns = true;
    }
    SUBCASE("not a program that got the id while the question was open") {
        Select({one, zoo});
        sim::whenModal([&](platform::Window&) {
            sim::endProcess(one);
            sim::advance(1000);
            sim::Process other;
            other.id = one;
            other.path = "C:\\Apps\\other.exe";
            sim::addProcess(other);
            sim::pressKey('Y');
        });
        ClickButton2(6);
    }
    SUBCASE("not the one that is selected when the meant one ends while the menu is open") {
        Select({zoo});
        PressRow(zoo, platform::MouseButton::Right);
        SUBCASE("before it came up") {
            sim::endProcess(zoo);
            ChooseNext(kTerminate);
        }
        SUBCASE("and the list was to be rebuilt") {
            sim::whenMenu([&](const MenuItems&) {
                sim::endProcess(zoo);
                form->Refresh().FullRebuild();  // another profile, by its hotkey
                CHECK(RowOf(zoo) >= 0);         // what the menu is about stays in sight
                return app::command::kTerminate;
            });
        }
        Answer('Y');
        sim::mouseUp(Processes(), {40, 30}, platform::MouseButton::Right);
        CHECK(told.size() == 1);
        CHECK(RowOf(zoo) == -1);
    }
    CHECK(Runs(one) == oneRuns);
    CHECK(Runs(two));
    CHECK(Runs(zoo) == zooRuns);
    CHECK(Runs(own));
}

TEST_CASE_FIXTURE(Desk, "The filter hides, marks and shows file names again") {
    const ProcessId again = Run("D:\\Other\\ONE.EXE");
    PutProfile("Two.exe\t0\tDefault\tC:\\Apps\\two.exe\t\r\n");
    Begin();
    SelectFavorites({0});
    CHECK_FALSE(form->ToolBar1().IsEnabled(app::button::kFileFilter));

    Select({one, again});
    Menu("Add Selected To File Filter");  // one name, whatever the folder: nothing to tell
    CHECK(told.empty());
    CHECK(sim::file("C:\\Kestrum\\FileFilter") == "One.exe\r\n");
    REQUIRE(form->ToolBar1().IsEnabled(app::button::kFileFilter));
    CHECK(RowOf(one) >= 0);
    CHECK(Cell(one, 6) == Cell(again, 6));  // both wear the mark of the filtered
    CHECK(Cell(one, 6) != Cell(two, 6));

    ClickButton(app::button::kFileFilter);
    CHECK(Favorites().Selected(0));
    CHECK(RowOf(one) == -1);
    CHECK(RowOf(again) == -1);
    CHECK(RowOf(two) >= 0);
    ClickButton(app::button::kFileFilter);
    CHECK(RowOf(one) >= 0);
    Select({one});
    Answer(key::kEnter);
    ClickButton2(1);
    CHECK(Told("already in your filter list"));

    Exit();
    sim::failIcons(true);  // nor is there a mark
    Begin();               // filtering is on after a start
    CHECK(RowOf(one) == -1);
    ClickButton(app::button::kFileFilter);
    for (const ProcessId each : {one, again, two}) CHECK(RowOf(each) >= 0);
    ClickButton(app::button::kFileFilter);
    sim::failIcons(false);
    sim::whenModal([](platform::Window& dialog) {
        sim::click(*sim::findWindow("UcFilter"), {40, 30});
        sim::pressKey(key::kDelete);
        sim::closeBox(dialog);
    });
    Menu("Show File Filter Dialog");
    CHECK_FALSE(form->ToolBar1().IsEnabled(app::button::kFileFilter));
    CHECK_FALSE(sim::file("C:\\Kestrum\\FileFilter"));
    CHECK(RowOf(one) >= 0);
}

TEST_CASE_FIXTURE(Desk, "Selected rows are dragged to the favourites, whatever the list does meanwhile") {
    sim::putFile("C:\\Apps\\aav.exe", "");
    PutProfile("Aav.exe\t1\tHigh\tC:\\Apps\\aav.exe\t\r\n");
    Store("AutoSet", "1");
    const ProcessId again = Run("C:\\Apps\\one.exe");
    Begin();
    Select({one, again, two});
    const int right = Favorites().bounds().left - Processes().bounds().left;
    const platform::Point target{right + 50, 60}, elsewhere{50, -30};
    sim::mouseDown(Processes(), RowPoint(two));
    Run("C:\\Apps\\a-new-one.exe");
    Tick(3);
    Run("C:\\Apps\\aav.exe");  // a favourite, set at once
    Tick(2);
    sim::setPointer(Processes(), elsewhere);
    CHECK(sim::pointerShape() == platform::Pointer::NoDrop);
    sim::setPointer(Processes(), target);
    CHECK(sim::pointerShape() == platform::Pointer::Drop);
    sim::mouseUp(Processes(), target);
    REQUIRE(Favorites().ListCount() == 3);
    CHECK(Favorites().CellText(1, 0) == "One.exe");
    CHECK(Favorites().CellText(2, 0) == "Two.exe");
    sim::setPointer(Processes(), {50, 40});
    CHECK(sim::pointerShape() == platform::Pointer::Arrow);
    Tick(2);
    CHECK(Processes().ListCount() == 6);  // what came meanwhile is there now

    const ProcessId zoo = Run("C:\\Apps\\zoo.exe");
    Tick();
    PressRow(zoo);
    sim::setPointer(Processes(), elsewhere);
    sim::mouseUp(Processes(), elsewhere);
    CHECK(Favorites().ListCount() == 3);
}

TEST_CASE_FIXTURE(Desk, "The cycle outlives whatever holds the rows, and tries a favourite no oftener for it") {
    PutProfile("Fav.exe\t1\tHigh\tC:\\Apps\\fav.exe\t\r\n");
    sim::putFile("C:\\Apps\\fav.exe", "");
    Store("AutoSet", "1");
    Begin();
    Tick(3);
    ProcessId favourite = 0;
    const auto whileHeld = [&] {
        CHECK(app::Form1().Start() == app::Form1::StartResult::Duplicate);  // wakes this one
        sim::run(0);
        favourite = Run("C:\\Apps\\fav.exe");
        sim::findProcess(favourite)->deniedRights = kDenySet;
        Tick(20);
        CHECK(RowOf(favourite) < 0);
    };
    SUBCASE("a menu") {
        sim::whenMenu([&](const MenuItems&) {
            whileHeld();
            return 0;
        });
        sim::click(Processes(), RowPoint(one), platform::MouseButton::Right);
    }
    SUBCASE("a button that is down") {
        PressRow(one);
        whileHeld();
        sim::mouseUp(Processes(), RowPoint(one));
    }
    Tick();
    CHECK(RowOf(favourite) >= 0);
    CHECK(sim::balloons().size() == 1 + 3);  // that of the second copy, and one for each of the three ticks
    CHECK(sim::openHandles("timer") == 3);
}

TEST_CASE_FIXTURE(Desk, "Extensions and row tips follow their options, which are kept") {
    Begin();
    CHECK(form->ToolBar2().IsChecked(app::button2::kFileExtensions));
    ClickButton2(app::button2::kFileExtensions);
    CHECK(Cell(one, 0) == "One");
    CHECK(Stored("ShowExt") == "0");

    platform::WindowFacts window;
    window.visible = true;
    window.style = 0x00CF0000;
    window.caption = "A title\r\nin two lines";
    window.className = "Notes";
    window.process = one;
    sim::addOtherWindow(window);
    sim::setPointer(Processes(), RowPoint(one));
    REQUIRE(sim::tips().size() == 1);
    CHECK(sim::tips()[0].title == "A title");
    CHECK(sim::tips()[0].text == "C:\\Apps\\one.exe\r\nUpTime: 00:00:00:00");
    sim::findProcess(one)->workingSet *= 2;
    Tick();
    CHECK(sim::tips().size() == 1);
    Run("C:\\Apps\\before.exe");  // which comes above it
    Tick();
    CHECK(sim::tips().empty());
    sim::setPointer(Processes(), {300, 300});
    Menu("Show File Info In ToolTip");
    CHECK(Stored("ShowFileTips") == "0");
    sim::setPointer(Processes(), RowPoint(one));
    CHECK(sim::tips().empty());

    Exit();
    Start();
    CHECK(Cell(one, 0) == "One");  // from the first moment on
    CHECK_FALSE(form->ToolBar2().IsChecked(app::button2::kFileTips));
}

TEST_CASE_FIXTURE(Desk, "By keyboard alone: the menu, the chooser, the buttons") {
    Begin();
    Select({one});
    Processes().focus();
    ChooseNext("Add Selected To Favorites");
    sim::pressKey(key::kApps);
    CHECK(Favorites().ListCount() == 1);
    CHECK(form->Priority().GetIndex() == 3);  // "Above", as the first row has it
    form->Priority().SelectItem(0);
    form->Priority().focus();
    sim::pressKey(key::kDown);
    CHECK(form->Priority().GetIndex() == 1);
    sim::findWindow("File List Refresh")->focus();
    sim::pressKey(key::kSpace);
    CHECK(sim::focusedWindow() == &Processes());
    for (const char* topmost : {"setTopmost Kestrum 2 1", "setTopmost Kestrum 2 0"}) {
        ClickButton(app::button::kAlwaysOnTop);
        CHECK(Logged(topmost) == 1);
    }
}
