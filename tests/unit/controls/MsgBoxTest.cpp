#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>

#include "controls/FrmMsgBox.h"
#include "controls/MsgBoxLayout.h"
#include "platform/sim/Sim.h"

using namespace controls;
using namespace platform;

namespace {

const std::string kTitle = "Kestrum - Info";
constexpr auto kQuestion = MsgStyle::Question;
constexpr auto kNote = MsgStyle::Information;
constexpr Size kPlenty{1200, 700};

struct Asker {
    explicit Asker(const Rect& bounds = {100, 100, 983, 545}) {
        sim::reset();
        REQUIRE(owner.create({WindowKind::Main, "Form1", "Form1", nullptr, bounds}));
        owner.show(ShowCommand::Show);
    }
    // Shows a box that `script` answers.
    int Ask(MsgStyle style, const std::function<void(Window&)>& script, const std::string& text = "Sure?",
            bool sound = false) {
        sim::whenModal(script);
        return boxes.Show(text, style, kTitle, owner, sound);
    }

    Window owner;
    MsgBoxes boxes;
};

std::function<void(Window&)> Clicking(const std::string& caption) {
    return [caption](Window&) {
        REQUIRE(sim::findWindow(caption) != nullptr);
        sim::click(*sim::findWindow(caption), {5, 5});
    };
}

const auto kCloseIt = [](Window& box) { sim::closeBox(box); };

bool Within(const Rect& inner, const Rect& outer) {
    return inner.intersect(outer) == inner;
}

bool SameMiddle(const Rect& a, const Rect& b) {
    return std::abs(a.left + a.right - b.left - b.right) <= 1 && std::abs(a.top + a.bottom - b.top - b.bottom) <= 1;
}

}  // namespace

TEST_CASE_FIXTURE(Asker, "A message box gives the button's answer, closed by its frame the one before") {
    const int windows = sim::openHandles();
    CHECK(Ask(kQuestion, kCloseIt) == 0);  // no box before it
    CHECK(Ask(kQuestion, Clicking("Yes")) == kMsgYes);
    CHECK(Ask(kQuestion, kCloseIt) == kMsgYes);
    CHECK(Ask(kQuestion, Clicking("No")) == kMsgNo);
    CHECK(Ask(kQuestion, kCloseIt) == kMsgNo);
    Ask(kQuestion, Clicking("Yes"));
    CHECK(Ask(kNote, kCloseIt) == kMsgYes);
    CHECK(Ask(kNote, Clicking("OK")) == kMsgNo);
    CHECK(boxes.LastAnswer() == kMsgNo);

    Ask(kQuestion, [&](Window& box) {
        CHECK(box.text() == kTitle);
        CHECK_FALSE(owner.enabled());
        CHECK(Ask(kNote, kCloseIt) == kMsgNo);  // a timer's box over the first one
        sim::closeBox(box);
    });
    CHECK(owner.enabled());
    CHECK(sim::openHandles() == windows);
}

TEST_CASE("A message box works with the keyboard") {
    const struct {
        MsgStyle style;
        std::vector<std::uint16_t> keys;
        int answer;
    } cases[] = {
        {kQuestion, {key::kEnter}, kMsgYes},
        {kQuestion, {'N'}, kMsgNo},
        {kQuestion, {key::kEscape}, kMsgNo},
        {kQuestion, {key::kTab, key::kEnter}, kMsgNo},
        {kQuestion, {key::kTab, key::kTab, key::kSpace}, kMsgYes},
        {kQuestion, {key::kRight, key::kEnter}, kMsgNo},
        {kQuestion, {key::kDown, key::kLeft, key::kEnter}, kMsgYes},
        {kQuestion, {'O', key::kRight, key::kSpace}, kMsgNo},
        {kNote, {key::kEnter}, kMsgNo},
        {kNote, {'O'}, kMsgNo},
        {kNote, {'Y', 'N', key::kRight, key::kSpace}, kMsgNo},
    };
    for (const auto& one : cases) {
        Asker asker;
        CAPTURE(one.keys.back());
        CAPTURE(one.keys.size());
        const auto press = [&](Window& box) {
            for (const std::uint16_t code : one.keys) {
                REQUIRE(box.exists());
                sim::pressKey(code);
            }
        };
        CHECK(asker.Ask(one.style, press) == one.answer);
    }

    Asker asker;
    const auto hesitate = [](Window& box) {
        sim::pressKey('Y', {.ctrl = true});
        sim::keyDown(key::kSpace);  // given up by going to another button
        sim::pressKey(key::kTab);
        sim::pressKey(key::kTab);
        sim::keyUp(key::kSpace);
        REQUIRE(box.exists());
        sim::pressKey(key::kTab);
        box.focus();  // as after a visit to another program
        CHECK(sim::focusedWindow() == sim::findWindow("No"));
        sim::pressKey(key::kEnter);
    };
    CHECK(asker.Ask(kQuestion, hesitate) == kMsgNo);
}

