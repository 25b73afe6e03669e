// Adding and removing favourites, and the messages of the main window.
#include "AppFixture.h"

using namespace apptest;

namespace {

struct Desk : Machine {
    Desk() {
        for (const char* name : {"a.exe", "b.exe", "TOOL.EXE", "saver.scr", "notes.txt"}) {
            sim::putFile(std::string("C:\\Apps\\") + name, "");
        }
    }
    void StartWithTwo() {
        PutProfile("A.exe\t0\tDefault\tC:\\Apps\\a.exe\t\r\nB.exe\t0\tDefault\tC:\\Apps\\b.exe\t\r\n");
        Start();
        SelectFavorites({0});
    }
};

}  // namespace

TEST_CASE_FIXTURE(Desk, "Favourites are added by the chooser and by dropping, and removed after a question") {
    Start().CpuAffinity().Show("02");
    sim::whenChoosingFile("C:\\Apps\\TOOL.EXE");
    ClickButton(app::button::kBrowseForFavorite);
    CHECK(sim::file(kProfile1) == std::string(kHeader) + "Tool.exe\t02\tDefault\tC:\\Apps\\TOOL.EXE\t\r\n");
    CHECK(form->Status().Favorites() == "  |    Favorites: 1");

    // Each kind of refusal is told once: wrong extensions, then what is there already.
    Answer(key::kEnter);
    Answer(key::kEnter);
    sim::dropFiles(Favorites(), {"C:\\Apps\\saver.scr", "C:\\Apps\\notes.txt", "C:\\Apps\\more.txt",
                                 "c:\\apps\\tool.exe", "C:\\Apps\\TOOL.EXE", "C:\\Apps\\Saver.scr"});
    REQUIRE(told.size() == 2);
    CHECK(told[0].find("extension") != std::string::npos);
    CHECK(told[1].find("tool.exe at the selected path") != std::string::npos);
    CHECK(told[1].find("Saver.scr at the selected path") != std::string::npos);
    CHECK(told[1].find("TOOL.EXE") == std::string::npos);
    REQUIRE(Favorites().ListCount() == 2);
    CHECK(Favorites().CellText(0, 0) == "Saver.scr");

    SelectFavorites({1});
    Answer(key::kEnter);  // which is a No here
    ClickButton(app::button::kRemoveFavorites);
    CHECK(told.back().starts_with("Kestrum - Info\n"));
    CHECK(Favorites().ListCount() == 2);
    Answer('Y');
    ClickButton(app::button::kRemoveFavorites);
    CHECK(sim::file(kProfile1) == std::string(kHeader) + "Saver.scr\t02\tDefault\tC:\\Apps\\saver.scr\t\r\n");

    SelectFavorites({0});
    Answer('Y');
    Favorites().focus();
    sim::pressKey(key::kDelete);
    CHECK(Favorites().ListCount() == 0);
    CHECK_FALSE(sim::file(kProfile1));
    Tick(2);  // the cycle goes on
    CHECK(Processes().ListCount() == 1);
}

TEST_CASE_FIXTURE(Desk, "The favourites that were asked about are removed, whatever happens meanwhile") {
    StartWithTwo();
    SelectFavorites({0});
    SUBCASE("others are selected") {
        sim::whenModal([&](platform::Window&) {
            SelectFavorites({1});
            sim::pressKey('Y');
        });
        ClickButton(app::button::kRemoveFavorites);
        REQUIRE(Favorites().ListCount() == 1);
        CHECK(Favorites().CellText(0, 0) == "B.exe");
    }
    SUBCASE("the session ends") {
        sim::whenModal([](platform::Window&) {
            sim::pressKey('Y');
            sim::endSession();
        });
        ClickButton(app::button::kRemoveFavorites);
        CHECK(sim::openHandles("timer") == 0);
    }
}

TEST_CASE_FIXTURE(Desk, "What cannot be saved at once is saved in the end") {
    StartWithTwo();
    sim::setReadOnlyFolder("C:\\Kestrum", true);
    sim::dropFiles(Favorites(), {"C:\\Apps\\TOOL.EXE"});
    SelectFavorites({0});
    Answer('Y');
    ClickButton(app::button::kRemoveFavorites);
    REQUIRE(Favorites().ListCount() == 2);
    CHECK(Favorites().CellText(0, 0) == "B.exe");
    CHECK(Favorites().CellText(1, 0) == "Tool.exe");

    sim::setReadOnlyFolder("C:\\Kestrum", false);
    Exit();
    CHECK(sim::file(kProfile1)->find("A.exe") == std::string::npos);
    CHECK(sim::file(kProfile1)->find("Tool.exe") != std::string::npos);
}

TEST_CASE_FIXTURE(Desk, "A question that is closed or goes was not answered with the Yes of the one before") {
    StartWithTwo();
    Answer('Y');
    ClickButton(app::button::kRemoveFavorites);
    SelectFavorites({0});
    for (const bool byItsFrame : {true, false}) {
        sim::whenModal([&](platform::Window& dialog) {
            sim::closeBox(*form);  // refused while the question is open
            CHECK(form->visible());
            if (byItsFrame) sim::closeBox(dialog);
            if (!byItsFrame) dialog.destroy();
        });
        ClickButton(app::button::kRemoveFavorites);
        CHECK(Favorites().ListCount() == 1);
    }
}

TEST_CASE_FIXTURE(Machine, "Help opens its file, or a message that holds the refresh says why not") {
    Start();
    Tick(5);
    sim::whenModal([&](platform::Window&) {
        Run("C:\\Apps\\late.exe");
        sim::run(2000);
        CHECK(Processes().ListCount() == 1);
        sim::pressKey(key::kEscape);
    });
    ClickButton(app::button::kViewHelp);
    Tick();
    CHECK(Processes().ListCount() == 2);
    sim::putFile("C:\\Kestrum\\Help.htm", "<html>");
    ClickButton(app::button::kViewHelp);
    CHECK(sim::openedDocuments() == std::vector<std::string>{"C:\\Kestrum\\Help.htm"});
    sim::setShellRunning(false);
    Answer(key::kEnter);
    ClickButton(app::button::kViewHelp);
    CHECK(told == std::vector<std::string>{"Kestrum - Info\nHelp file (Help.htm) could not be opened.\n"
                                           "It needs a program that opens .htm files."});
}
