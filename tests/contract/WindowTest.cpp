#include "platform/Window.h"

#include <memory>

#include "contract/Probe.h"
#include "platform/Instance.h"
#include "platform/Timer.h"

using namespace contract;
using namespace platform;

TEST_CASE_FIXTURE(Fresh, "a window comes into being with its text, place and first size") {
    Log log;
    Probe main("main", log);
    CHECK_FALSE(
        main.create({WindowKind::Child, "Probe", "main", nullptr, {0, 0, 10, 10}}));  // a control needs a parent
    CHECK_FALSE(main.exists());
    CHECK_FALSE(main.visible());
    CHECK(main.bounds() == Rect{});
    CHECK(main.text().empty());
    main.setPointer(Pointer::Drop);  // without a system window nothing happens
    main.stopTimer(1);
    main.destroy();
    REQUIRE(main.createAs(asMain()));
    CHECK_FALSE(main.createAs(asMain()));
    CHECK_FALSE(main.visible());
    CHECK(main.text() == "main");
    CHECK(main.bounds() == Rect{100, 100, 500, 400});
    CHECK(log.empty());  // a main window has its first size with the first show

    Probe child("child", log, asChildOf(main, {10, 20, 110, 60}));
    CHECK(log == Log{"child size 100x40"});
    CHECK(child.bounds() == Rect{10, 20, 110, 60});
    CHECK(child.clientSize() == Size{100, 40});
    CHECK(child.toScreen({0, 0}) == main.toScreen({10, 20}));

    Probe dialog("dialog", log, asDialogOf(main));
    CHECK_FALSE(dialog.visible());
    CHECK(log.back() == "dialog size " + extent(dialog.clientSize()));

    child.setText("another name");
    CHECK(child.text() == "another name");
    CHECK(log.back() == "child says another name");  // told when the text is there already
    main.show(ShowCommand::Show);
    CHECK(main.visible());
    CHECK(child.visible());
    CHECK(count(log, "main size " + extent(main.clientSize())) == 1);
}

TEST_CASE_FIXTURE(Desk, "a new size is told before setBounds returns, a new place is not told") {
    a.setBounds({10, 10, 90, 50});
    CHECK(log == Log{"a size 80x40"});
    CHECK(a.bounds() == Rect{10, 10, 90, 50});
    log.clear();
    REQUIRE(waitFor([&] { return has(log, "a paint"); }));
    CHECK(a.lastDirty == Rect{0, 0, 80, 40});  // all of it, though it only shrank
    log.clear();
    a.setBounds({20, 30, 100, 70});
    CHECK(only(log, {"a size 80x40"}).empty());
    CHECK(a.bounds() == Rect{20, 30, 100, 70});

    main.least = {320, 240};  // it gets no smaller
    contract::dragFrame(main, {100, 100, 150, 390});
    CHECK(main.bounds() == Rect{100, 100, 420, 390});
    contract::dragFrame(main, {100, 100, 490, 120});
    CHECK(main.bounds() == Rect{100, 100, 490, 340});
}

TEST_CASE_FIXTURE(Desk, "painting waits for the message loop and comes once") {
    a.invalidate({5, 5, 15, 10});
    a.invalidate({40, 20, 50, 45});
    CHECK(log.empty());
    REQUIRE(waitFor([this] { return has(log, "a paint"); }));
    for (const Rect& none : {Rect{20, 20, 20, 40}, Rect{30, 30, 10, 10}, Rect{200, 200, 300, 300}}) {
        a.invalidate(none);
    }
    pumpMessages();
    CHECK(log == Log{"a paint"});
    CHECK(a.lastDirty == Rect{5, 5, 50, 45});
    a.invalidate();
    for (int i = 0; i < 2; ++i) a.update();  // paints at once
    CHECK(log == Log{"a paint", "a paint"});

    log.clear();
    a.show(ShowCommand::Hide);
    a.invalidate();
    a.update();
    pumpMessages();
    CHECK_FALSE(has(log, "a paint"));
    a.show(ShowCommand::Show);
    CHECK(waitFor([this] { return has(log, "a paint"); }));
}

