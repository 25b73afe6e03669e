#include "AppFixture.h"
#include "app/MainToolBars.h"

using namespace apptest;

namespace {

// Answers the next message box with a key and keeps what it said.
void AnswerBox(std::uint16_t key, std::string* title = nullptr) {
    sim::whenModal([key, title](platform::Window& dialog) {
        if (title) *title = dialog.text();
        sim::pressKey(key);
    });
}

}  // namespace

TEST_CASE("Favourites are added by the chooser and by dropping, and removed after a question") {
    Machine machine;
    sim::putFile("C:\\Apps\\TOOL.EXE", "");
    sim::putFile("C:\\Apps\\saver.scr", "");
    sim::putFile("C:\\Apps\\notes.txt", "");
    app::Form1& form = machine.Start();
    controls::UcList1& list = form.FavoritesListControl();
    form.CpuAffinity().Show("02");

    sim::whenChoosingFile("C:\\Apps\\TOOL.EXE");
    machine.ClickButton(app::button::kBrowseForFavorite);
    CHECK(sim::file(kProfile1) == std::string(kHeader) + "Tool.exe\t02\tDefault\tC:\\Apps\\TOOL.EXE\t\r\n");
    CHECK(form.Status().Favorites() == "  |    Favorites: 1");

    AnswerBox(platform::key::kEnter);  // notes.txt has a wrong extension
    AnswerBox(platform::key::kEnter);  // tool.exe is there already
    sim::dropFiles(list, {"C:\\Apps\\saver.scr", "C:\\Apps\\notes.txt", "c:\\apps\\tool.exe"});
    REQUIRE(list.ListCount() == 2);
    CHECK(list.CellText(0, 0) == "Saver.scr");

    for (int row = 0; row < 2; ++row) list.SelectItem(row, row == 1);
    std::string title;
    AnswerBox('N', &title);
    machine.ClickButton(app::button::kRemoveFavorites);
    CHECK(title == "Kestrum - Info");
    CHECK(list.ListCount() == 2);
    AnswerBox('Y');
    machine.ClickButton(app::button::kRemoveFavorites);
    CHECK(list.ListCount() == 1);
    CHECK(sim::file(kProfile1) == std::string(kHeader) + "Saver.scr\t02\tDefault\tC:\\Apps\\saver.scr\t\r\n");

    list.SelectItem(0, true);
    AnswerBox('Y');
    list.focus();
    sim::pressKey(platform::key::kDelete);
    CHECK(list.ListCount() == 0);
    CHECK_FALSE(sim::file(kProfile1));
    Machine::Tick(2);  // the cycle goes on
    CHECK(form.ProcessList().ListCount() == 1);
}

TEST_CASE("Removing works on the list even when the profile cannot be written, and is saved in the end") {
    Machine machine;
    for (const char* name : {"a.exe", "b.exe", "c.exe"}) sim::putFile(std::string("C:\\Apps\\") + name, "");
    Machine::PutProfile("A.exe\t0\tDefault\tC:\\Apps\\a.exe\t\r\nB.exe\t0\tDefault\tC:\\Apps\\b.exe\t\r\n");
    app::Form1& form = machine.Start();
    controls::UcList1& list = form.FavoritesListControl();
    sim::setReadOnlyFolder("C:\\Kestrum", true);
    sim::dropFiles(list, {"C:\\Apps\\c.exe"});
    list.SelectItem(0, true);
    AnswerBox('Y');
    machine.ClickButton(app::button::kRemoveFavorites);
    REQUIRE(list.ListCount() == 2);
    CHECK(list.CellText(0, 0) == "B.exe");
    CHECK(list.CellText(1, 0) == "C.exe");

    sim::setReadOnlyFolder("C:\\Kestrum", false);
    machine.Exit();
    CHECK(sim::file(kProfile1)->find("A.exe") == std::string::npos);
    CHECK(sim::file(kProfile1)->find("C.exe") != std::string::npos);
}

TEST_CASE("A question that goes with its window was not answered with the Yes of the one before") {
    Machine machine;
    sim::putFile("C:\\Apps\\a.exe", "");
    sim::putFile("C:\\Apps\\b.exe", "");
    Machine::PutProfile("A.exe\t0\tDefault\tC:\\Apps\\a.exe\t\r\nB.exe\t0\tDefault\tC:\\Apps\\b.exe\t\r\n");
    app::Form1& form = machine.Start();
    form.FavoritesListControl().SelectItem(0, true);
    AnswerBox('Y');
    machine.ClickButton(app::button::kRemoveFavorites);
    form.FavoritesListControl().SelectItem(0, true);
    sim::whenModal([&](platform::Window& dialog) {
        sim::closeBox(form);  // refused while the question is open
        CHECK(form.exists());
        dialog.destroy();
    });
    machine.ClickButton(app::button::kRemoveFavorites);
    CHECK(form.FavoritesListControl().ListCount() == 1);
}

TEST_CASE("A message box holds the refresh and gives it back") {
    Machine machine;
    app::Form1& form = machine.Start();
    Machine::Tick(5);
    const int shown = form.ProcessList().ListCount();
    sim::whenModal([&](platform::Window&) {
        Machine::Run("C:\\Apps\\late.exe");
        sim::run(2000);
        CHECK(form.ProcessList().ListCount() == shown);
        sim::pressKey(platform::key::kEscape);
    });
    machine.ClickButton(app::button::kRemoveFavorites);
    Machine::Tick();
    CHECK(form.ProcessList().ListCount() == shown + 1);
}

TEST_CASE("Help opens the file beside the program or says that it is missing") {
    Machine machine;
    machine.Start();
    bool told = false;
    sim::whenModal([&](platform::Window&) {
        told = true;
        sim::pressKey(platform::key::kEnter);
    });
    machine.ClickButton(app::button::kViewHelp);
    CHECK(told);
    sim::putFile("C:\\Kestrum\\Help.htm", "<html>");
    machine.ClickButton(app::button::kViewHelp);
    CHECK(sim::openedDocuments() == std::vector<std::string>{"C:\\Kestrum\\Help.htm"});
}
