#include "controls/FlatTinyCombo.h"

#include <functional>

#include "ControlFixture.h"

using namespace controls;
using namespace platform;

namespace {

constexpr int kItem = 13;  // height of a line of text
constexpr int kWidth = 100;
constexpr std::uint16_t kF4 = 0x73;
constexpr Point kFace{5, 5};
constexpr Point kElsewhere{300, 300};
using Indexes = std::vector<int>;

struct Combo : ControlFixture<FlatTinyCombo> {
    explicit Combo(int items = 5) : ControlFixture({50, 40, 50 + kWidth, 40 + kItem + 2}) {
        for (int i = 0; i < items; ++i) box.AddItem(std::string(1, static_cast<char>('A' + i)) + " item");
        box.Click = [this](std::int16_t index) { clicks.push_back(index); };
        box.focus();
    }

    Window* List() const {
        for (Window* window : sim::topLevelWindows()) {
            if (window != &form && window->visible()) return window;
        }
        return nullptr;
    }
    Window& OpenByMouse() {
        sim::click(box, kFace);
        REQUIRE(box.Dropped());
        REQUIRE(List() != nullptr);
        return *List();
    }
    // A height on the list, in the client pixels of the control; that of the middle of a row.
    Point OnControl(int y) const {
        const Point list = List()->toScreen({20, y});
        const Point origin = box.toScreen({0, 0});
        return {list.x - origin.x, list.y - origin.y};
    }
    Point RowOnControl(int row) const { return OnControl(row * kItem + kItem / 2); }
    // First letters of the rows that the list shows, the highlighted one in brackets.
    std::string Shown() const {
        std::string letters;
        for (const sim::Drawn& drawn : sim::paint(*List(), true)) {
            const std::string letter = drawn.text.substr(0, 1);
            const bool lit = drawn.what == "text" && drawn.color == systemColor(SysColor::HighlightText);
            letters += lit ? "[" + letter + "]" : letter;
        }
        return letters;
    }

    FlatTinyCombo& box = control;
    Indexes clicks;
};

}  // namespace

