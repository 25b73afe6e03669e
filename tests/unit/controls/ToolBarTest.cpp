#include "controls/ToolBar.h"

#include <functional>
#include <set>

#include "ControlFixture.h"

using namespace controls;
using namespace platform;

namespace {

constexpr int kButtons = 6;
constexpr int kCheck = 4;      // a check-box button
constexpr int kSeparator = 2;  // a separator follows it
constexpr Point kGap{97, 15};  // behind that one
constexpr Point kBeside{500, 200};
using Indexes = std::vector<int>;

// A strip of six buttons, and what it reports.
struct Strip : ControlFixture<ToolBar> {
    Strip() : ControlFixture({0, 0, 400, 40}) {
        bar.SetImages(loadPictureResource(201), kButtons);
        bar.SetCurrentImage(kCheck);
        bar.SetCheckBox(true);
        bar.SetCurrentImage(kSeparator);
        bar.SetSeperator(true);
        bar.Click = [this](int index) { clicks.push_back(index); };
        bar.Hover = [this](int index) { hovers.push_back(index); };
        sim::paint(bar);
    }

    Point Middle(int index) const {
        const Rect area = bar.ButtonRect(index);
        return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    }
    void Click(int index) { sim::click(bar, Middle(index)); }
    void PointAt(int index) { sim::setPointer(bar, Middle(index)); }
    // Operations of one kind that a full paint has within a rectangle.
    std::vector<sim::Drawn> DrawnIn(const Rect& area, const std::string& what) {
        auto drawn = Painted(what);
        std::erase_if(drawn, [&](const sim::Drawn& one) { return one.area.intersect(area) != one.area; });
        return drawn;
    }
    std::size_t Count(int index, const std::string& what) { return DrawnIn(bar.ButtonRect(index), what).size(); }
    // Its look is that of a button under the pointer, or of one that is down.
    bool HasEdge(int index) { return Count(index, "edge") == 1; }
    sim::Drawn Picture(int index) { return DrawnIn(bar.ButtonRect(index), "masked").at(0); }

    ToolBar& bar = control;
    Indexes clicks, hovers;
};

}  // namespace

TEST_CASE("A toolbar's buttons lie where they are found, whatever the layout") {
    const std::vector<bool> separators{false, true, true, false};
    for (const ToolBarLayout& layout : {ToolBarLayout{separators, 5, true, true},
                                        {separators, 5, true, false},
                                        {separators, 5, false, true},
                                        {separators, 5, false, false}}) {
        const Size size = layout.Preferred();
        CAPTURE(size.width);
        CAPTURE(size.height);
        for (int y = -2; y < size.height + 2; ++y) {
            for (int x = -2; x < size.width + 2; ++x) {
                const int hit = layout.HitTest({x, y});
                for (int i = 0; i < 4; ++i) REQUIRE(layout.Button(i).contains({x, y}) == (hit == i));
            }
        }
        for (int i = 0; i < 4; ++i) {
            const Rect button = layout.Button(i);
            CHECK(std::min(button.width(), button.height()) > (layout.size24 ? 24 : 16));
            CHECK(Rect::fromSize({}, size).intersect(button) == button);
            CHECK(layout.Separator(i).empty() == !separators[static_cast<std::size_t>(i)]);
            for (int j = 0; j < 4; ++j) CHECK_FALSE(layout.Separator(i).intersects(layout.Button(j)));
        }
        CHECK((layout.horizontal ? layout.Button(0).left : layout.Button(0).top) == 5);
        for (const int none : {-1, 4}) CHECK(layout.Button(none).empty());
    }
}

