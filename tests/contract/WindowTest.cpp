#include "platform/Window.h"

#include <memory>
#include <string>
#include <vector>

#include "contract/Probe.h"

using namespace contract;
using namespace platform;

TEST_CASE("a window comes into being with its text, place and first size") {
    contract::freshMachine();
    Log log;
    Probe main("main", log);
    CHECK_FALSE(main.exists());
    REQUIRE(main.createMain());
    CHECK(main.exists());
    CHECK_FALSE(main.createMain());
    CHECK_FALSE(main.visible());
    CHECK(main.text() == "main");
    CHECK(main.bounds() == Rect{100, 100, 500, 400});
    CHECK(log.empty());  // a main window has its first size with the first show

    Probe child("child", log);
    REQUIRE(child.createIn(&main, {10, 20, 110, 60}));
    CHECK(log == Log{"child size 100x40"});
    CHECK(child.bounds() == Rect{10, 20, 110, 60});
    CHECK(child.clientSize() == Size{100, 40});
    const Point corner = main.toScreen({10, 20});
    CHECK(child.toScreen({0, 0}) == corner);

    Probe dialog("dialog", log);
    REQUIRE(dialog.createDialog(&main));
    CHECK_FALSE(dialog.visible());
    CHECK(log.back() ==
          "dialog size " + number(dialog.clientSize().width) + "x" + number(dialog.clientSize().height));

    child.setText("another name");
    CHECK(child.text() == "another name");
    CHECK(log.back() == "child says another name");  // told when the text is there already
    main.show(ShowCommand::Show);
    CHECK(main.visible());
    CHECK(child.visible());
    const Size client = main.clientSize();
    CHECK(count(log, "main size " + number(client.width) + "x" + number(client.height)) == 1);
}

TEST_CASE("a window without a system window answers quietly") {
    contract::freshMachine();
    Log log;
    Probe none("none", log);
    none.invalidate();
    none.focus();
    none.releaseCapture();
    none.stopTimer(1);
    none.setPointer(Pointer::SizeWestEast);
    none.destroy();
    CHECK_FALSE(none.visible());
    CHECK_FALSE(none.focused());
    CHECK_FALSE(none.captured());
    CHECK_FALSE(none.underPointer());
    CHECK(none.bounds() == Rect{});
    CHECK(none.text().empty());
    CHECK_FALSE(none.createIn(nullptr, {0, 0, 10, 10}));  // a control needs a parent
    CHECK(log.empty());
}

TEST_CASE("a new size is told before setBounds returns, a new place is not told") {
    Desk desk;
    desk.a.setBounds({10, 10, 90, 50});
    CHECK(desk.log == Log{"a size 80x40"});
    CHECK(desk.a.bounds() == Rect{10, 10, 90, 50});
    desk.log.clear();
    REQUIRE(waitFor([&] { return has(desk.log, "a paint"); }));
    CHECK(desk.a.lastDirty == Rect{0, 0, 80, 40});  // all of it, though it only shrank

    desk.log.clear();
    desk.a.setBounds({20, 30, 100, 70});
    CHECK(only(desk.log, {"a size 80x40"}).empty());
    CHECK(desk.a.bounds() == Rect{20, 30, 100, 70});
}

TEST_CASE("painting waits for the message loop and comes once") {
    Desk desk;
    desk.a.invalidate({5, 5, 15, 10});
    desk.a.invalidate({40, 20, 50, 45});
    CHECK(desk.log.empty());
    SUBCASE("two invalid areas give one paint that covers both") {
        REQUIRE(waitFor([&] { return has(desk.log, "a paint"); }));
        pumpMessages();
        CHECK(desk.log == Log{"a paint"});
        CHECK(desk.a.lastDirty == Rect{5, 5, 50, 45});
    }
    SUBCASE("update paints at once") {
        desk.a.update();
        CHECK(desk.log == Log{"a paint"});
        desk.a.update();
        CHECK(desk.log == Log{"a paint"});
    }
    SUBCASE("what is hidden is not painted before it shows again") {
        desk.a.show(ShowCommand::Hide);
        desk.a.update();
        pumpMessages();
        CHECK_FALSE(has(desk.log, "a paint"));
        desk.a.show(ShowCommand::Show);
        CHECK(waitFor([&] { return has(desk.log, "a paint"); }));
    }
    SUBCASE("an empty area and one outside need no paint") {
        pumpMessages();
        desk.log.clear();
        desk.a.invalidate({20, 20, 20, 40});
        desk.a.invalidate({30, 30, 10, 10});
        desk.a.invalidate({200, 200, 300, 300});
        pumpMessages();
        CHECK(desk.log.empty());
    }
}

