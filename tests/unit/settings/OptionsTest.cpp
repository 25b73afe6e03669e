// The options dialog, as its user meets it.
#include <map>

#include "OptionsFixture.h"

using platform::Rect;
using settings::Key;
using settings::OptionTable;

namespace {

// What the program is asked for when an option goes off and on, where that is more than to look at its key.
const std::map<Option, Calls> kEffects = {
    {Option::ChkHotKey, {"hotkeys off", "hotkeys on"}},
    {Option::ChkEdgeDetect, {"edge off", "edge on"}},
    {Option::ChkSeeThru, {"translucent 85", "transparent"}},
    {Option::ChkCPUGraphTop, Calls(2, "graph options")},
    {Option::ChkCpuTips, Calls(2, "graph options")},
    {Option::CboGphCap, Calls(2, "colours")},
    {Option::CboGphVal, Calls(2, "colours")},
    {Option::CboTrayType, Calls(2, "tray")},
    {Option::CboTrayColr, Calls(2, "tray")},
    {Option::CboTrayBrdr, Calls(2, "tray")},
};

Calls Effect(const OptionInfo& info, int on) {
    const auto found = kEffects.find(info.option);
    return {found != kEffects.end() ? found->second[on] : std::string("changed ") + InfoOf(info.key).name};
}

// Options that write one key at once, and nothing else that needs a file or an answer.
bool Plain(const OptionInfo& info, OptionKind kind) {
    const bool jr = info.option == Option::CboFavJr || info.option == Option::CboEnforceJr;
    return info.kind == kind && info.key != Key::Count && !jr && info.option != Option::ChkShadow;
}

}  // namespace

TEST_CASE_FIXTURE(OptionsBench, "every check box writes its key by mouse and keyboard, and takes effect at once") {
    dialog.Show(owner);
    for (const OptionInfo& info : OptionTable()) {
        if (!Plain(info, OptionKind::Check)) continue;
        CAPTURE(info.name);
        const bool truth = InfoOf(info.key).type == settings::KeyType::Bool;
        const int before = truth ? store.Bool(info.key) : store.Number(info.key);
        CHECK(Check(info.option).Value() == (before == 1));
        const std::string stored[] = {truth ? "False" : "0", truth ? "True" : "1"};
        Click(info.option);
        CHECK(Stored(info.key) == stored[1 - before]);
        CHECK(TakeCalls() == Effect(info, 1 - before));
        CHECK(dialog.ControlOf(info.option).focused());
        sim::pressKey(key::kSpace);
        CHECK(Stored(info.key) == stored[before]);
        CHECK(TakeCalls() == Effect(info, before));
    }
    sim::closeBox(dialog);
}

TEST_CASE_FIXTURE(OptionsBench, "every list writes the index of the entry picked by mouse and by keyboard") {
    dialog.Show(owner);
    for (const OptionInfo& info : OptionTable()) {
        if (!Plain(info, OptionKind::List)) continue;
        CAPTURE(info.name);
        const int last = ItemCount(info.items) - 1;
        Click(info.option);
        sim::pressKey(key::kEnd);
        CHECK(TakeCalls().empty());  // nothing is picked yet
        sim::pressKey(key::kEnter);
        CHECK(Stored(info.key) == std::to_string(last));
        CHECK(TakeCalls() == Effect(info, 1));
        sim::pressKey(key::kUp);
        CHECK(Stored(info.key) == std::to_string(last - 1));
        CHECK(TakeCalls() == Effect(info, 1));
    }
    sim::closeBox(dialog);
}

