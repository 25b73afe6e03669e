#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>

#include "controls/FrmMsgBox.h"
#include "controls/MsgBoxLayout.h"
#include "platform/sim/Sim.h"

namespace {

namespace sim = platform::sim;
namespace key = platform::key;
using controls::kMsgNo;
using controls::kMsgYes;
using controls::MsgBoxLayout;
using controls::MsgStyle;
using platform::Rect;
using platform::Size;
using platform::Window;

const std::string kTitle = "Kestrum - Info";
constexpr Size kPlenty{1200, 700};

struct Asker {
    explicit Asker(const Rect& bounds = {100, 100, 983, 545}) {
        sim::reset();
        platform::WindowSpec spec;
        spec.kind = platform::WindowKind::Main;
        spec.className = "Form1";
        spec.bounds = bounds;
        REQUIRE(owner.create(spec));
        owner.show(platform::ShowCommand::Show);
    }

    // Shows a box that `script` answers.
    int Ask(MsgStyle style, const std::function<void(Window&)>& script, const std::string& text = "Sure?",
            bool sound = false) {
        sim::whenModal(script);
        return boxes.Show(text, style, kTitle, owner, sound);
    }

    Window owner;
    controls::MsgBoxes boxes;
};

// The middle of a button of the box.
void ClickButton(const std::string& caption) {
    Window* button = sim::findWindow(caption);
    REQUIRE(button != nullptr);
    const Size size = button->clientSize();
    sim::click(*button, {size.width / 2, size.height / 2});
}

const auto kCloseIt = [](Window& box) { sim::closeBox(box); };

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "|") + line;
    return text;
}

}  // namespace

TEST_CASE("A message box gives the button's answer") {
    Asker asker;
    const int windows = sim::openHandles();
    CHECK(asker.Ask(MsgStyle::Question, kCloseIt) == 0);  // no box before it
    CHECK(asker.Ask(MsgStyle::Question, [](Window&) { ClickButton("Yes"); }) == kMsgYes);
    CHECK(asker.Ask(MsgStyle::Question, kCloseIt) == kMsgYes);
    CHECK(asker.Ask(MsgStyle::Question, [](Window&) { ClickButton("No"); }) == kMsgNo);
    CHECK(asker.Ask(MsgStyle::Question, kCloseIt) == kMsgNo);
    CHECK(asker.Ask(MsgStyle::Question, [](Window&) { sim::pressKey('Y'); }) == kMsgYes);
    CHECK(asker.Ask(MsgStyle::Information, kCloseIt) == kMsgYes);
    CHECK(asker.Ask(MsgStyle::Information, [](Window&) { ClickButton("OK"); }) == kMsgNo);
    CHECK(asker.boxes.LastAnswer() == kMsgNo);

    asker.Ask(MsgStyle::Question, [&](Window& box) {
        CHECK(box.text() == kTitle);
        CHECK_FALSE(asker.owner.enabled());
        CHECK(asker.Ask(MsgStyle::Information, kCloseIt) == kMsgNo);  // a timer's box over the first one
        sim::closeBox(box);
    });
    CHECK(asker.owner.enabled());
    CHECK(sim::openHandles() == windows);
}

TEST_CASE("A message box works with the keyboard") {
    struct Case {
        MsgStyle style;
        std::vector<std::uint16_t> keys;
        int answer;
    };
    const auto question = MsgStyle::Question;
    const auto note = MsgStyle::Information;
    const Case cases[] = {
        {question, {key::kEnter}, kMsgYes},
        {question, {key::kSpace}, kMsgYes},
        {question, {'Y'}, kMsgYes},
        {question, {'N'}, kMsgNo},
        {question, {key::kEscape}, kMsgNo},
        {question, {key::kTab, key::kEnter}, kMsgNo},
        {question, {key::kTab, key::kTab, key::kSpace}, kMsgYes},
        {question, {key::kRight, key::kEnter}, kMsgNo},
        {question, {key::kDown, key::kLeft, key::kEnter}, kMsgYes},
        {question, {'O', key::kRight, key::kSpace}, kMsgNo},
        {note, {key::kEnter}, kMsgNo},
        {note, {key::kEscape}, kMsgNo},
        {note, {'O'}, kMsgNo},
        {note, {'Y', 'N', key::kRight, key::kSpace}, kMsgNo},
    };
    for (const Case& one : cases) {
        Asker asker;
        CAPTURE(one.keys.back());
        CAPTURE(one.keys.size());
        const int answer = asker.Ask(one.style, [&](Window& box) {
            for (const std::uint16_t code : one.keys) {
                REQUIRE(box.exists());
                sim::pressKey(code);
            }
        });
        CHECK(answer == one.answer);
    }

    Asker asker;
    CHECK(asker.Ask(MsgStyle::Question, [&](Window& box) {
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
    }) == kMsgNo);
}