TEST_CASE_FIXTURE(Strip, "A toolbar reports a press and release over one button") {
    Click(1);
    sim::click(bar, kBeside);
    sim::click(bar, Middle(3), MouseButton::Right);
    // A double click is one click, and its mark is not left behind.
    sim::doubleClick(bar, Middle(1));
    sim::doubleClick(bar, Middle(kCheck));
    CHECK(bar.IsChecked(kCheck));
    Click(1);
    CHECK_FALSE(bar.IsChecked(1));
    Click(kCheck);
    CHECK_FALSE(bar.IsChecked(kCheck));
    CHECK(clicks == Indexes{1, 1, kCheck, 1, kCheck});
    // Given up: it left the button, it lost the mouse.
    sim::mouseDown(bar, Middle(1));
    PointAt(3);
    CHECK_FALSE(bar.captured());
    PointAt(1);
    sim::mouseUp(bar, Middle(1));
    sim::mouseDown(bar, Middle(1));
    sim::loseCapture();
    sim::mouseUp(bar, Middle(1));
    CHECK(clicks.size() == 5);
}

TEST_CASE_FIXTURE(Strip, "Who is told of a click sees the new state, and may move the buttons or end the toolbar") {
    bar.Click = [&](int index) {
        clicks.push_back(index);
        bar.SetLeftIndent(3 + bar.ButtonRect(0).width());
    };
    sim::doubleClick(bar, Middle(1));  // two clicks: another button has moved under the pointer
    CHECK(clicks == Indexes{1, 0});
    bar.Click = [&](int) {
        CHECK(bar.IsChecked(kCheck));
        CHECK_FALSE(bar.captured());
        bar.destroy();
    };
    Click(kCheck);
    CHECK_FALSE(bar.exists());
}

TEST_CASE_FIXTURE(Strip, "Disabled toolbar buttons are inert") {
    // By EnableButton from 1 on, by SetUnavailable all of them; each counts on its own.
    for (const int index : {-1, 0, kButtons}) bar.EnableButton(index, false);
    Click(0);
    CHECK(clicks == Indexes{0});

    bar.EnableButton(kCheck, false);
    bar.SetUnavailable(0, true);
    bar.SetUnavailable(1, true);
    bar.EnableButton(1, false);
    bar.EnableButton(1, true);
    for (const int index : {0, 1, kCheck}) {
        CHECK_FALSE(bar.IsEnabled(index));
        Click(index);
        sim::doubleClick(bar, Middle(index));
        PointAt(index);
        CHECK(hovers.back() == index);  // its tip is still of use
        CHECK(Count(index, "masked") == 0);
        CHECK(Count(index, "disabled") == 1);
        CHECK_FALSE(HasEdge(index));
    }
    bar.EnableButton(kCheck, true);
    sim::mouseDown(bar, Middle(kCheck));
    bar.EnableButton(kCheck, false);  // while it is held
    sim::mouseUp(bar, Middle(kCheck));
    CHECK(clicks == Indexes{0});
    CHECK_FALSE(bar.IsChecked(kCheck));
}

TEST_CASE("The hovered button of a toolbar holds the mouse, and lets it go") {
    const std::pair<const char*, std::function<void(Strip&)>> cases[] = {
        {"straight out of the strip", [](Strip& s) { sim::setPointer(s.form, kBeside); }},
        {"into a gap", [](Strip& s) { sim::setPointer(s.bar, kGap); }},
        {"the strip is hidden", [](Strip& s) { s.bar.show(ShowCommand::Hide); }},
        {"a menu takes the mouse", [](Strip&) { sim::loseCapture(); }},
        {"a box disables the window", [](Strip& s) { s.form.enable(false); }},
    };
    for (const auto& [what, act] : cases) {
        CAPTURE(what);
        Strip strip;
        strip.PointAt(1);
        CHECK(strip.bar.captured());
        CHECK(strip.HasEdge(1));
        act(strip);
        sim::run(1000);  // nothing may tell it: it looks for itself
        CHECK_FALSE(strip.bar.captured());
        CHECK_FALSE(strip.HasEdge(1));
        CHECK(strip.hovers == Indexes{1, -1});
    }
    Strip strip;
    sim::mouseDown(strip.form, kBeside);  // a drag that passes by raises nothing
    strip.PointAt(1);
    CHECK(strip.hovers.empty());
    CHECK_FALSE(strip.bar.captured());
    sim::mouseUp(strip.form, kBeside);
    for (const int index : {1, 2}) strip.PointAt(index);  // to the next button
    CHECK(strip.bar.captured());
    CHECK_FALSE(strip.HasEdge(1));
    strip.bar.destroy();
    REQUIRE(strip.bar.Create(strip.form, "ToolBar1", {0, 0, 400, 40}));
    CHECK_FALSE(strip.HasEdge(2));
    strip.PointAt(2);
    CHECK(strip.HasEdge(2));
    CHECK(strip.hovers == Indexes{1, 2, 2});
}