TEST_CASE_FIXTURE(OptionsBench, "lists offer what their keys mean, damaged ones the nearest to it") {
    const struct {
        Option option;
        std::string stored, shown;
    } cases[] = {
        {Option::CboEnforce, "0", "10 seconds"},    {Option::CboEnforce, "29", "300 seconds"},
        {Option::CboEnforceJr, "0", "Disabled"},    {Option::CboEnforceJr, "30", "300 seconds"},
        {Option::CboTrayType, "3", "Number Sml"},   {Option::CboGphVal, "4", "Purple"},
        {Option::CboFav, "2", "My Favs 3"},         {Option::CboFavJr, "4", "My Favs 5 (Empty)"},
        {Option::CboEnforce, "30", "300 seconds"},  {Option::CboEnforce, "-4", "10 seconds"},
        {Option::CboFav, "7", "My Favs 5 (Empty)"}, {Option::CboTrayColr, "8", "Black"},  // as it is drawn
        {Option::CboTrayType, "9", "Disabled"},
    };
    for (const auto& one : cases) {
        const Key key = InfoOf(one.option).key;
        Store(key, one.stored);
        Show([&] {
            Turn(InfoOf(one.option).page);
            CHECK(Shown(one.option) == one.shown);
        });
        CHECK(Stored(key) == one.stored);  // looking changes nothing
    }
    Store(Key::Hotkey, "7");
    Store(Key::SeeThruCPU, "perhaps");
    Show([&] {
        for (const auto option : {Option::ChkHotKey, Option::ChkSeeThru}) CHECK_FALSE(Check(option).Value());
    });
}

TEST_CASE_FIXTURE(OptionsBench, "profile lists can be filled anew while they are shown") {
    Show([&] {
        Turn(OptionPage::StartUp);
        Store(Key::FavName, "1");
        host.profiles = {2};
        dialog.RefillProfiles();
        CHECK(Shown(Option::CboFav) == "My Favs 2");
        CHECK(Shown(Option::CboFavJr) == "My Favs 1 (Empty)");
    });
}

TEST_CASE_FIXTURE(OptionsBench, "the translucency counts while graphs are opaque, and is kept at the end") {
    const auto says = [](const std::string& level) { return sim::findWindow("Translucency: " + level) != nullptr; };
    Show([&] {
        Turn(OptionPage::CpuGraphs);
        CHECK(says("85%"));
        Click(Option::ChkSeeThru);
        CHECK(says("Off"));
        CHECK_FALSE(Slider().Enabled());
        Click(Option::ChkSeeThru);
        CHECK(says("85%"));
        TakeCalls();

        Slider().focus();
        sim::pressKey(key::kRight);
        CHECK(says("86%"));
        sim::pressKey(key::kEnd);
        sim::mouseDown(Slider(), {0, 3});
        CHECK(says("20%"));
        sim::mouseUp(Slider(), {Slider().clientSize().width / 2, 3});
        sim::pressKey(key::kPageDown);
        CHECK(says("30%"));
        CHECK(TakeCalls() == Calls{"translucent 86", "translucent 100", "translucent 20", "translucent 30"});
        CHECK(Stored(Key::TransLevel) == "(none)");
    });
    CHECK(Stored(Key::TransLevel) == "30");

    Store(Key::SeeThruCPU, "True");
    Store(Key::TransLevel, "-20");
    Show([&] {
        CHECK(says("Off"));
        Click(Option::ChkSeeThru);
        CHECK(TakeCalls() == Calls{"translucent 20"});
        sim::closeBox(dialog);
    });
    CHECK(Stored(Key::TransLevel) == "20");
}

TEST_CASE_FIXTURE(OptionsBench, "what cannot be taken back is asked for first") {
    Show([&] {
        Answer('N');
        Click(Option::ChkShadow);
        CHECK(Stored(Key::Shadow) == "1");  // for the next start
        Answer('N');
        Click(Option::CmdHdrW);
        Answer(key::kEnter);  // a No, as it deletes
        Click(Option::CmdClean);
        CHECK(TakeCalls().empty());
        CHECK(dialog.ControlOf(Option::CmdClean).focused());
        Answer(key::kEnter);  // a Yes
        Click(Option::CmdHdrW);
        CHECK(TakeCalls() == Calls{"columns"});
    });
    CHECK(messages == Calls{"Kestrum - Info: Kestrum must be restarted to see effect. Restart Kestrum 2 now?",
                            "Kestrum - Info: Reset column widths and splitter bar to defaults?",
                            "Kestrum - Info: Delete all saved interface settings and exit?",
                            "Kestrum - Info: Reset column widths and splitter bar to defaults?"});
    CHECK(sim::sounds() == Calls(4, "SystemQuestion"));
    Show([&] {
        Click(Option::ChkMsgBeep);
        Answer('N');
        Click(Option::CmdHdrW);
    });
    CHECK(sim::sounds().size() == 4);
}