TEST_CASE_FIXTURE(Desk, "destroying a window takes its children along, and they go first") {
    Probe inner("inner", log, asChildOf(a, {0, 0, 20, 20}));
    SUBCASE("by request") {
        main.destroy();
        const Log expected{"inner destroyed", "a destroyed", "b destroyed", "main destroyed"};
        CHECK(only(log, expected) == expected);
        for (const Window* gone : {&main, &a, &b, &inner}) CHECK_FALSE(gone->exists());
        REQUIRE(main.createAs(asMain()));  // the object can have another window
    }
    SUBCASE("by the close box, unless the window keeps itself open") {
        main.keepOpen = true;
        contract::closeBox(main);
        CHECK(main.exists());
        main.keepOpen = false;
        contract::closeBox(main);
        CHECK(count(log, "main close") == 2);
        CHECK_FALSE(main.exists());
    }
    SUBCASE("a dying object is told nothing any more, nor are its children") {
        Log told;
        Probe child("child", told);
        {
            Probe top("top", told, asMain());
            REQUIRE(child.createAs(asChildOf(top, {0, 0, 10, 10})));
            top.show(ShowCommand::Show);
            child.focus();
            child.capture();
            told.clear();
        }
        CHECK(told.empty());
        CHECK_FALSE(child.exists());
    }
}

TEST_CASE_FIXTURE(Desk, "a window timer fires until it is stopped, and starting it again re-arms it") {
    b.startTimer(1, 10);
    const auto isSilent = [this] {
        log.clear();
        return waitFor([&] { return count(log, "b timer 1") >= 5; }) && !has(log, "a timer 7");
    };
    a.startTimer(7, 3600000);
    a.startTimer(7, 10);  // a short time replaces a long one
    CHECK(waitFor([&] { return count(log, "a timer 7") >= 3; }));
    a.stopTimer(7);
    CHECK(isSilent());
    a.startTimer(7, 10);
    a.startTimer(7, 3600000);  // a long time replaces a short one
    CHECK(isSilent());
    a.startTimer(7, 10);
    a.destroy();
    CHECK(isSilent());
}

TEST_CASE_FIXTURE(Fresh, "a timer fires with its id until it is closed") {
    std::vector<std::uintptr_t> ids;
    int others = 0;
    TimerHandle one = startTimer(10, [&ids](std::uintptr_t id) { ids.push_back(id); });
    const TimerHandle two = startTimer(10, [&others](std::uintptr_t) { ++others; });
    CHECK(ids.empty());  // only the message loop fires it
    CHECK(waitFor([&] { return ids.size() >= 3 && others >= 3; }));
    for (const std::uintptr_t id : ids) CHECK(id == one.raw());
    one.reset();
    ids.clear();
    others = 0;
    CHECK(waitFor([&] { return others >= 5; }));
    CHECK(ids.empty());
}

TEST_CASE_FIXTURE(Fresh, "a timer closed by another's tick does not fire any more") {
    TimerHandle timers[2];
    int ticks[2] = {};
    for (int n = 0; n < 2; ++n) {
        timers[n] = startTimer(10, [&timers, &ticks, n](std::uintptr_t) {
            ++ticks[n];
            timers[1 - n].reset();
        });
    }
    CHECK(waitFor([&] { return ticks[0] + ticks[1] >= 5; }));
    CHECK((ticks[0] == 0 || ticks[1] == 0));
}

TEST_CASE_FIXTURE(Fresh, "a timer may be closed and started anew while it fires") {
    int before = 0;
    int after = 0;
    TimerHandle timer;
    const std::string kept(100, 'k');  // lives in the closure, which must outlive the close
    timer = startTimer(10, [&, kept](std::uintptr_t) {
        timer = startTimer(10, [&after](std::uintptr_t) { ++after; });
        if (kept == std::string(100, 'k')) ++before;
    });
    CHECK(waitFor([&] { return after >= 3; }));
    CHECK(before == 1);
}

