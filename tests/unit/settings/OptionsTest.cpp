// The options dialog, as its user meets it.
#include "OptionsFixture.h"

using settings::Key;
using settings::OptionTable;

namespace {

// Options that write one key at once, and nothing else that needs a file or an answer.
bool Plain(const OptionInfo& info) {
    const bool jr = info.option == Option::CboFavJr || info.option == Option::CboEnforceJr;
    const bool kind = info.kind == OptionKind::Check || info.kind == OptionKind::List;
    return info.key != Key::Count && kind && !jr && info.option != Option::ChkShadow;
}

std::string Effect(const OptionInfo& info, bool on) {
    switch (info.option) {
        case Option::ChkHotKey:
            return on ? "hotkeys on" : "hotkeys off";
        case Option::ChkEdgeDetect:
            return on ? "edge on" : "edge off";
        case Option::ChkSeeThru:
            return on ? "transparent" : "translucent 85";
        case Option::ChkCPUGraphTop:
        case Option::ChkCpuTips:
            return "graph options";
        case Option::CboGphCap:
        case Option::CboGphVal:
            return "colours";
        case Option::CboTrayType:
        case Option::CboTrayColr:
        case Option::CboTrayBrdr:
            return "tray";
        default:
            return std::string("changed ") + InfoOf(info.key).name;
    }
}

}  // namespace

TEST_CASE("every check box writes its key by mouse and by keyboard, and takes effect at once") {
    OptionsBench bench;
    bench.Show([&] {
        for (const OptionInfo& info : OptionTable()) {
            if (!Plain(info) || info.kind != OptionKind::Check) continue;
            CAPTURE(info.name);
            const bool truth = InfoOf(info.key).type == settings::KeyType::Bool;
            const bool before = truth ? bench.store.Bool(info.key) : bench.store.Number(info.key) == 1;
            CHECK(bench.Check(info.option).Value() == before);
            const std::string stored[] = {truth ? "False" : "0", truth ? "True" : "1"};
            bench.Click(info.option);
            CHECK(OptionsBench::Stored(info.key) == stored[before ? 0 : 1]);
            CHECK(bench.TakeCalls() == Calls{Effect(info, !before)});
            CHECK(bench.dialog.ControlOf(info.option).focused());
            sim::pressKey(key::kSpace);
            CHECK(OptionsBench::Stored(info.key) == stored[before ? 1 : 0]);
            CHECK(bench.TakeCalls() == Calls{Effect(info, before)});
        }
    });
}

TEST_CASE("every list writes the index of the entry picked by mouse and by keyboard") {
    OptionsBench bench;
    bench.Show([&] {
        for (const OptionInfo& info : OptionTable()) {
            if (!Plain(info) || info.kind != OptionKind::List) continue;
            CAPTURE(info.name);
            const int last = ItemCount(info.items) - 1;
            bench.Click(info.option);
            sim::pressKey(key::kEnd);
            CHECK(bench.TakeCalls().empty());  // nothing is picked yet
            sim::pressKey(key::kEnter);
            CHECK(OptionsBench::Stored(info.key) == std::to_string(last));
            CHECK(bench.TakeCalls() == Calls{Effect(info, true)});
            sim::pressKey(key::kUp);
            CHECK(OptionsBench::Stored(info.key) == std::to_string(last - 1));
            CHECK(bench.TakeCalls() == Calls{Effect(info, true)});
            // Drawn down to the second row and let go.
            platform::Window& face = bench.dialog.ControlOf(info.option);
            sim::mouseDown(face, {6, 6});
            sim::pressKey(key::kHome);
            platform::Window& list = *sim::topLevelWindows().back();
            const int arrow = list.clientSize().height == 13 * (last + 1) ? 0 : 9;  // of a list that scrolls
            const platform::Point row = list.toScreen({9, arrow + 13 + 7}), corner = face.toScreen({0, 0});
            sim::mouseUp(face, {row.x - corner.x, row.y - corner.y});
            CHECK(OptionsBench::Stored(info.key) == "1");
            bench.TakeCalls();
        }
    });
}