TEST_CASE_FIXTURE(Strip, "Only what changed on a toolbar is painted again") {
    const std::pair<std::function<void()>, int> changes[] = {
        {[&] { bar.SetChecked(3, true); }, 3}, {[&] { bar.EnableButton(5, false); }, 5}, {[&] { PointAt(1); }, 1}};
    for (const auto& [change, button] : changes) {
        change();
        CHECK(sim::invalidArea(bar) == bar.ButtonRect(button));
        sim::paint(bar);
        change();
        CHECK(sim::invalidArea(bar).empty());
    }
    sim::mouseDown(bar, Middle(1));
    CHECK(sim::invalidArea(bar) == bar.ButtonRect(1));
}

TEST_CASE_FIXTURE(Strip, "Each button has its picture, without its white ground; a press moves it") {
    CHECK(Picture(3).source == Point{72, 0});
    const Rect before = Picture(3).area;
    CHECK(before.size() == Size{24, 24});
    sim::mouseDown(bar, Middle(3));
    CHECK(Picture(3).area == before.offset(1, 1));

    sim::setPictureResource(7, {48, 24}, std::vector<Color>(48 * 24, 0xFFFFFF));
    bar.SetImages(loadPictureResource(7), 2);
    bar.SetBackColor(0x332211);
    CHECK(PixelAt(Middle(0).x, Middle(0).y) == 0x332211);
    bar.SetCurrentImage(0);
    bar.SetMaskColor(0);
    CHECK(PixelAt(Middle(0).x, Middle(0).y) == 0xFFFFFF);
}

TEST_CASE_FIXTURE(Strip, "A toolbar covers every pixel, in the user's colours unless one was chosen") {
    bar.SetChecked(0, true);
    PointAt(1);
    std::set<Color> corners;
    for (const int index : {0, 1, 2}) {
        const Point corner = bar.ButtonRect(index).origin();
        corners.insert(PixelAt(corner.x, corner.y));
    }
    CHECK(corners.size() == 3);  // down, under the pointer, neither
    CHECK(DrawnIn({bar.ButtonRect(2).right, 0, bar.ButtonRect(3).left, 40}, "edge").size() == 1);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 400; ++x) REQUIRE(sim::pixelAt(bar, {x, y}) != sim::kUnpainted);
    }
    sim::setSystemColor(SysColor::ButtonFace, 0x445566);
    CHECK(PixelAt(399, 39) == 0x445566);
    bar.SetBackColor(0x112233);
    CHECK(PixelAt(399, 39) == 0x112233);
    bar.SetTransparency(true);
    CHECK(PixelAt(399, 39) == 0x445566);
}