TEST_CASE("A message box's button is pressed and let go over it") {
    Asker asker;
    asker.Ask(MsgStyle::Question, [](Window& box) {
        Window* yes = sim::findWindow("Yes");
        sim::mouseDown(*yes, {5, 5});
        sim::mouseUp(*yes, {-20, 5});
        CHECK(box.exists());
        sim::mouseDown(*yes, {5, 5});
        sim::loseCapture();
        sim::mouseUp(*yes, {5, 5});
        CHECK(box.exists());
        sim::click(*yes, {5, 5}, platform::MouseButton::Right);
        CHECK(box.exists());
        sim::closeBox(box);
    });
    CHECK(asker.boxes.LastAnswer() == 0);
}

TEST_CASE("A message box is heard when sounds are on") {
    Asker asker;
    asker.Ask(MsgStyle::Question, kCloseIt);
    asker.Ask(MsgStyle::Information, kCloseIt);
    CHECK(sim::sounds().empty());
    std::vector<std::string> heard;
    asker.Ask(
        MsgStyle::Question,
        [&](Window& box) {
            heard = sim::sounds();
            sim::closeBox(box);
        },
        "Sure?", true);
    CHECK(heard == std::vector<std::string>{"SystemQuestion"});  // before the answer
    asker.Ask(MsgStyle::Information, kCloseIt, "Done.", true);
    REQUIRE(sim::sounds().size() == 2);
    CHECK(sim::sounds()[1] != "SystemQuestion");
}

TEST_CASE("A message box stands over its owner, but inside the work area") {
    const struct {
        Rect owner;
        bool centred;
    } cases[] = {{{100, 100, 983, 545}, true}, {{-700, -300, 183, 145}, false}, {{1200, 700, 2083, 1145}, false}};
    std::string longText;
    for (int i = 0; i < 2000; ++i) longText += "word ";
    for (const auto& one : cases) {
        for (const std::string& text : {std::string("Sure?"), longText}) {
            Asker asker(one.owner);
            asker.Ask(
                MsgStyle::Question,
                [&](Window& box) {
                    const Rect work = platform::nearestWorkArea(one.owner);
                    const Rect bounds = box.bounds();
                    CHECK(work.intersect(bounds) == bounds);
                    if (one.centred && text != longText) {
                        CHECK(std::abs(bounds.left + bounds.right - one.owner.left - one.owner.right) <= 1);
                        CHECK(std::abs(bounds.top + bounds.bottom - one.owner.top - one.owner.bottom) <= 1);
                    }
                    for (const char* caption : {"Yes", "No"}) {
                        const Rect button = sim::findWindow(caption)->bounds();
                        CHECK(Rect::fromSize({}, box.clientSize()).intersect(button) == button);
                    }
                    sim::closeBox(box);
                },
                text);
        }
    }
    for (const auto gone : {platform::ShowCommand::Minimize, platform::ShowCommand::Hide}) {
        Asker asker({1300, 20, 2183, 465});
        sim::setScreens({{0, 0, 1280, 800}, {1280, 0, 2304, 768}});
        asker.owner.show(gone);
        const int answer = asker.Ask(MsgStyle::Question, [&](Window& box) {
            const Rect work = platform::nearestWorkArea({1300, 20, 2183, 465});
            const Rect bounds = box.bounds();
            CHECK(box.visible());
            CHECK(sim::focusedWindow() == sim::findWindow("Yes"));
            const bool raised = std::ranges::count(sim::log(), "bringToFront " + kTitle) > 0;
            CHECK(raised == (gone == platform::ShowCommand::Hide));
            CHECK(std::abs(bounds.left + bounds.right - work.left - work.right) <= 1);
            CHECK(std::abs(bounds.top + bounds.bottom - work.top - work.bottom) <= 1);
            ClickButton("Yes");
        });
        CHECK(answer == kMsgYes);
        CHECK_FALSE((asker.owner.visible() && asker.owner.state() == platform::WindowState::Normal));
    }
}

TEST_CASE("A message box stays on top while it has the focus") {
    Asker asker;
    const auto raised = [] { return std::ranges::count(sim::log(), "setTopmost " + kTitle + " 1"); };
    asker.Ask(MsgStyle::Question, [&](Window& below) {
        auto before = raised();
        CHECK(before >= 1);
        sim::paint(below, true);
        CHECK(raised() == before + 1);
        CHECK(asker.boxes.Showing());
        asker.Ask(MsgStyle::Question, [&](Window& above) {
            before = raised();
            sim::paint(below, true);
            CHECK(raised() == before);  // it must not cover the box that is asked now
            sim::paint(above, true);
            CHECK(raised() == before + 1);
            sim::closeBox(above);
        });
        CHECK(asker.boxes.Showing());
        sim::closeBox(below);
    });
    CHECK_FALSE(asker.boxes.Showing());
}