TEST_CASE("A message box stands over its owner, but inside the work area") {
    std::string longText;
    for (int i = 0; i < 2000; ++i) longText += "word ";
    for (const Rect owner : {Rect{100, 100, 983, 545}, Rect{-700, -300, 183, 145}, Rect{1200, 700, 2083, 1145}}) {
        for (const std::string& text : {std::string("Sure?"), longText}) {
            Asker asker(owner);
            const auto look = [&](Window& box) {
                CHECK(Within(box.bounds(), nearestWorkArea(owner)));
                if (owner.left == 100 && text != longText) CHECK(SameMiddle(box.bounds(), owner));
                for (const char* caption : {"Yes", "No"}) {
                    CHECK(Within(sim::findWindow(caption)->bounds(), Rect::fromSize({}, box.clientSize())));
                }
                sim::closeBox(box);
            };
            asker.Ask(kQuestion, look, text);
        }
    }
    for (const auto gone : {ShowCommand::Minimize, ShowCommand::Hide}) {
        const Rect second{1280, 0, 2304, 768};
        Asker asker({1300, 20, 2183, 465});
        sim::setScreens({{0, 0, 1280, 800}, second});
        asker.owner.show(gone);
        const auto look = [&](Window& box) {
            CHECK(box.visible());
            CHECK(SameMiddle(box.bounds(), nearestWorkArea(second)));
            CHECK(sim::focusedWindow() == sim::findWindow("Yes"));
            const bool raised = std::ranges::count(sim::log(), "bringToFront " + kTitle) > 0;
            CHECK(raised == (gone == ShowCommand::Hide));
            sim::pressKey('Y');
        };
        CHECK(asker.Ask(kQuestion, look) == kMsgYes);
        sim::whenModal([](Window&) {
            CHECK(sim::focusedWindow() == sim::findWindow("No"));
            sim::pressKey(key::kEnter);
        });
        CHECK_FALSE(asker.boxes.Confirm("Sure?", kTitle, asker.owner, false, Preset::No));
        CHECK_FALSE((asker.owner.visible() && asker.owner.state() == WindowState::Normal));
    }
}

TEST_CASE_FIXTURE(Asker, "Of two message boxes the last one is answered first, and each has its own answer") {
    const int outer = Ask(kQuestion, [&](Window& below) {
        const int inner = Ask(kQuestion, [&](Window& above) {
            Clicking("No")(above);  // of the first one, which waits
            REQUIRE(below.exists());
            sim::pressKey('Y');
        });
        CHECK(inner == kMsgYes);
        CHECK(sim::focusedWindow() == sim::findWindow("Yes"));
        sim::pressKey('N');
    });
    CHECK(outer == kMsgNo);
}

TEST_CASE_FIXTURE(Asker, "A message box stays on top while it has the focus") {
    const auto raisedByPainting = [](Window& box) {
        const auto raised = [] { return std::ranges::count(sim::log(), "setTopmost " + kTitle + " 1"); };
        const auto before = raised();
        CHECK(before >= 1);
        sim::paint(box, true);
        return raised() > before;
    };
    Ask(kQuestion, [&](Window& below) {
        CHECK(raisedByPainting(below));
        Ask(kQuestion, [&](Window& above) {
            CHECK_FALSE(raisedByPainting(below));  // it must not cover the box that is asked now
            CHECK(raisedByPainting(above));
            sim::closeBox(above);
        });
        CHECK(boxes.Showing());
        sim::closeBox(below);
    });
    CHECK_FALSE(boxes.Showing());
}