TEST_CASE_FIXTURE(OptionsBench, "the dialog opens on the first page and only the page in view takes part") {
    Show([&] {
        CHECK(dialog.text() == "Kestrum Options");
        const auto& misc = dialog.PageButton(OptionPage::Misc);
        CHECK(misc.focused());
        const platform::Size size = dialog.clientSize();
        for (int page = 0; page < settings::kOptionPages; ++page) {
            const auto shown = static_cast<OptionPage>(page);
            CHECK(dialog.PageButton(shown).Active());
            CHECK(dialog.clientSize() == size);
            // Tab leads from the page buttons through the page, as the table has it, and around.
            for (int i = page; i < settings::kOptionPages; ++i) sim::pressKey(key::kTab);
            for (const OptionInfo& info : OptionTable()) {
                CAPTURE(info.name);
                const bool here = info.page == shown || info.page == OptionPage::Below;
                CHECK(dialog.ControlOf(info.option).visible() == here);
                CHECK(dialog.ControlOf(info.option).focused() == here);
                if (here) sim::pressKey(key::kTab);
            }
            CHECK(misc.focused());
            sim::pressKey(key::kPageDown, {.ctrl = true});
        }
        CHECK(misc.Active());
        sim::pressKey(key::kLeft);
        CHECK_FALSE(misc.Active());
        CHECK(dialog.PageButton(OptionPage::StartUp).Active());
        CHECK(dialog.PageButton(OptionPage::StartUp).focused());
    });
}

TEST_CASE_FIXTURE(OptionsBench,
                  "lists have room for their longest entry, and the dialog is in the middle of its owner") {
    Show([&] {
        for (const OptionInfo& info : OptionTable()) {
            if (info.kind != OptionKind::List) continue;
            CAPTURE(info.name);
            CHECK(dialog.ControlOf(info.option).bounds().width() >= List(info.option).PreferredSize().width);
        }
        const Rect box = dialog.bounds(), over = owner.bounds();
        CHECK(std::abs(box.left + box.right - over.left - over.right) <= 1);
        CHECK(std::abs(box.top + box.bottom - over.top - over.bottom) <= 1);
    });
}

TEST_CASE_FIXTURE(OptionsBench, "who comes back from another window finds the control that had the focus") {
    Show([&] {
        for (const auto option : {Option::ChkMsgBeep, Option::CboTrayType, Option::CmdExit}) {
            platform::Window& control = dialog.ControlOf(option);
            control.focus();
            dialog.focus();  // as its frame gets it
            CHECK(control.focused());
        }
        sim::pressKey(key::kPageDown, {.ctrl = true});  // what had it is on a page that is gone
        dialog.focus();
        CHECK(dialog.PageButton(OptionPage::CpuGraphs).focused());
    });
}

TEST_CASE_FIXTURE(OptionsBench, "controls explain themselves, the buttons below do what they say") {
    Show([&] {
        for (const OptionInfo& info : OptionTable()) {
            if (info.tipText == nullptr) continue;
            CAPTURE(info.name);
            Turn(info.page);
            sim::setPointer(dialog.ControlOf(info.option), {5, 5});  // told to the button that holds the mouse
            sim::setPointer(dialog.ControlOf(info.option), {6, 5});
            REQUIRE(sim::tips().size() == 1);
            CHECK(sim::tips()[0].title == info.tipTitle);
            CHECK(sim::tips()[0].text == info.tipText);
        }
        // After a click no more, until the pointer has been elsewhere.
        platform::Window& box = Check(Option::ChkCpuTips);
        Click(Option::ChkCpuTips);
        for (const bool left : {false, true}) {
            if (left) sim::movePointer({0, 0});
            sim::setPointer(box, {6, 5});
            CHECK(sim::tips().size() == (left ? 1 : 0));
        }
        TakeCalls();
        Click(Option::CmdHelp);
        sim::pressKey(key::kF1);
        Click(Option::CmdShowTtl);
        CHECK(TakeCalls() == Calls{"help", "help", "total"});
        // Escape closes a dropped list first.
        Click(Option::CboGphCap);
        sim::pressKey(key::kEscape);
        CHECK(dialog.exists());
        CHECK_FALSE(List(Option::CboGphCap).Dropped());
        Click(Option::CmdExit);
        CHECK_FALSE(dialog.exists());
    });
    CHECK(sim::openHandles("window") == 1);
}