TEST_CASE("lists offer what their keys mean") {
    OptionsBench bench;
    const auto shownWith = [&](Option option, const std::string& stored) {
        OptionsBench::Store(InfoOf(option).key, stored);
        std::string shown;
        bench.Show([&] {
            bench.Turn(InfoOf(option).page);
            shown = bench.Shown(option);
        });
        CHECK(OptionsBench::Stored(InfoOf(option).key) == stored);  // looking changes nothing
        return shown;
    };
    CHECK(shownWith(Option::CboEnforce, "0") == "10 seconds");
    CHECK(shownWith(Option::CboEnforce, "29") == "300 seconds");
    CHECK(shownWith(Option::CboEnforceJr, "0") == "Disabled");
    CHECK(shownWith(Option::CboEnforceJr, "30") == "300 seconds");
    CHECK(shownWith(Option::CboTrayType, "3") == "Number Sml");
    CHECK(shownWith(Option::CboGphVal, "4") == "Purple");
    CHECK(shownWith(Option::CboFav, "2") == "My Favs 3");
    CHECK(shownWith(Option::CboFavJr, "4") == "My Favs 5 (Empty)");
    // Damaged ones.
    CHECK(shownWith(Option::CboEnforce, "30") == "300 seconds");
    CHECK(shownWith(Option::CboEnforce, "-4") == "10 seconds");
    CHECK(shownWith(Option::CboEnforceJr, "99999") == "300 seconds");
    CHECK(shownWith(Option::CboFav, "7") == "My Favs 5 (Empty)");
    CHECK(shownWith(Option::CboTrayColr, "8") == "Black");  // as it is drawn
    CHECK(shownWith(Option::CboTrayType, "9") == "Disabled");
    CHECK(shownWith(Option::CboGphCap, "red") == "Black");
    OptionsBench::Store(Key::Hotkey, "7");
    OptionsBench::Store(Key::SeeThruCPU, "perhaps");
    bench.Show([&] {
        CHECK_FALSE(bench.Check(Option::ChkHotKey).Value());
        CHECK_FALSE(bench.Check(Option::ChkSeeThru).Value());
    });
}

TEST_CASE("profile lists can be filled anew while they are shown") {
    OptionsBench bench;
    bench.dialog.RefillProfiles();  // there is nothing to fill
    bench.Show([&] {
        bench.Turn(OptionPage::StartUp);
        CHECK(bench.Shown(Option::CboFav) == "My Favs 1");
        OptionsBench::Store(Key::FavName, "1");
        bench.host.profiles = {2};
        bench.dialog.RefillProfiles();
        CHECK(bench.Shown(Option::CboFav) == "My Favs 2");
        CHECK(bench.Shown(Option::CboFavJr) == "My Favs 1 (Empty)");
        CHECK(OptionsBench::Stored(Key::FavNameJr) == "(none)");
    });
}

TEST_CASE("the translucency counts while the graphs are not transparent, and is kept when the dialog closes") {
    OptionsBench bench;
    bench.Show([&] {
        bench.Turn(OptionPage::CpuGraphs);
        REQUIRE(sim::findWindow("Translucency: 85%") != nullptr);
        bench.Click(Option::ChkSeeThru);
        CHECK(sim::findWindow("Translucency: Off") != nullptr);
        CHECK_FALSE(bench.Slider().Enabled());
        CHECK_FALSE(sim::findWindow("Translucency: Off")->enabled());
        bench.Click(Option::ChkSeeThru);
        CHECK(sim::findWindow("Translucency: 85%") != nullptr);
        bench.TakeCalls();

        bench.Slider().focus();
        sim::pressKey(key::kRight);
        CHECK(sim::findWindow("Translucency: 86%") != nullptr);
        sim::pressKey(key::kEnd);
        sim::mouseDown(bench.Slider(), {0, 3});
        CHECK(sim::findWindow("Translucency: 0%") != nullptr);
        sim::setPointer(bench.Slider(), {bench.Slider().clientSize().width / 2, 3});
        sim::mouseUp(bench.Slider(), {bench.Slider().clientSize().width / 2, 3});
        CHECK(sim::findWindow("Translucency: 50%") != nullptr);
        CHECK(bench.TakeCalls() == Calls{"translucent 86", "translucent 100", "translucent 0", "translucent 50"});
        CHECK(OptionsBench::Stored(Key::TransLevel) == "(none)");
    });
    CHECK(OptionsBench::Stored(Key::TransLevel) == "50");

    OptionsBench::Store(Key::SeeThruCPU, "True");
    OptionsBench::Store(Key::TransLevel, "-20");
    bench.Show([&] {
        CHECK(sim::findWindow("Translucency: Off") != nullptr);
        bench.Click(Option::ChkSeeThru);
        CHECK(bench.TakeCalls() == Calls{"translucent 0"});
        sim::closeBox(bench.dialog);
    });
    CHECK(OptionsBench::Stored(Key::TransLevel) == "0");
}