TEST_CASE_FIXTURE(Asker, "A message box shows its text as it is, and its picture") {
    const auto look = [](Window& box) {
        std::string text;
        for (const sim::Drawn& drawn : sim::paint(box, true)) {
            if (drawn.what == "masked") CHECK(drawn.source == Point{32, 0});
            if (drawn.what == "text") text += drawn.text + "|";
        }
        CHECK(text == "First & last|second|");
        CHECK((sim::pixelAt(box, {0, 0}) & 0xFF) < (sim::pixelAt(box, {0, box.clientSize().height - 1}) & 0xFF));
        sim::closeBox(box);
    };
    Ask(kQuestion, look, "First & last\r\nsecond");
}

TEST_CASE("The buttons of a message box stand where they are meant to while its text is short") {
    const MsgBoxLayout question = MsgBoxLayout::For("Sure?", true, kPlenty);
    CHECK(question.yes.left == 83);
    CHECK(question.okNo.left == 222);
    const MsgBoxLayout note = MsgBoxLayout::For("Done.", false, kPlenty);
    CHECK(note.okNo.left == 151);
    CHECK(note.yes.empty());
    CHECK(note.client == question.client);
    // So do those of a message of some ten lines.
    const MsgBoxLayout longer = MsgBoxLayout::For(std::string(500, 'm'), true, kPlenty);
    CHECK(longer.lines.size() == 10);
    CHECK(longer.yes.left == 83);
}

TEST_CASE("Nothing in a message box covers anything, at any length and on any screen") {
    std::vector<std::string> texts{std::string(5000, 'm'), std::string(70'000, 'm'), std::string(70'000, ' '),
                                   std::string(70'000, '\n')};
    for (const std::size_t size : {0U, 100U, 400U, 1000U, 2000U, 4000U, 70'000U}) {
        std::string& text = texts.emplace_back("a");
        while (text.size() < size) text += " some words";
    }
    for (const std::string& text : texts) {
        for (const Size limit : {kPlenty, Size{634, 420}, Size{314, 200}}) {
            const MsgBoxLayout layout = MsgBoxLayout::For(text, true, limit);
            const int count = static_cast<int>(layout.lines.size());
            CAPTURE(text.size());
            CAPTURE(limit.width);
            REQUIRE(count > 0);
            CHECK(layout.client.height <= limit.height);
            CHECK(layout.client.width <= std::max(limit.width, 380));
            CHECK(layout.yes.right < layout.okNo.left);
            CHECK(layout.okNo.right < layout.client.width);
            CHECK(layout.Line(count - 1).bottom < layout.yes.top);
            CHECK(layout.icon.bottom < layout.yes.top);
            if (text.size() >= 5000) CHECK(layout.lines.back() == "...");
            for (int i = 0; i < count; ++i) {
                const std::string& line = layout.lines[static_cast<std::size_t>(i)];
                REQUIRE(textSize(line, Font::Normal).width <= layout.Line(i).width());
                REQUIRE(layout.Line(i).left >= layout.icon.right);
            }
        }
    }
}

TEST_CASE("A message is broken into lines") {
    const struct {
        const char* text;
        int width;  // 6 pixels a byte
        std::vector<std::string> lines;
    } cases[] = {
        {"", 60, {""}},
        {"one two", 60, {"one two"}},
        {"one two three", 60, {"one two", "three"}},
        {"one\r\n\r\ntwo\nthree\r\n", 60, {"one", "", "two", "three", ""}},
        {"a  double blank", 60, {"a  double", "blank"}},
        {"to 0123456789abcdef", 60, {"to", "0123456789", "abcdef"}},
        {"blanks at the end     ", 102, {"blanks at the end"}},
        {"exactly 10", 60, {"exactly 10"}},
        {"wide", 1, {"w", "i", "d", "e"}},
        {"\xC3\xA4\xC3\xB6\xC3\xBC", 18, {"\xC3\xA4", "\xC3\xB6", "\xC3\xBC"}},  // never inside a character
        {"\xC3\xA4\xC3\xB6", 1, {"\xC3\xA4", "\xC3\xB6"}},
        {"\xBF\xBF\xBF", 12, {"\xBF\xBF\xBF"}},  // no character begins here: kept together
    };
    for (const auto& one : cases) {
        CAPTURE(one.text);
        CHECK(WrapText(one.text, one.width) == one.lines);
    }
    for (const char* text : {"one two three four", "one\ntwo\nthree", "onetwothree"}) {
        std::vector<std::string> whole = WrapText(text, 24);
        whole.resize(2);
        CHECK(WrapText(text, 24, 2) == whole);
    }
}