TEST_CASE_FIXTURE(Desk, "a modal dialog stands before its owner until it is hidden or destroyed") {
    b.focus();
    Probe dialog("dialog", log, asDialogOf(main));
    Probe first("first", log, asChildOf(dialog, {10, 10, 60, 30}, true));

    contract::runModal(dialog, [&] {
        CHECK(dialog.visible());
        CHECK_FALSE(main.enabled());
        CHECK(first.focused());
        main.bringToFront();  // with its dialog, which keeps the keyboard
        for (const ShowCommand before : {ShowCommand::ShowInactive, ShowCommand::Minimize, ShowCommand::Hide}) {
            main.show(before);
            showNormalAsync(main.native());
            bringWindowToFront(main.native());
            CHECK(waitFor([&] { return main.visible() && main.state() == WindowState::Normal; }));
            CHECK(waitFor([&] { return first.focused(); }));
        }
        dialog.show(ShowCommand::Hide);
        CHECK(main.enabled());
        log.push_back("ran");
    });
    CHECK(has(log, "ran"));
    CHECK(dialog.exists());
    CHECK(b.focused());  // as it was before

    // The object may go with its window.
    auto other = std::make_unique<Probe>("other", log, asDialogOf(main));
    contract::runModal(*other, [&] { other.reset(); });
    CHECK(main.enabled());
    CHECK(b.focused());

    Probe last("last", log, asDialogOf(main));
    main.enable(false);  // who was disabled before stays so
    contract::runModal(last, [&] { last.destroy(); });
    CHECK_FALSE(main.enabled());
}

TEST_CASE_FIXTURE(Desk, "a modal dialog keeps all other windows from input, also those made meanwhile") {
    Probe gadget("gadget", log, asGadget({600, 100, 700, 200}));
    Probe list("list", log, asListOf(a, {200, 200, 300, 300}));
    Probe off("off", log, asMain());
    off.enable(false);
    gadget.show(ShowCommand::Show);
    Probe dialog("dialog", log, asDialogOf(main));
    Probe first("first", log, asChildOf(dialog, {10, 10, 60, 30}, true));

    contract::runModal(dialog, [&] {
        Probe late("late", log, asGadget({0, 0, 10, 10}));
        Probe owned("owned", log, asListOf(first, {0, 0, 10, 10}));
        for (const Probe* none : {&main, &gadget, &list, &off, &late}) CHECK_FALSE(none->enabled());
        for (const Probe* each : {&dialog, &owned}) CHECK(each->enabled());
        log.clear();
        contract::clickOnScreen(gadget, {5, 5});
        CHECK(handUntil(contract::clickOnScreen, first, {5, 5}, [&] { return has(log, "first up left 5,5"); }));
        CHECK_FALSE(has(log, "gadget down left held 5,5"));
        gadget.enable(false);  // what is wanted now holds later
        off.enable(true);
        CHECK_FALSE(off.enabled());
        dialog.destroy();
        CHECK(late.enabled());
    });
    for (const Probe* each : {&main, &list, &off}) CHECK(each->enabled());
    CHECK_FALSE(gadget.enabled());
}

TEST_CASE_FIXTURE(Desk, "of several modal dialogs the last one counts") {
    b.focus();
    Probe dialog("dialog", log, asDialogOf(main));
    Probe first("first", log, asChildOf(dialog, {10, 10, 60, 30}, true));
    const auto onlyOneEnabled = [&](const Probe& one) {
        for (const Probe* each : {&main, &dialog}) CHECK(each->enabled() == (each == &one));
        CHECK(one.enabled());
    };
    SUBCASE("that it goes gives the one below the keyboard back") {
        contract::runModal(dialog, [&] {
            for (Window* owner : {static_cast<Window*>(&main), static_cast<Window*>(&dialog)}) {
                Probe second("second", log, asDialogOf(*owner));
                contract::runModal(second, [&] {
                    onlyOneEnabled(second);
                    contract::closeBox(second);
                });
                CHECK_FALSE(second.exists());
                onlyOneEnabled(dialog);
                CHECK(waitFor([&] { return first.focused(); }));
            }
            dialog.destroy();
        });
    }
    SUBCASE("that one below it goes changes nothing") {
        Probe second("second", log, asDialogOf(main));
        contract::runModal(dialog, [&] {
            contract::runModal(second, [&] {
                dialog.destroy();
                onlyOneEnabled(second);
                second.destroy();
            });
        });
    }
    SUBCASE("they go with what owns them") {
        Probe options("options", log, asDialogOf(main));
        Probe second("second", log, asDialogOf(options));
        options.show(ShowCommand::Show);
        contract::runModal(second, [&] {
            onlyOneEnabled(second);
            options.destroy();
            CHECK_FALSE(second.exists());
        });
        dialog.destroy();
    }
    CHECK(main.enabled());
    CHECK(waitFor([&] { return b.focused(); }));
}