TEST_CASE("A combo box keeps its index whatever happens to its items") {
    Combo combo(0);
    FlatTinyCombo& box = combo.box;
    const auto face = [&] { return combo.Painted("text").front().text; };
    box.SelectItem(2);
    CHECK(face().empty());
    for (const char* text : {"one", "two", "three"}) box.AddItem(text);
    CHECK(face() == "three");
    box.setBounds(Rect::fromSize({50, 40}, box.PreferredSize()));
    CHECK(combo.Painted("text").front().area.width() >= textSize("three", Font::Normal).width);
    box.setBounds({50, 40, 50 + kWidth, 40 + kItem + 2});
    box.Clear();
    CHECK(box.GetIndex() == 2);
    CHECK(face().empty());
    sim::click(box, kFace);  // nothing to show
    sim::pressKey(key::kDown);
    CHECK_FALSE(box.Dropped());
    box.SelectItem(100'000);
    CHECK(box.GetIndex() == 32766);
    CHECK(combo.clicks.empty());
}

TEST_CASE("The face of a combo box has its button, which the pointer lights up, and its arrow") {
    Combo combo;
    std::string told;
    combo.box.Hover = [&] { told += "hover "; };
    combo.box.Left = [&] { told += "left "; };
    const auto button = [&] { return combo.PixelAt(kWidth - 14, 1); };
    const Color plain = button();
    CHECK(combo.PixelAt(kWidth - 15, 7) == systemColor(SysColor::Window));
    for (int line = 0; line < 4; ++line) {
        std::string ink;
        for (int x = kWidth - 12; x < kWidth - 5; ++x) ink += combo.PixelAt(x, 6 + line) == 0 ? '#' : ' ';
        CHECK(ink == std::string(line, ' ') + std::string(7 - 2 * line, '#') + std::string(line, ' '));
    }
    for (const int x : {5, 6}) sim::setPointer(combo.box, {x, 5});
    CHECK(button() > plain);
    sim::setPointer(combo.form, {0, 0});
    CHECK(button() == plain);
    CHECK(told == "hover hover left ");
}

TEST_CASE("A text that names a colour shows it, on the face and in the list") {
    Combo combo(0);
    const std::pair<std::string, Color> cases[] = {{"Black", rgb(0, 0, 0)},
                                                   {"Purple", rgb(255, 0, 255)},
                                                   {"purple", sim::kUnpainted},
                                                   {"Red ", sim::kUnpainted}};
    for (const auto& one : cases) combo.box.AddItem(one.first);
    Window& list = combo.OpenByMouse();
    sim::paint(list, true);
    int top = 0;
    for (const auto& [text, color] : cases) {
        CAPTURE(text);
        const bool named = color != sim::kUnpainted;
        combo.box.SelectItem(top / kItem);
        // The face's item begins one pixel below its upper edge.
        CHECK((combo.PixelAt(kWidth - 14, 1) == color) == named);
        CHECK((combo.PixelAt(kWidth - 5, 1 + kItem - 4) == color) == named);
        CHECK(combo.PixelAt(kWidth - 14, 1 + kItem - 3) != color);
        CHECK(combo.PixelAt(kWidth - 9, 9) != color);  // the tip of the arrow
        const Color ground = systemColor(SysColor::Menu);
        CHECK(sim::pixelAt(list, {kWidth - 14, top}) == (named ? color : ground));
        CHECK(sim::pixelAt(list, {kWidth - 5, top + kItem - 4}) == (named ? color : ground));
        CHECK(sim::pixelAt(list, {kWidth - 15, top + 1}) == (named ? systemColor(SysColor::ButtonShadow) : ground));
        top += kItem;
    }
}

TEST_CASE("The list of a combo box picks with the mouse") {
    Combo combo;
    FlatTinyCombo& box = combo.box;
    const int windows = sim::openHandles("window");
    const Window& list = combo.OpenByMouse();
    CHECK(list.bounds().top == box.toScreen({0, 0}).y + kItem + 2);
    CHECK(list.clientSize().height == 5 * kItem);
    CHECK(box.focused());
    CHECK(combo.Shown() == "[A]BCDE");

    for (const bool again : {false, true}) {  // what was picked before is picked, too
        if (again) combo.OpenByMouse();
        sim::setPointer(box, combo.RowOnControl(3));
        CHECK(combo.Shown() == "ABC[D]E");
        sim::click(box, combo.RowOnControl(3));
    }
    sim::mouseDown(box, kFace);  // drawn down to a row and let go
    sim::mouseUp(box, combo.RowOnControl(1));
    CHECK(combo.clicks == Indexes{3, 3, 1});
    box.Click = [&](std::int16_t) {  // who is told may fill the box anew
        box.Clear();
        box.AddItem("new");
    };
    combo.OpenByMouse();
    sim::click(box, combo.RowOnControl(4));
    CHECK(box.GetIndex() == 4);
    CHECK_FALSE(box.Dropped());
    CHECK_FALSE(box.captured());
    CHECK(sim::openHandles("window") == windows);
}

TEST_CASE("What closes the list of a combo box without a choice") {
    const std::pair<std::string, std::function<void(Combo&)>> cases[] = {
        {"a second click on the face", [](Combo& c) { sim::click(c.box, kFace); }},
        {"a press elsewhere in the window", [](Combo& c) { sim::click(c.form, kElsewhere); }},
        {"the right button", [](Combo& c) { sim::click(c.form, kElsewhere, MouseButton::Right); }},
        {"Escape", [](Combo&) { sim::pressKey(key::kEscape); }},
        {"another window takes the mouse", [](Combo&) { sim::loseCapture(); }},
        {"the focus goes", [](Combo& c) { c.form.focus(); }},
        {"it is disabled", [](Combo& c) { c.box.SetEnabled(false); }},
        {"its items change", [](Combo& c) { c.box.AddItem("more"); }},
        {"it is destroyed", [](Combo& c) { c.box.destroy(); }},
    };
    for (const auto& [what, act] : cases) {
        CAPTURE(what);
        Combo combo;
        combo.box.SelectItem(1);
        combo.OpenByMouse();
        sim::setPointer(combo.box, combo.RowOnControl(3));
        act(combo);
        CHECK_FALSE(combo.box.Dropped());
        CHECK(combo.List() == nullptr);
        CHECK_FALSE(combo.box.captured());
        CHECK(combo.box.GetIndex() == 1);
        CHECK(combo.clicks.empty());
    }
}

TEST_CASE("A combo box works with the keyboard") {
    struct Press {
        std::uint16_t code;
        Modifiers modifiers{};
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
        {{{key::kSpace}, {key::kDown}, {key::kDown}}, {}, true},
        {{{key::kSpace}, {key::kDown}, {key::kDown}, {key::kEnter}}, {4}, false},
        {{{kF4}, {key::kHome}, {kF4}}, {0}, false},
        {{altDown, {key::kPageDown}, altUp}, {4}, false},
        {{{kF4}, {key::kPageUp}, {'C'}, {key::kUp}, {key::kSpace}}, {1}, false},
        {{{kF4, {.alt = true}}}, {}, false},  // closes the window
    };
    for (const auto& one : cases) {
        Combo combo;
        combo.box.SelectItem(2);
        CAPTURE(one.presses.front().code);
        CAPTURE(one.presses.size());
        for (const Press& press : one.presses) sim::pressKey(press.code, press.modifiers);
        CHECK(combo.clicks == one.clicks);
        CHECK(combo.box.Dropped() == one.dropped);
    }
    Combo combo;
    for (int i = 0; i < 4; ++i) sim::keyDown(key::kSpace);  // held down
    CHECK(combo.box.Dropped());
    CHECK(combo.clicks.empty());
}

TEST_CASE("The list of a combo box stays on the screen and scrolls") {
    Combo combo(26);
    FlatTinyCombo& box = combo.box;
    const Rect work{0, 0, 640, 210};
    sim::setScreens({{0, 0, 640, 240}});
    for (const Rect& place : {Rect{0, 20, 400, 160}, Rect{560, 60, 960, 260}, Rect{-100, -20, 300, 130}}) {
        combo.form.setBounds(place);
        const Rect list = combo.OpenByMouse().bounds();
        CHECK(work.intersect(list) == list);
        const Rect face = Rect::fromSize(box.toScreen({0, 0}), box.clientSize());
        CHECK_FALSE(list.intersects(face.intersect(work)));
        const bool upwards = list.bottom <= face.top;
        CHECK(upwards == (face.top - work.top > work.bottom - face.bottom));
        sim::pressKey(key::kEscape);
    }

    combo.form.setBounds({0, 0, 400, 160});
    const int height = combo.OpenByMouse().clientSize().height;
    const std::string first = combo.Shown();
    CHECK(first.starts_with("[A]BCDE"));
    CHECK(first.size() < 20);
    sim::wheel(box, combo.OnControl(20), -120);
    CHECK(combo.Shown().front() == 'D');
    sim::wheel(box, combo.OnControl(20), 1200);
    CHECK(combo.Shown() == first);
    sim::pressKey(key::kEnd);
    CHECK(combo.Shown().ends_with("Y[Z]"));
    sim::pressKey(key::kHome);

    // The pointer rests on the lower arrow, which is no row, then elsewhere.
    const Point arrow = combo.OnControl(height - 2);
    sim::setPointer(box, arrow);
    sim::run(1000);
    const std::string scrolled = combo.Shown();
    CHECK(scrolled != first);
    sim::setPointer(box, kFace);
    sim::run(1000);
    CHECK(combo.Shown() == scrolled);
    sim::click(box, arrow);
    CHECK(combo.clicks.empty());

    // The row that is picked is the one that was painted under the pointer.
    auto rows = sim::paint(*combo.List(), true);
    std::erase_if(rows, [&](const sim::Drawn& drawn) {
        return drawn.what != "text" || !drawn.area.contains({20, height / 2});
    });
    REQUIRE(rows.size() == 1);
    sim::click(box, combo.OnControl(height / 2));
    CHECK(combo.clicks == Indexes{rows[0].text[0] - 'A'});
}
