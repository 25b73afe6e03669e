#include "controls/FlatTinyCombo.h"

#include <functional>
#include <optional>

#include "ControlFixture.h"

namespace {

namespace sim = platform::sim;
namespace key = platform::key;
using controls::FlatTinyCombo;
using platform::Color;
using platform::Point;
using platform::Rect;
using platform::rgb;
using platform::SysColor;
using platform::systemColor;
using platform::Window;

constexpr int kItem = 13;  // height of a line of text
constexpr std::uint16_t kF4 = 0x73;

struct Combo : ControlFixture<FlatTinyCombo> {
    explicit Combo(int items = 5, const Rect& bounds = {50, 40, 150, 40 + kItem + 2}) : ControlFixture(bounds) {
        for (int i = 0; i < items; ++i) control.AddItem(std::string(1, static_cast<char>('A' + i)) + " item");
        control.Click = [this](std::int16_t index) { clicks.push_back(index); };
        control.focus();
    }

    Window* List() const {
        for (Window* window : sim::topLevelWindows()) {
            if (window != &form && window->visible()) return window;
        }
        return nullptr;
    }
    void OpenByMouse() {
        sim::click(control, {5, 5});
        REQUIRE(control.Dropped());
        REQUIRE(List() != nullptr);
    }
    // The middle of a row of the list, in the client pixels of the control.
    Point RowOnControl(int row) const {
        const Point list = List()->toScreen({20, row * kItem + kItem / 2});
        const Point origin = control.toScreen({0, 0});
        return {list.x - origin.x, list.y - origin.y};
    }
    // The text of the highlighted row, if it is shown.
    std::optional<std::string> Highlighted() const {
        for (const sim::Drawn& drawn : sim::paint(*List(), true)) {
            if (drawn.what == "text" && drawn.color == systemColor(SysColor::HighlightText)) return drawn.text;
        }
        return std::nullopt;
    }

    std::vector<int> clicks;
};

using Indexes = std::vector<int>;

}  // namespace

