// How two copies of the program find each other, and what can be learned of any window by its number.
#include "platform/Instance.h"

#include "contract/Probe.h"
#include "platform/OtherWindows.h"

using namespace contract;
using namespace platform;

TEST_CASE_FIXTURE(Fresh, "a mutex exists for as long as somebody has it open") {
    const std::string name = "Kestrum2 Contract";
    CreatedMutex first = createMutex(name);
    REQUIRE(first.handle);
    CHECK_FALSE(first.existed);
    CreatedMutex second = createMutex(name);
    CHECK(second.handle);
    CHECK(second.existed);
    CHECK_FALSE(createMutex(name + " 2").existed);

    releaseMutex(first.handle);  // which does not end it
    releaseMutex(first.handle);
    releaseMutex({});
    CHECK(createMutex(name).existed);
    first.handle.reset();
    CHECK(createMutex(name).existed);
    second.handle.reset();
    CHECK_FALSE(createMutex(name).existed);
    CHECK_FALSE(createMutex(name).existed);  // the one before has closed itself

    holdClosedMutex(name);
    const CreatedMutex denied = createMutex(name);
    CHECK_FALSE(denied.handle);
    CHECK_FALSE(denied.existed);
}

TEST_CASE_FIXTURE(Desk, "a number on a window, for others to find") {
    const std::uintptr_t number = main.native();
    CHECK(windowProperty(number, "Mark") == 0);
    CHECK(setWindowProperty(main, "Other", 8));
    for (const std::uintptr_t value : {7, 9}) {
        CHECK(setWindowProperty(main, "Mark", value));
        CHECK(windowProperty(number, "Mark") == value);
    }
    CHECK(windowProperty(a.native(), "Mark") == 0);
    removeWindowProperty(main, "Mark");
    CHECK(windowProperty(number, "Mark") == 0);
    CHECK(windowProperty(number, "Other") == 8);
    main.destroy();
    CHECK(windowProperty(number, "Other") == 0);
}

TEST_CASE_FIXTURE(Desk, "windows are listed, the uppermost first, and tell of themselves") {
    Probe above("above", log, asMain());
    Probe hidden("hidden", log, asMain());
    Probe dialog("dialog", log, asDialogOf(main));
    Probe list("list", log, asListOf(a, {200, 200, 300, 300}));
    above.show(ShowCommand::Show);
    const std::vector<std::uintptr_t> all = topLevelWindowNumbers();
    const auto at = [&](const Window& window) { return std::find(all.begin(), all.end(), window.native()); };
    for (const Window* listed : {&main, &above, &hidden, &dialog, &list}) CHECK(at(*listed) != all.end());
    CHECK(at(a) == all.end());
    CHECK(at(above) < at(main));

    const WindowFacts facts = windowFacts(main.native()).value_or(WindowFacts{});
    CHECK(facts.caption == "main");
    CHECK(facts.className == "ProbeMain");
    CHECK(facts.process == currentProcessId());
    CHECK(facts.visible);
    CHECK(facts.owner == 0);
    constexpr std::uint32_t kOverlapped = 0x00CF'0000;  // caption, system menu, thick frame, both boxes
    CHECK((facts.style & kOverlapped) == kOverlapped);
    for (const Probe* owned : {&dialog, &list}) {
        CAPTURE(owned->text());
        const WindowFacts theirs = windowFacts(owned->native()).value_or(WindowFacts{});
        CHECK_FALSE(theirs.visible);
        CHECK(theirs.owner == main.native());
        CHECK(theirs.parent == main.native());
    }
    CHECK(windowFacts(dialog.native())->className == "#32770");
    CHECK(parentWindow(a.native()) == main.native());
    CHECK(parentWindow(dialog.native()) == main.native());  // of a dialog: its owner
    CHECK(parentWindow(main.native()) == 0);
    CHECK(facts.parent == 0);

    main.show(ShowCommand::Hide);
    main.setText(std::string(1023, 'x') + "yz");
    const WindowFacts later = windowFacts(main.native()).value_or(WindowFacts{});
    CHECK_FALSE(later.visible);
    CHECK(later.caption == std::string(1023, 'x'));
}