TEST_CASE_FIXTURE(Strip, "A toolbar works with the keyboard") {
    bar.SetUnavailable(0, true);
    bar.EnableButton(2, false);
    bar.EnableButton(5, false);
    bar.focus();
    const auto focusButton = [&] {
        for (int i = 0; i < kButtons; ++i) {
            if (Count(i, "focus") == 1) return i;
        }
        return -1;
    };
    CHECK(focusButton() == 1);  // the first that works
    const std::pair<std::uint16_t, int> moves[] = {{key::kRight, 3}, {key::kDown, 4}, {key::kRight, 4},
                                                   {key::kLeft, 3},  {key::kUp, 1},   {key::kUp, 1},
                                                   {key::kEnd, 4},   {key::kHome, 1}, {key::kEnd, 4}};
    for (const auto& [code, index] : moves) {
        sim::pressKey(code);
        CHECK(focusButton() == index);
    }
    sim::pressKey(key::kSpace);
    CHECK(bar.IsChecked(kCheck));
    for (int i = 0; i < 5; ++i) sim::keyDown(key::kEnter);  // held down
    CHECK(clicks.size() == 1);
    sim::keyUp(key::kEnter);
    CHECK(clicks.size() == 2);
    sim::keyDown(key::kSpace);
    PointAt(2);  // the mouse that passes by does not disturb it
    sim::setPointer(form, kBeside);
    sim::keyUp(key::kSpace);
    CHECK(clicks == Indexes{kCheck, kCheck, kCheck});
    sim::keyDown(key::kSpace);  // let go somewhere else
    form.focus();
    CHECK(focusButton() == -1);
    bar.focus();
    sim::keyUp(key::kSpace);
    CHECK(clicks.size() == 3);
}

TEST_CASE_FIXTURE(Strip, "A toolbar's slots, however many there are") {
    std::string changes;
    bar.PropertyChanged = [&](std::string_view name) { changes += std::string(name) + " "; };
    for (const auto& [index, kept] : {std::pair{50, kButtons - 1}, std::pair{-3, 0}}) {
        bar.SetCurrentImage(index);
        CHECK(bar.CurrentImage() == kept);
    }
    bar.SetMaskColor(0x123456);
    bar.SetImage(2);  // the mask colour goes with the picture
    CHECK(bar.MaskColor() == 16777215);
    bar.SetSeperator(true);
    bar.SetCheckBox(true);
    CHECK(changes == "CurrentImage CurrentImage Mask Image Seperator CheckBox ");

    PointAt(5);
    bar.focus();
    sim::pressKey(key::kEnd);
    bar.SetImages({}, 2);
    CHECK(hovers.back() == -1);
    sim::mouseUp(bar, {390, 10});
    CHECK(clicks.empty());
    sim::pressKey(key::kSpace);  // the keyboard is on the last one left
    CHECK(clicks == Indexes{1});

    bar.SetImages({}, 0);
    CHECK(bar.MaskColor() == 0);
    bar.SetSeperator(true);
    CHECK_FALSE(bar.Seperator());
    sim::click(bar, {10, 10});
    CHECK(clicks == Indexes{1});
    bar.SetImage(0);
    CHECK(bar.ImageCount() == 1);
}

TEST_CASE_FIXTURE(Strip, "A toolbar's properties come back as they were written; absurd ones are the defaults") {
    bar.SetLeftIndent(9);
    bar.SetHorizontal(false);
    PropertyMap map, again, plain, absurd;
    bar.WriteProperties(map);
    CHECK(map["Seperators2"] == "True");
    CHECK(map["Checkboxs4"] == "True");
    CHECK_FALSE(map.contains("BackColor"));  // that of the desktop
    ToolBar copy;
    copy.ReadProperties(map);
    copy.WriteProperties(again);
    CHECK(again == map);
    CHECK(copy.ButtonRect(5) == bar.ButtonRect(5));

    copy.ReadProperties({{"ImageCount", "2"}, {"CurrentImage", "1"}});
    copy.WriteProperties(plain);
    map = {{"ImageCount", "2"},   {"LeftIndent", "-7"},      {"Size24", "maybe"},
           {"CurrentImage", "9"}, {"Masks1", "99999999999"}, {"Checkboxs1", ""}};
    copy.ReadProperties(map);
    copy.WriteProperties(absurd);
    CHECK(absurd == plain);
    CHECK(absurd["LeftIndent"] == "3");
    copy.ReadProperties({{"ImageCount", "-1"}});
    CHECK(copy.ImageCount() == 0);
}