TEST_CASE("A combo box keeps its index whatever happens to its items") {
    Combo combo(0);
    FlatTinyCombo& box = combo.control;
    CHECK(box.GetIndex() == 0);
    box.SelectItem(2);
    CHECK(combo.Painted("text").front().text.empty());
    for (const char* text : {"one", "two", "three"}) box.AddItem(text);
    CHECK(combo.Painted("text").front().text == "three");
    box.Clear();
    CHECK(box.GetIndex() == 2);
    CHECK(combo.Painted("text").front().text.empty());
    sim::click(box, {5, 5});  // nothing to show
    sim::pressKey(key::kDown);
    CHECK_FALSE(box.Dropped());
    box.SelectItem(0);
    CHECK(box.GetIndex() == 0);
    box.SelectItem(100'000);
    CHECK(box.GetIndex() == 32766);
    CHECK(combo.clicks.empty());
}

TEST_CASE("The face of a combo box has its button, its arrow, and the swatch of a colour") {
    Combo combo(0);
    FlatTinyCombo& box = combo.control;
    constexpr int kWidth = 100;
    const auto grey = [](Color color, int level) { return color == rgb(level, level, level); };

    sim::setPointer(combo.form, {0, 0});
    CHECK(grey(combo.PixelAt(kWidth - 14, 1), 112));
    CHECK(combo.PixelAt(kWidth - 15, 7) == systemColor(SysColor::Window));
    for (int line = 0; line < 4; ++line) {
        CAPTURE(line);
        int ink = 0;
        for (int x = kWidth - 14; x < kWidth - 2; ++x) {
            if (combo.PixelAt(x, 6 + line) != 0) continue;
            CHECK((x >= kWidth - 12 + line && x < kWidth - 5 - line));
            ++ink;
        }
        CHECK(ink == 7 - 2 * line);
    }
    int hovers = 0;
    int lefts = 0;
    box.Hover = [&] { ++hovers; };
    box.Left = [&] { ++lefts; };
    sim::setPointer(box, {5, 5});
    sim::setPointer(box, {6, 5});
    CHECK(hovers == 2);
    CHECK(grey(combo.PixelAt(kWidth - 14, 1), 192));
    CHECK(lefts == 0);
    sim::setPointer(combo.form, {0, 0});
    CHECK(lefts == 1);
    CHECK(grey(combo.PixelAt(kWidth - 14, 1), 112));

    const struct {
        std::string text;
        std::optional<Color> color;
    } cases[] = {
        {"Black", rgb(0, 0, 0)},       {"Blue", rgb(0, 0, 255)},     {"Cyan", rgb(0, 255, 255)},
        {"Green", rgb(0, 255, 0)},     {"Purple", rgb(255, 0, 255)}, {"Red", rgb(255, 0, 0)},
        {"White", rgb(255, 255, 255)}, {"Yellow", rgb(255, 255, 0)}, {"purple", std::nullopt},
        {"Red ", std::nullopt},
    };
    for (const auto& one : cases) box.AddItem(one.text);
    combo.OpenByMouse();
    Window& list = *combo.List();
    sim::paint(list, true);
    int row = 0;
    for (const auto& one : cases) {
        CAPTURE(one.text);
        box.SelectItem(row);
        // The face's item begins one pixel below its upper edge.
        CHECK((combo.PixelAt(kWidth - 14, 1) == one.color) == one.color.has_value());
        CHECK((combo.PixelAt(kWidth - 5, 1 + kItem - 4) == one.color) == one.color.has_value());
        CHECK(combo.PixelAt(kWidth - 4, 5) != one.color);
        CHECK(combo.PixelAt(kWidth - 14, 1 + kItem - 3) != one.color);
        CHECK(combo.PixelAt(kWidth - 9, 9) != one.color);  // the tip of the arrow
        const int top = row * kItem;
        const Color ground = systemColor(SysColor::Menu);
        CHECK(sim::pixelAt(list, {kWidth - 14, top}) == one.color.value_or(ground));
        CHECK(sim::pixelAt(list, {kWidth - 5, top + kItem - 4}) == one.color.value_or(ground));
        const Color around = one.color ? systemColor(SysColor::ButtonShadow) : ground;
        CHECK(sim::pixelAt(list, {kWidth - 14, top + kItem - 3}) == around);
        CHECK(sim::pixelAt(list, {kWidth - 15, top + 1}) == around);
        ++row;
    }
}

TEST_CASE("The list of a combo box picks with the mouse") {
    Combo combo;
    FlatTinyCombo& box = combo.control;
    const int windows = sim::openHandles("window");
    combo.OpenByMouse();
    Window& list = *combo.List();
    CHECK(list.bounds().top == box.toScreen({0, 0}).y + kItem + 2);
    CHECK(list.clientSize().height == 5 * kItem);
    CHECK(box.focused());
    CHECK(combo.Highlighted() == "A item");
    for (const sim::Drawn& drawn : sim::paint(list, true)) {
        if (drawn.what != "text" || drawn.text == "A item") continue;
        CHECK(drawn.color == systemColor(SysColor::MenuText));
    }

    SUBCASE("a click picks, also what was picked before") {
        sim::setPointer(box, combo.RowOnControl(3));
        CHECK(combo.Highlighted() == "D item");
        sim::click(box, combo.RowOnControl(3));
        CHECK(combo.clicks == Indexes{3});
        combo.OpenByMouse();
        sim::click(box, combo.RowOnControl(3));
        CHECK(combo.clicks == Indexes{3, 3});
        CHECK(box.GetIndex() == 3);
    }
    SUBCASE("pressed on the face, drawn to a row, let go") {
        sim::click(box, {5, 5});
        sim::mouseDown(box, {5, 5});
        sim::mouseUp(box, combo.RowOnControl(1));
        CHECK(combo.clicks == Indexes{1});
    }
    SUBCASE("the receiver may fill the box anew") {
        box.Click = [&](std::int16_t) {
            box.Clear();
            box.AddItem("new");
        };
        sim::click(box, combo.RowOnControl(4));
        CHECK(box.GetIndex() == 4);
    }
    CHECK_FALSE(box.Dropped());
    CHECK_FALSE(box.captured());
    CHECK(sim::openHandles("window") == windows);
}

TEST_CASE("What closes the list of a combo box without a choice") {
    const struct {
        std::string what;
        std::function<void(Combo&)> act;
    } cases[] = {
        {"a second click on the face",
         [](Combo& c) {
             sim::click(c.control, {5, 5});
         }},
        {"a press elsewhere in the window",
         [](Combo& c) {
             sim::click(c.form, {300, 300});
         }},
        {"the right button elsewhere",
         [](Combo& c) {
             sim::click(c.form, {300, 300}, platform::MouseButton::Right);
         }},
        {"Escape",
         [](Combo&) {
             sim::pressKey(key::kDown);
             sim::pressKey(key::kEscape);
         }},
        {"another window takes the mouse", [](Combo&) { sim::loseCapture(); }},
        {"the focus goes", [](Combo& c) { c.form.focus(); }},
        {"it is disabled", [](Combo& c) { c.control.SetEnabled(false); }},
        {"its items change", [](Combo& c) { c.control.AddItem("more"); }},
        {"it is destroyed", [](Combo& c) { c.control.destroy(); }},
    };
    for (const auto& one : cases) {
        CAPTURE(one.what);
        Combo combo;
        combo.control.SelectItem(1);
        combo.OpenByMouse();
        sim::setPointer(combo.control, combo.RowOnControl(3));
        one.act(combo);
        CHECK_FALSE(combo.control.Dropped());
        CHECK(combo.List() == nullptr);
        CHECK_FALSE(combo.control.captured());
        CHECK(combo.control.GetIndex() == 1);
        CHECK(combo.clicks.empty());
    }
}

TEST_CASE("A combo box works with the keyboard") {
    struct Press {
        std::uint16_t code;
        platform::Modifiers modifiers{};
    };
    const Press altDown{key::kDown, {.alt = true}};
    const Press altUp{key::kUp, {.alt = true}};
    const struct {
        std::vector<Press> presses;
        Indexes clicks;
        bool dropped;
    } cases[] = {
        // closed: each change is told at once
        {{{key::kDown}, {key::kDown}, {key::kUp}}, {3, 4, 3}, false},
        {{{key::kHome}, {key::kUp}, {key::kEnd}, {key::kDown}}, {0, 4}, false},
        {{{'B'}, {'B'}, {'X'}, {'D', {.ctrl = true}}, {'E'}}, {1, 4}, false},
        {{{key::kEnter}, {key::kEscape}, {key::kPageDown}}, {}, false},
        // dropped: only what is picked
        {{{kF4}}, {}, true},
        {{altDown}, {}, true},
        {{{key::kSpace}, {key::kDown}, {key::kDown}}, {}, true},
        {{{key::kSpace}, {key::kDown}, {key::kDown}, {key::kEnter}}, {4}, false},
        {{{kF4}, {key::kHome}, {kF4}}, {0}, false},
        {{altDown, {key::kPageDown}, altUp}, {4}, false},
        {{{kF4}, {key::kPageUp}, {'C'}, {key::kUp}, {key::kSpace}}, {1}, false},
        {{{kF4, {.alt = true}}}, {}, false},  // closes the window
    };
    for (const auto& one : cases) {
        Combo combo;
        combo.control.SelectItem(2);
        CAPTURE(one.presses.front().code);
        CAPTURE(one.presses.size());
        for (const Press& press : one.presses) sim::pressKey(press.code, press.modifiers);
        CHECK(combo.clicks == one.clicks);
        CHECK(combo.control.Dropped() == one.dropped);
        CHECK(combo.control.GetIndex() == (one.clicks.empty() ? 2 : one.clicks.back()));
    }
    Combo combo;
    for (int i = 0; i < 4; ++i) sim::keyDown(key::kSpace);  // held down
    CHECK(combo.control.Dropped());
    CHECK(combo.clicks.empty());
}

TEST_CASE("The list of a combo box stays on the screen and scrolls") {
    Combo combo(26);
    FlatTinyCombo& box = combo.control;
    const Rect screen{0, 0, 640, 240};
    const Rect work{0, 0, 640, 210};
    sim::setScreens({screen});
    for (const Rect& place : {Rect{0, 20, 400, 160}, Rect{560, 60, 960, 260}, Rect{-100, -20, 300, 130}}) {
        combo.form.setBounds(place);
        combo.OpenByMouse();
        Window& list = *combo.List();
        CHECK(work.intersect(list.bounds()) == list.bounds());
        const Rect face = Rect::fromSize(box.toScreen({0, 0}), box.clientSize());
        CHECK_FALSE(list.bounds().intersects(face.intersect(work)));
        const bool upwards = list.bounds().bottom <= face.top;
        CHECK(upwards == (face.top - work.top > work.bottom - face.bottom));
        sim::pressKey(key::kEscape);
    }

    combo.form.setBounds({0, 0, 400, 160});
    combo.OpenByMouse();
    Window& list = *combo.List();
    const auto shown = [&] {
        std::string letters;
        for (const sim::Drawn& drawn : sim::paint(list, true)) letters += drawn.text.substr(0, 1);
        return letters;
    };
    const auto pointAt = [&](int y) {
        const Point at = list.toScreen({20, y});
        const Point origin = box.toScreen({0, 0});
        return Point{at.x - origin.x, at.y - origin.y};
    };
    const std::string first = shown();
    const int rows = static_cast<int>(first.size());
    REQUIRE(rows > 4);
    REQUIRE(rows < 20);
    CHECK(first.front() == 'A');
    sim::wheel(box, pointAt(20), -120);
    CHECK(shown().front() == 'D');
    sim::wheel(box, pointAt(20), 1200);
    CHECK(shown() == first);
    sim::pressKey(key::kEnd);
    CHECK(shown().back() == 'Z');
    CHECK(combo.Highlighted() == "Z item");
    sim::pressKey(key::kHome);

    // The pointer rests on the lower arrow, then on no row and no arrow.
    sim::setPointer(box, pointAt(list.clientSize().height - 2));
    sim::run(1000);
    const std::string scrolled = shown();
    CHECK(scrolled.front() > 'A');
    CHECK(scrolled.size() == first.size());
    sim::setPointer(box, {5, 5});
    sim::run(1000);
    CHECK(shown() == scrolled);
    sim::click(box, pointAt(list.clientSize().height - 2));  // an arrow is no row
    CHECK(combo.clicks.empty());

    // The row that is picked is the one that was painted under the pointer.
    const int y = list.clientSize().height / 2;
    char under = 0;
    for (const sim::Drawn& drawn : sim::paint(list, true)) {
        if (drawn.what == "text" && drawn.area.top <= y && drawn.area.bottom > y) under = drawn.text[0];
    }
    sim::click(box, pointAt(y));
    CHECK(combo.clicks == Indexes{under - 'A'});
}
