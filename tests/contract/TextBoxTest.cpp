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

TEST_CASE("what is typed into a text box takes the place of what is selected") {
    Editing on;
    CHECK(on.box->text().empty());
    CHECK(on.box->bounds() == Rect{5, 5, 95, 27});
    CHECK(on.box->clientSize() == Size{90, 22});  // it draws its border itself
    on.box->setText("before");
    on.box->selectAll();
    const std::string typed = "gr\xC3\xBC\xC3\x9F \xE2\x82\xAC";  // letters of one, two and three bytes
    contract::typeText(typed);
    CHECK(on.box->text() == typed);
    contract::typeText("x");
    CHECK(on.box->text() == typed + "x");
    contract::pressKey('A', {false, true, false});
    contract::typeText("all");
    CHECK(on.box->text() == "all");
    on.box->setText("new");  // which puts the caret in front
    contract::typeText("a ");
    CHECK(on.box->text() == "a new");
    CHECK(on.log.empty());
    on.main.update();
    CHECK(contract::pixelAt(*on.box, {80, 18}) == systemColor(SysColor::Window));
}

TEST_CASE("a line that is pasted arrives with its tabs, and what comes after the line's end does not") {
    Editing on;
    on.box->setText("old");
    on.box->selectAll();
    contract::paste("one\ttwo\t\tthree");
    CHECK(on.box->text() == "one\ttwo\t\tthree");
    contract::paste(" and\r\nthe next line");
    CHECK(on.box->text() == "one\ttwo\t\tthree and");
    on.box->setText("a\tb");
    CHECK(on.box->text() == "a\tb");
    CHECK(on.log.empty());
}

TEST_CASE("Enter, Escape and the way of the focus are told of a text box") {
    Editing on;
    on.box->setText("text");
    contract::pressKey(key::kEnter);
    contract::pressKey(key::kEscape);
    CHECK(on.log == Log{"accepted text", "cancelled"});
    CHECK(on.box->focused());
    on.log.clear();
    contract::pressKey(key::kTab);  // the box comes after what holds it
    CHECK(on.log == Log{"lost", "b focus"});
    contract::pressKey(key::kTab, {true, false, false});
    CHECK(on.box->focused());
    CHECK(on.box->text() == "text");
}

TEST_CASE("a text box may hide or go by whatever it tells") {
    Editing on;
    const auto destroy = [&on] { on.box.reset(); };
    SUBCASE("Enter") {
        on.box->Accepted = destroy;
        contract::pressKey(key::kEnter);
        CHECK(on.a.focused());
    }
    SUBCASE("Escape") {
        on.box->Cancelled = destroy;
        contract::pressKey(key::kEscape);
        CHECK(on.a.focused());
    }
    SUBCASE("the focus") {
        on.box->FocusLost = destroy;
        on.b.focus();
        CHECK(on.b.focused());
    }
    SUBCASE("hidden, it leaves the focus to what holds it") {
        on.box->Accepted = [&on] { on.box->show(ShowCommand::Hide); };
        contract::pressKey(key::kEnter);
        CHECK(only(on.log, {"lost", "a focus"}) == Log{"lost", "a focus"});
        CHECK_FALSE(on.box->visible());
    }
    SUBCASE("hidden while another window is active, it does so when its own is again") {
        on.box->FocusLost = [&on] { on.box->show(ShowCommand::Hide); };
        Probe dialog("dialog", on.log);
        REQUIRE(dialog.createDialog(&on.main));
        dialog.show(ShowCommand::Show);
        pumpMessages();
        CHECK_FALSE(on.box->visible());
        dialog.destroy();
        pumpMessages();
        CHECK(on.a.focused());
    }
    SUBCASE("with what holds it") {
        on.a.destroy();
        CHECK_FALSE(on.box->exists());
    }
    pumpMessages();
}
