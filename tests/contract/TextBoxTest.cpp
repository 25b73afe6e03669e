#include "platform/TextBox.h"

#include <memory>

#include "contract/Probe.h"

using namespace contract;
using namespace platform;

namespace {

// A desktop with a text box in its control "a", shown and with the focus.
struct Editing : Desk {
    std::unique_ptr<TextBox> box = std::make_unique<TextBox>();

    Editing() {
        REQUIRE(box->createBox(a, {5, 5, 95, 27}));
        CHECK_FALSE(box->visible());
        box->Accepted = [this] { log.push_back("accepted " + box->text()); };
        box->Cancelled = [this] { log.push_back("cancelled"); };
        box->FocusLost = [this] { log.push_back("lost"); };
        box->show(ShowCommand::Show);
        box->focus();
        REQUIRE(box->focused());
        log.clear();
    }
};

}  // namespace

TEST_CASE_FIXTURE(Editing, "what is typed or pasted into a text box takes the place of what is selected") {
    CHECK(box->text().empty());
    CHECK(box->bounds() == Rect{5, 5, 95, 27});
    CHECK(box->clientSize() == Size{90, 22});  // it draws its border itself
    box->setText("before");
    box->selectAll();
    const std::string typed = "gr\xC3\xBC\xC3\x9F \xE2\x82\xAC";  // letters of one, two and three bytes
    contract::typeText(typed);
    CHECK(box->text() == typed);
    contract::typeText("x");
    CHECK(box->text() == typed + "x");
    contract::pressKey('A', {false, true, false});
    contract::typeText("all");
    CHECK(box->text() == "all");
    box->setText("new");  // which puts the caret in front
    contract::typeText("a ");
    CHECK(box->text() == "a new");
    CHECK(contract::pixelAt(*box, {80, 18}) == systemColor(SysColor::Window));

    // A line that is pasted arrives with its tabs, and what comes after the line's end does not.
    box->setText("old");
    box->selectAll();
    contract::pasteText("one\ttwo\t\tthree");
    CHECK(box->text() == "one\ttwo\t\tthree");
    contract::pasteText(" and\r\nthe next line");
    CHECK(box->text() == "one\ttwo\t\tthree and");
    box->setText("a\tb");
    CHECK(box->text() == "a\tb");
    CHECK(log.empty());
}

TEST_CASE_FIXTURE(Editing, "Enter, Escape and the way of the focus are told of a text box") {
    box->setText("text");
    contract::pressKey(key::kEnter);
    contract::pressKey(key::kEscape);
    CHECK(log == Log{"accepted text", "cancelled"});
    CHECK(box->focused());
    log.clear();
    contract::pressKey(key::kTab);  // the box comes after what holds it
    CHECK(log == Log{"lost", "b focus"});
    contract::pressKey(key::kTab, {true, false, false});
    CHECK(box->focused());
    CHECK(box->text() == "text");
    box->FocusLost = [this] { box.reset(); };
    b.focus();
    CHECK_FALSE(box);
    CHECK(b.focused());
}

TEST_CASE_FIXTURE(Editing, "a text box may hide or go by whatever it tells") {
    const auto destroy = [this] { box.reset(); };
    SUBCASE("Enter") {
        box->Accepted = destroy;
        contract::pressKey(key::kEnter);
    }
    SUBCASE("Escape") {
        box->Cancelled = destroy;
        contract::pressKey(key::kEscape);
    }
    SUBCASE("hidden, it leaves the focus to what holds it") {
        box->Accepted = [this] { box->show(ShowCommand::Hide); };
        contract::pressKey(key::kEnter);
        CHECK(only(log, {"lost", "a focus"}) == Log{"lost", "a focus"});
    }
    SUBCASE("hidden while another window is active, it does so when its own is again") {
        box->FocusLost = [this] { box->show(ShowCommand::Hide); };
        Probe dialog("dialog", log, asDialogOf(main));
        dialog.show(ShowCommand::Show);
        pumpMessages();
        CHECK_FALSE(box->visible());
        dialog.destroy();
    }
    pumpMessages();
    CHECK(a.focused());
    if (box) CHECK_FALSE(box->visible());
    a.destroy();
    CHECK((!box || !box->exists()));
}