TEST_CASE("what cannot be taken back is asked for first") {
    OptionsBench bench;
    bench.Show([&] {
        bench.Answer('N');
        bench.Click(Option::ChkShadow);
        CHECK(OptionsBench::Stored(Key::Shadow) == "1");  // for the next start
        bench.Answer('N');
        bench.Click(Option::CmdHdrW);
        bench.Answer('N');
        bench.Click(Option::CmdClean);
        CHECK(bench.TakeCalls().empty());
        CHECK(bench.dialog.ControlOf(Option::CmdClean).focused());
        bench.Answer('Y');
        bench.Click(Option::CmdHdrW);
        CHECK(bench.TakeCalls() == Calls{"columns"});
    });
    CHECK(bench.messages == Calls{"Kestrum - Info: Kestrum must be restarted to see effect. Restart Kestrum 2 now?",
                                  "Kestrum - Info: Reset column widths and splitter bar to defaults?",
                                  "Kestrum - Info: Delete all saved interface settings and exit?",
                                  "Kestrum - Info: Reset column widths and splitter bar to defaults?"});
    CHECK(sim::sounds().size() == 4);
    bench.Show([&] {
        bench.Click(Option::ChkMsgBeep);
        bench.Answer('N');
        bench.Click(Option::CmdHdrW);
    });
    CHECK(sim::sounds().size() == 4);
}

TEST_CASE("the program may end beneath the dialog") {
    OptionsBench bench;
    bench.Show([&] {
        bench.Turn(OptionPage::CpuGraphs);
        bench.Slider().focus();
        sim::pressKey(key::kHome);
        bench.Answer('Y');
        bench.Click(Option::ChkShadow);
        CHECK_FALSE(bench.dialog.exists());
    });
    CHECK(bench.host.calls.back() == "restart");
    CHECK(OptionsBench::Stored(Key::TransLevel) == "0");

    OptionsBench another;
    OptionsBench::Store(Key::MiniMe, "1");
    another.Show([&] {
        another.Answer('Y');
        another.Click(Option::CmdClean);
    });
    CHECK(another.host.calls == Calls{"defaults"});
    for (const char* name : {"MiniMe", "TransLevel"}) CHECK(OptionsBench::Stored(name) == "(none)");
}

TEST_CASE("the dialog opens on the first page and only the page in view takes part") {
    OptionsBench bench;
    bench.Show([&] {
        CHECK(bench.dialog.text() == "Kestrum Options");
        CHECK(bench.dialog.PageButton(OptionPage::Misc).focused());
        platform::Size size = bench.dialog.clientSize();
        for (int page = 0; page < settings::kOptionPages; ++page) {
            const auto shown = static_cast<OptionPage>(page);
            for (const OptionInfo& info : OptionTable()) {
                CAPTURE(info.name);
                const bool here = info.page == shown || info.page == OptionPage::Below;
                CHECK(bench.dialog.ControlOf(info.option).visible() == here);
            }
            CHECK(bench.dialog.PageButton(shown).Active());
            CHECK(bench.dialog.clientSize() == size);
            // Tab leads from the page buttons through the page, as the table has it, and around.
            for (int i = page; i < settings::kOptionPages; ++i) sim::pressKey(key::kTab);
            for (const OptionInfo& info : OptionTable()) {
                if (info.page != shown && info.page != OptionPage::Below) continue;
                CAPTURE(info.name);
                CHECK(bench.dialog.ControlOf(info.option).focused());
                sim::pressKey(key::kTab);
            }
            CHECK(bench.dialog.PageButton(OptionPage::Misc).focused());
            sim::pressKey(key::kPageDown, {.ctrl = true});
        }
        CHECK(bench.dialog.PageButton(OptionPage::Misc).Active());
        sim::pressKey(key::kLeft);
        CHECK(bench.dialog.PageButton(OptionPage::StartUp).Active());
        CHECK_FALSE(bench.dialog.PageButton(OptionPage::Misc).Active());
        CHECK(bench.dialog.PageButton(OptionPage::StartUp).focused());
    });
}