TEST_CASE("destroying a window takes its children along, and they go first") {
    Desk desk;
    Probe inner("inner", desk.log);
    REQUIRE(inner.createIn(&desk.a, {0, 0, 20, 20}));
    SUBCASE("by request") {
        desk.main.destroy();
        const Log told = only(desk.log, {"inner destroyed", "a destroyed", "b destroyed", "main destroyed"});
        CHECK(told == Log{"inner destroyed", "a destroyed", "b destroyed", "main destroyed"});
        for (const Window* gone : {&desk.main, &desk.a, &desk.b, &inner}) CHECK_FALSE(gone->exists());
        REQUIRE(desk.main.createMain());  // the object can have another window
    }
    SUBCASE("by the close box, unless the window keeps itself open") {
        desk.main.keepOpen = true;
        contract::closeBox(desk.main);
        CHECK(desk.main.exists());
        desk.main.keepOpen = false;
        contract::closeBox(desk.main);
        CHECK(count(desk.log, "main close") == 2);
        CHECK_FALSE(desk.main.exists());
    }
    SUBCASE("a dying object is told nothing any more, nor are its children") {
        Log log;
        Probe child("child", log);
        auto top = std::make_unique<Probe>("top", log);
        REQUIRE(top->createMain());
        REQUIRE(child.createIn(top.get(), {0, 0, 10, 10}));
        top->show(ShowCommand::Show);
        child.focus();
        child.capture();
        log.clear();
        top.reset();
        CHECK(log.empty());
        CHECK_FALSE(child.exists());
    }
}

TEST_CASE("a window timer fires until it is stopped, and starting it again re-arms it") {
    Desk desk;
    desk.b.startTimer(1, 10);
    SUBCASE("its id comes along, and stopping ends it") {
        desk.a.startTimer(7, 10);
        CHECK(waitFor([&] { return count(desk.log, "a timer 7") >= 3; }));
        desk.a.stopTimer(7);
        desk.log.clear();
        CHECK(waitFor([&] { return count(desk.log, "b timer 1") >= 5; }));
        CHECK_FALSE(has(desk.log, "a timer 7"));
    }
    SUBCASE("a short time replaces a long one") {
        desk.a.startTimer(7, 3600000);
        desk.a.startTimer(7, 10);
        CHECK(waitFor([&] { return has(desk.log, "a timer 7"); }));
    }
    SUBCASE("a long time replaces a short one") {
        desk.a.startTimer(7, 10);
        desk.a.startTimer(7, 3600000);
        CHECK(waitFor([&] { return count(desk.log, "b timer 1") >= 5; }));
        CHECK_FALSE(has(desk.log, "a timer 7"));
    }
    SUBCASE("it goes with the window") {
        desk.a.startTimer(7, 10);
        desk.a.destroy();
        CHECK(waitFor([&] { return count(desk.log, "b timer 1") >= 5; }));
        CHECK_FALSE(has(desk.log, "a timer 7"));
    }
}

TEST_CASE("a modal dialog stands before its owner until it is hidden or destroyed") {
    Desk desk;
    desk.b.focus();
    Probe dialog("dialog", desk.log);
    Probe first("first", desk.log);
    REQUIRE(dialog.createDialog(&desk.main));
    REQUIRE(first.createIn(&dialog, {10, 10, 60, 30}, true));

    bool ran = false;
    contract::runModal(dialog, desk.main, [&] {
        ran = true;
        CHECK(dialog.visible());
        CHECK_FALSE(desk.main.enabled());
        CHECK(first.focused());
        dialog.show(ShowCommand::Hide);
        CHECK(desk.main.enabled());
    });
    CHECK(ran);
    CHECK(dialog.exists());
    CHECK(desk.b.focused());  // as it was before

    SUBCASE("a dialog above a dialog") {
        Probe second("second", desk.log);
        REQUIRE(second.createDialog(&dialog));
        contract::runModal(dialog, desk.main, [&] {
            contract::runModal(second, dialog, [&] {
                CHECK_FALSE(dialog.enabled());
                CHECK_FALSE(desk.main.enabled());
                contract::closeBox(second);
            });
            CHECK_FALSE(second.exists());
            CHECK(dialog.enabled());
            CHECK_FALSE(desk.main.enabled());
            dialog.destroy();
        });
        CHECK_FALSE(dialog.exists());
        CHECK(desk.main.enabled());
    }
    SUBCASE("an owner that was disabled before stays so") {
        desk.main.enable(false);
        contract::runModal(dialog, desk.main, [&] { dialog.destroy(); });
        CHECK_FALSE(desk.main.enabled());
    }
    SUBCASE("the object may go with its window") {
        auto other = std::make_unique<Probe>("other", desk.log);
        REQUIRE(other->createDialog(&desk.main));
        contract::runModal(*other, desk.main, [&] { other.reset(); });
        CHECK(desk.main.enabled());
        CHECK(desk.b.focused());
    }
}

