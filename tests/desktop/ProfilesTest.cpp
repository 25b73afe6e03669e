// Favourites at work: launched, given another parameter, copied and moved, handed over to Kestrum Jr.
#include <doctest/doctest.h>

#include "desktop/Menu.h"
#include "desktop/Session.h"

using namespace desktop;

namespace {

constexpr int kKestrumJr = 9;            // button of ToolBar1
constexpr int kCopyTo = 1, kMoveTo = 2;  // items of the favourites menu
constexpr const char* kJrCaption = "  Kestrum Jr.";

// Whatever becomes of the test, Kestrum Jr. does not outlive it.
struct JrEnds {
    ~JrEnds() {
        if (const HWND jr = FindWindowA(nullptr, kJrCaption)) Process(jr).Kill();
    }
};

}  // namespace

TEST_CASE("favourites: a parameter is edited in place; the program launched with it gets it, and is set") {
    const Installation installation;
    const auto profile = [&](const std::string& param) {
        return kProfileHeader + FavoriteLine("1", "Below", installation.Target(), param);
    };
    WriteWholeFile(installation.ProfilePath(), profile("1"));
    WriteSetting("LaunchFav", "1");
    WriteSetting("AutoSet", "1");
    Session session(installation);
    REQUIRE(session.Started());
    const List& list = session.Favorites();
    REQUIRE(list.ClickRow(0));

    const HWND editor = FindWindowExA(list.Window(), nullptr, "Edit", nullptr);
    REQUIRE(editor != nullptr);
    const auto edit = [&](const std::string& text, WORD key) {
        REQUIRE(Repeat([&](int aside) { list.ClickRowWith(MouseKey::Middle, 0, aside); },
                       [&] { return IsWindowVisible(editor) != FALSE; }));
        TypeIn(editor, text);
        PressKeyIn(editor, key);
        CHECK(WaitFor([&] { return !IsWindowVisible(editor); }));
    };
    edit("50 not this", VK_ESCAPE);
    CHECK(ReadWholeFile(installation.ProfilePath()) == profile("1"));
    edit("45  two \"blanks\"", VK_RETURN);
    CHECK(FileBecomes(installation.ProfilePath(), profile("45  two \"blanks\"")));

    HWND window = nullptr;
    const auto told = [&] {
        window = FindWindowA("KestrumTarget", nullptr);
        return TextOf(FindWindowExA(window, nullptr, "Static", nullptr));
    };
    REQUIRE(Repeat(
        [&](int aside) {
            list.ClickRowWith(MouseKey::Left, 0, aside);
            list.ClickRowWith(MouseKey::Left, 0, aside);
        },
        [&] { return !told().empty(); }));
    CHECK(told() == "45  two \"blanks\"");
    const Process target(window);
    CHECK(BecomesSet(target, 2, BELOW_NORMAL_PRIORITY_CLASS));
    CHECK(session.End());
}

TEST_CASE("favourites: copied and moved to other profiles, one of which Kestrum Jr. takes over") {
    const Installation installation;
    installation.AddJr();
    const std::string kept = FavoriteLine("1", "Below", installation.Target(), "-t");
    const std::string moved = FavoriteLine("0", "High", installation.AddProgram("Other.exe"));
    WriteWholeFile(installation.ProfilePath(), kProfileHeader + moved + kept);
    WriteWholeFile(installation.ProfilePath(3), kProfileHeader + kept);
    const JrEnds jrEnds;
    {
        Session session(installation);
        REQUIRE(session.Started());
        const auto menu = [&](int aside) { session.Favorites().ClickRowWith(MouseKey::Right, 0, aside); };
        CHECK(ChooseInMenu(menu, kCopyTo, 1));
        CHECK(FileBecomes(installation.ProfilePath(2), kProfileHeader + moved));
        CHECK(ReadWholeFile(installation.ProfilePath()) == kProfileHeader + moved + kept);
        CHECK(ChooseInMenu(menu, kMoveTo, 2));
        CHECK(FileBecomes(installation.ProfilePath(), kProfileHeader + kept));
        CHECK(FileBecomes(installation.ProfilePath(3), kProfileHeader + kept + moved));

        REQUIRE(ChooseInMenu([&](int) { session.ClickToolBar1(kKestrumJr); }, 2));
        const HWND question = WaitForDialog("Launch Kestrum Jr?");
        REQUIRE(question != nullptr);
        CHECK(Repeat([&](int) { PressKeyIn(question, 'Y'); }, [&] { return !IsWindow(question); }));
        REQUIRE(session.WaitForEnd());
    }
    HWND jr = nullptr;
    REQUIRE(WaitFor([&] { return (jr = FindWindowA(nullptr, kJrCaption)) != nullptr; }));
    const Process favorite(installation.Folder() + "Other.exe");
    const Process stranger(installation.Target());
    CHECK(BecomesSet(favorite, 1, HIGH_PRIORITY_CLASS));
    CHECK(stranger.PriorityClass() == NORMAL_PRIORITY_CLASS);

    Session session(installation);
    REQUIRE(session.Started());
    CHECK(WaitFor([&] { return !IsWindow(jr); }));
    CHECK(session.End());
}