TEST_CASE("nothing overlaps and nothing is cut off") {
    OptionsBench bench;
    bench.Show([&] {
        const auto inside = [](const platform::Rect& inner, const platform::Rect& outer) {
            return inner.intersect(outer) == inner && !inner.empty();
        };
        const platform::Rect whole = platform::Rect::fromSize({0, 0}, bench.dialog.clientSize());
        const platform::Rect page = platform::Rect::fromSize({0, 0}, sim::findWindow("Framez0")->clientSize());
        for (const OptionInfo& info : OptionTable()) {
            CAPTURE(info.name);
            const platform::Rect bounds = bench.dialog.ControlOf(info.option).bounds();
            CHECK(inside(bounds, info.page == OptionPage::Below ? whole : page));
            if (info.kind == OptionKind::Check)
                CHECK(bounds.width() >= bench.Check(info.option).PreferredSize().width);
            if (info.kind == OptionKind::List)
                CHECK(bounds.width() >= bench.List(info.option).PreferredSize().width);
            for (const OptionInfo& other : OptionTable()) {
                if (&other == &info || other.page != info.page) continue;
                CHECK_FALSE(bounds.intersects(bench.dialog.ControlOf(other.option).bounds()));
            }
        }
        for (const char* label : {"Translucency: 85%", "Jr. EnForce Interval", "Morvell Software 2010"}) {
            CAPTURE(label);
            REQUIRE(sim::findWindow(label) != nullptr);
            CHECK(sim::findWindow(label)->clientSize().width >= 6 * static_cast<int>(std::string(label).size()));
        }
        const platform::Rect box = bench.dialog.bounds(), over = bench.owner.bounds();
        CHECK(std::abs(box.left + box.right - over.left - over.right) <= 1);
        CHECK(std::abs(box.top + box.bottom - over.top - over.bottom) <= 1);
    });
}

TEST_CASE("controls explain themselves, the buttons below do what they say") {
    OptionsBench bench;
    bench.Show([&] {
        for (const OptionInfo& info : OptionTable()) {
            if (info.tipText == nullptr) continue;
            CAPTURE(info.name);
            bench.Turn(info.page);
            sim::setPointer(bench.dialog.ControlOf(info.option),
                            {5, 5});  // told to the button that holds the mouse
            sim::setPointer(bench.dialog.ControlOf(info.option), {6, 5});
            REQUIRE(sim::tips().size() == 1);
            CHECK(sim::tips()[0].title == info.tipTitle);
            CHECK(sim::tips()[0].text == info.tipText);
        }
        bench.Click(Option::CmdHelp);
        sim::pressKey(key::kF1);
        bench.Click(Option::CmdShowTtl);
        CHECK(bench.TakeCalls() == Calls{"help", "help", "total"});
        // Escape closes a dropped list first.
        bench.Click(Option::CboGphCap);
        sim::pressKey(key::kEscape);
        CHECK(bench.dialog.exists());
        CHECK_FALSE(bench.List(Option::CboGphCap).Dropped());
        bench.Click(Option::CmdExit);
        CHECK_FALSE(bench.dialog.exists());
    });
    CHECK(sim::openHandles("window") == 1);
}