TEST_CASE_FIXTURE(Desk, "minimising and maximising change the state and keep the restored rectangle") {
    const Rect normal = main.bounds();
    CHECK(main.state() == WindowState::Normal);
    CHECK(main.normalBounds() == normal);

    main.show(ShowCommand::Maximize);
    CHECK(main.state() == WindowState::Maximized);
    CHECK(has(log, "main maximized " + extent(main.clientSize())));
    CHECK(main.normalBounds() == normal);

    main.show(ShowCommand::Minimize);
    CHECK(main.state() == WindowState::Minimized);
    CHECK(has(log, "main minimized 0x0"));
    CHECK(main.normalBounds() == normal);

    for (const WindowState restored : {WindowState::Maximized, WindowState::Normal}) {
        main.show(ShowCommand::Restore);
        CHECK(main.state() == restored);
    }
    CHECK(main.bounds() == normal);
    for (const ShowCommand before : {ShowCommand::Minimize, ShowCommand::Hide, ShowCommand::Show}) {
        main.show(ShowCommand::Maximize);
        main.show(before);
        main.show(ShowCommand::Normal);
        CHECK(main.visible());
        CHECK(main.state() == WindowState::Normal);
        CHECK(main.bounds() == normal);
    }

    // One that comes up minimised leaves the others in peace.
    b.focus();
    Probe other("other", log, asMain());
    other.show(ShowCommand::Minimize);
    CHECK(other.state() == WindowState::Minimized);
    CHECK(other.visible());
    CHECK(b.focused());
    other.show(ShowCommand::Restore);
    CHECK(other.state() == WindowState::Normal);
    CHECK_FALSE(b.focused());
}

TEST_CASE_FIXTURE(Desk,
                  "a window is told of dropped files, new colours, the shell's return and the session's end") {
    // Dropped files, when they are welcome.
    const std::vector<std::string> paths{"C:\\a.exe", "C:\\Program Files\\b c.exe"};
    contract::dropFiles(a, paths);
    CHECK(a.dropped.empty());
    a.acceptFiles(true);
    contract::dropFiles(a, paths);
    CHECK(a.dropped == paths);
    // To the innermost control.
    Probe inner("inner", log, asChildOf(a, {0, 0, 20, 20}));
    contract::changeSystemColors(main);
    for (const char* entry : {"main colors", "a colors", "b colors", "inner colors"}) {
        CHECK(count(log, entry) == 1);
    }
    // To main windows only.
    log.clear();
    contract::restartShell(main);
    contract::endSession(main);
    CHECK(log == Log{"main taskbar", "main endSession"});
}

TEST_CASE_FIXTURE(Fresh, "screens are found by rectangle") {
    const Size screen = screenSize();
    const Rect work = nearestWorkArea({10, 10, 20, 20});
    CHECK_FALSE(work.empty());
    CHECK(work.intersect(Rect::fromSize({}, screen)) == work);
    CHECK(nearestWorkArea({-30000, -30000, -29000, -29000}) == work);
    CHECK(onAnyScreen({-50, -50, 1, 1}));
    CHECK_FALSE(onAnyScreen({-50, -50, 0, 0}));  // its last pixel is -1, -1
    CHECK_FALSE(onAnyScreen({screen.width, 0, screen.width + 10, 10}));
    CHECK_FALSE(onAnyScreen({10, 10, 10, 10}));
}

TEST_CASE_FIXTURE(Desk, "the message loop ends when the program is told to quit, also while a dialog is open") {
    Probe dialog("dialog", log, asDialogOf(main));
    contract::runModal(dialog, [&] {
        postQuit(7);
        pumpMessages();  // leaves it to the loop
    });
    CHECK(dialog.exists());
    CHECK(runMessageLoop() == 7);
}