TEST_CASE("minimising and maximising change the state and keep the restored rectangle") {
    Desk desk;
    const Rect normal = desk.main.bounds();
    CHECK(desk.main.state() == WindowState::Normal);
    CHECK(desk.main.normalBounds() == normal);

    desk.main.show(ShowCommand::Maximize);
    CHECK(desk.main.state() == WindowState::Maximized);
    const Size most = desk.main.clientSize();
    CHECK(has(desk.log, "main maximized " + number(most.width) + "x" + number(most.height)));
    CHECK(desk.main.normalBounds() == normal);

    desk.main.show(ShowCommand::Minimize);
    CHECK(desk.main.state() == WindowState::Minimized);
    CHECK(has(desk.log, "main minimized 0x0"));
    CHECK(desk.main.normalBounds() == normal);

    desk.main.show(ShowCommand::Restore);
    CHECK(desk.main.state() == WindowState::Maximized);
    desk.main.show(ShowCommand::Restore);
    CHECK(desk.main.state() == WindowState::Normal);
    CHECK(desk.main.bounds() == normal);
}

TEST_CASE("a window that comes up minimised leaves the others in peace") {
    Desk desk;
    desk.b.focus();
    Probe other("other", desk.log);
    REQUIRE(other.createMain());
    other.show(ShowCommand::Minimize);
    CHECK(other.state() == WindowState::Minimized);
    CHECK(other.visible());
    CHECK(desk.b.focused());
    other.show(ShowCommand::Restore);
    CHECK(other.state() == WindowState::Normal);
    CHECK_FALSE(desk.b.focused());
}

TEST_CASE("a main window does not get smaller than its smallest size") {
    Desk desk;
    desk.main.least = {320, 240};
    contract::dragFrame(desk.main, {100, 100, 150, 120});
    CHECK(desk.main.bounds() == Rect{100, 100, 420, 340});
    contract::dragFrame(desk.main, {100, 100, 500, 400});
    CHECK(desk.main.bounds() == Rect{100, 100, 500, 400});
}

TEST_CASE("what the desktop tells a window") {
    Desk desk;
    SUBCASE("dropped files, when they are welcome") {
        const std::vector<std::string> paths{"C:\\a.exe", "C:\\Program Files\\b c.exe"};
        contract::dropFiles(desk.a, paths);
        CHECK(desk.a.dropped.empty());
        desk.a.acceptFiles(true);
        contract::dropFiles(desk.a, paths);
        CHECK(desk.a.dropped == paths);
    }
    SUBCASE("new system colours, to the innermost control") {
        Probe inner("inner", desk.log);
        REQUIRE(inner.createIn(&desk.a, {0, 0, 20, 20}));
        desk.log.clear();
        contract::changeSystemColors(desk.main);
        for (const char* entry : {"main colors", "a colors", "b colors", "inner colors"}) {
            CHECK(count(desk.log, entry) == 1);
        }
    }
    SUBCASE("the shell is back: main windows only") {
        contract::restartShell(desk.main);
        CHECK(desk.log == Log{"main taskbar"});
    }
    SUBCASE("the session ends") {
        contract::endSession(desk.main);
        CHECK(desk.log == Log{"main endSession"});
    }
}

TEST_CASE("screens are found by rectangle") {
    contract::freshMachine();
    const Size screen = screenSize();
    CHECK(screen.width > 0);
    CHECK(screen.height > 0);
    const Rect whole = Rect::fromSize({}, screen);
    const Rect work = nearestWorkArea({10, 10, 20, 20});
    CHECK(work.intersect(whole) == work);
    CHECK_FALSE(work.empty());
    CHECK(nearestWorkArea({-30000, -30000, -29000, -29000}) == work);
    CHECK(onAnyScreen({-50, -50, 1, 1}));
    CHECK_FALSE(onAnyScreen({-50, -50, 0, 0}));  // its last pixel is -1, -1
    CHECK_FALSE(onAnyScreen({screen.width, 0, screen.width + 10, 10}));
    CHECK_FALSE(onAnyScreen({10, 10, 10, 10}));
}