TEST_CASE_FIXTURE(Desk, "a window is shown in its normal state, whatever it was in, and brought to the front") {
    const Rect normal = main.bounds();
    for (const ShowCommand before : {ShowCommand::Minimize, ShowCommand::Maximize, ShowCommand::Hide}) {
        CAPTURE(static_cast<int>(before));
        main.show(before);
        showNormalAsync(main.native());
        CHECK(waitFor([&] { return main.visible() && main.state() == WindowState::Normal; }));
        CHECK(main.bounds() == normal);
    }
    b.focus();
    Probe above("above", log, asMain());
    above.show(ShowCommand::Show);
    pumpMessages();
    CHECK_FALSE(b.focused());
    bringWindowToFront(main.native());
    CHECK(waitFor([&] { return b.focused(); }));
}

TEST_CASE_FIXTURE(Desk, "a text sent to a window has arrived when the call returns") {
    for (const std::string& text :
         {std::string("C:\\Ordner \xC3\xBC\\a.exe"), std::string(69999, 'x') + "y", std::string()}) {
        sendText(main.native(), text);
        CHECK(main.text() == text);
        CHECK(count(log, "main says " + text) == 1);
    }
}

TEST_CASE_FIXTURE(Desk, "a window is found by its class and its caption, in either case") {
    constexpr char kFound[] = "Kestrum 2 Contract Found";
    const auto found = [&kFound] { return findWindow("ProbeMain", kFound); };
    main.setText(kFound);
    CHECK(found() == main.native());
    CHECK(findWindow("pROBEmAIN", "kestrum 2 contract FOUND") == main.native());
    CHECK(findWindow("ProbeMain", "Kestrum 2 Contract") == 0);
    CHECK(findWindow("Probe", kFound) == 0);
    a.setText("Kestrum 2 Contract Inside");
    CHECK(findWindow("Probe", "Kestrum 2 Contract Inside") == 0);  // no top-level window

    Probe second(kFound, log, asMain());
    second.show(ShowCommand::Show);
    CHECK(found() == second.native());
    main.bringToFront();
    CHECK(waitFor([&] { return found() == main.native(); }));
    main.show(ShowCommand::Hide);
    second.destroy();
    CHECK(found() == main.native());  // hidden or not
    main.destroy();
    CHECK(found() == 0);
}

TEST_CASE_FIXTURE(Desk, "a window asked to close is asked when messages run") {
    main.keepOpen = true;
    postClose(main.native());
    postClose(0);
    CHECK_FALSE(has(log, "main close"));
    pumpMessages();
    CHECK(count(log, "main close") == 1);
    main.keepOpen = false;
    postClose(main.native());
    postClose(main.native());  // by then it is gone
    pumpMessages();
    CHECK_FALSE(main.exists());
}

TEST_CASE_FIXTURE(Desk, "a window that is gone, or never was, is refused by every call") {
    const std::uintptr_t gone = a.native();
    a.destroy();
    CHECK_FALSE(setWindowProperty(a, "Mark", 1));
    removeWindowProperty(a, "Mark");
    for (const std::uintptr_t number : {gone, std::uintptr_t{0}, std::uintptr_t{0xFFFF}}) {  // 0xFFFF: all windows
        CAPTURE(number);
        CHECK(windowProperty(number, "Mark") == 0);
        CHECK(parentWindow(number) == 0);
        CHECK_FALSE(windowFacts(number));
        showNormalAsync(number);
        bringWindowToFront(number);
        sendText(number, "text");
    }
    pumpMessages();
    CHECK(main.text() == "main");
    CHECK(b.text() == "b");
    CHECK_FALSE(has(log, "main says text"));
}