TEST_CASE("What a message box shows") {
    Asker asker;
    asker.Ask(
        MsgStyle::Question,
        [](Window& box) {
            const Size client = box.clientSize();
            std::string text;
            for (const sim::Drawn& drawn : sim::paint(box, true)) {
                if (drawn.what == "masked") CHECK(drawn.source == platform::Point{32, 0});
                if (drawn.what != "text") continue;
                text += drawn.text + "|";
                CHECK(drawn.area.bottom <= sim::findWindow("Yes")->bounds().top);
            }
            CHECK(text == "First & last|second|");
            CHECK(sim::pixelAt(box, {0, 0}) == 10526880);
            // Within a step of the lightest colour: a gradient may end just short of it.
            CHECK((sim::pixelAt(box, {client.width - 1, client.height - 1}) & 0xFF) >= 223);
            sim::closeBox(box);
        },
        "First & last\r\nsecond");
}

TEST_CASE("A message box is laid out around its text") {
    SUBCASE("the buttons of a short text stand where they are meant to") {
        const MsgBoxLayout question = MsgBoxLayout::For("Sure?", true, kPlenty);
        CHECK(question.yes.left == 83);
        CHECK(question.okNo.left == 222);
        const MsgBoxLayout note = MsgBoxLayout::For("Done.", false, kPlenty);
        CHECK(note.okNo.left == 151);
        CHECK(note.yes.empty());
        CHECK(note.client == question.client);
        // Nor do those of a message of some ten lines.
        const MsgBoxLayout longer = MsgBoxLayout::For(std::string(500, 'm'), true, kPlenty);
        CHECK(longer.lines.size() == 10);
        CHECK(longer.yes.left == 83);
    }
    SUBCASE("a text without end takes no more room and hardly more time than what is shown of it") {
        std::string words;
        while (words.size() < 70'000) words += "some words ";
        for (const std::string& text : {std::string(5000, 'm'), std::string(70'000, 'm'), words,
                                        std::string(70'000, ' '), std::string(70'000, '\n')}) {
            for (const Size limit : {kPlenty, Size{634, 420}}) {
                const MsgBoxLayout layout = MsgBoxLayout::For(text, true, limit);
                CHECK(layout.client.height <= limit.height);
                CHECK(layout.client.width <= limit.width);
                CHECK(layout.Line(static_cast<int>(layout.lines.size()) - 1).bottom < layout.yes.top);
                CHECK(layout.lines.back() == "...");
            }
        }
    }
    SUBCASE("nothing covers anything, at any length and on any screen") {
        for (int words = 0; words < 400; words += 9) {
            for (const Size limit : {kPlenty, Size{634, 420}, Size{314, 200}}) {
                std::string text = "a";
                for (int i = 0; i < words; ++i) text += " some words";
                const MsgBoxLayout layout = MsgBoxLayout::For(text, true, limit);
                const int count = static_cast<int>(layout.lines.size());
                CAPTURE(words);
                CAPTURE(limit.width);
                REQUIRE(count > 0);
                CHECK(layout.client.height <= limit.height);
                CHECK(layout.client.width <= std::max(limit.width, 380));
                CHECK(layout.yes.right < layout.okNo.left);
                CHECK(layout.okNo.right < layout.client.width);
                CHECK(layout.Line(count - 1).bottom < layout.yes.top);
                CHECK(layout.icon.bottom < layout.yes.top);
                for (int i = 0; i < count; ++i) {
                    const std::string& line = layout.lines[static_cast<std::size_t>(i)];
                    REQUIRE(platform::textSize(line, platform::Font::Normal).width <= layout.Line(i).width());
                    REQUIRE(layout.Line(i).left >= layout.icon.right);
                }
            }
        }
    }
}

TEST_CASE("A message is broken into lines") {
    const struct {
        std::string_view text;
        int width;  // 6 pixels a byte
        std::string_view lines;
    } cases[] = {
        {"", 60, ""},
        {"one two", 60, "one two"},
        {"one two three", 60, "one two|three"},
        {"one\r\ntwo\nthree", 60, "one|two|three"},
        {"one\r\n\r\ntwo\r\n", 60, "one||two|"},
        {"a  double blank", 60, "a  double|blank"},
        {"0123456789abcdef", 60, "0123456789|abcdef"},
        {"to 0123456789abcdef", 60, "to|0123456789|abcdef"},
        {"blanks at the end     ", 102, "blanks at the end"},
        {"exactly 10", 60, "exactly 10"},
        {"wide", 1, "w|i|d|e"},
        {"\xC3\xA4\xC3\xB6\xC3\xBC", 18, "\xC3\xA4|\xC3\xB6|\xC3\xBC"},  // never inside a character
        {"\xC3\xA4\xC3\xB6", 1, "\xC3\xA4|\xC3\xB6"},
        {"\xBF\xBF\xBF", 12, "\xBF\xBF\xBF"},  // no character begins here: kept together
    };
    for (const auto& one : cases) {
        CAPTURE(one.text);
        CHECK(Joined(controls::WrapText(one.text, one.width)) == one.lines);
    }
    for (const char* text : {"one two three four", "one\ntwo\nthree", "onetwothree"}) {
        const std::vector<std::string> whole = controls::WrapText(text, 24);
        const std::vector<std::string> begun = controls::WrapText(text, 24, 2);
        REQUIRE(begun.size() == 2);
        CHECK(std::equal(begun.begin(), begun.end(), whole.begin()));
    }
}
