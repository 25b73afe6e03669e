#include "controls/ToolBar.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "platform/sim/Sim.h"

namespace {

namespace sim = platform::sim;
namespace key = platform::key;
using controls::ToolBar;
using platform::Point;
using platform::Rect;

constexpr int kButtons = 6;
constexpr int kCheck = 4;      // a check-box button
constexpr int kSeparator = 2;  // a separator follows it
constexpr Point kBeside{500, 200};

// A window with one strip of six buttons, and what the strip reports.
struct Strip {
    Strip() {
        sim::reset();
        platform::WindowSpec spec;
        spec.kind = platform::WindowKind::Main;
        spec.className = "Form1";
        spec.bounds = {0, 0, 600, 400};
        REQUIRE(form.create(spec));
        form.show(platform::ShowCommand::Show);
        REQUIRE(bar.Create(form, "ToolBar1", {0, 0, 400, 40}));
        bar.SetImages(platform::loadPictureResource(201), kButtons);
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

    platform::Window form;
    ToolBar bar;
    std::vector<int> clicks;
    std::vector<int> hovers;
};

using Clicks = std::vector<int>;

// Operations of one kind that a full paint has within a rectangle.
std::vector<sim::Drawn> DrawnIn(ToolBar& bar, const std::string& what, const Rect& area) {
    std::vector<sim::Drawn> found;
    for (const sim::Drawn& drawn : sim::paint(bar, true)) {
        const bool inside = drawn.area.intersect(area) == drawn.area;
        if (drawn.what == what && inside) found.push_back(drawn);
    }
    return found;
}

}  // namespace

TEST_CASE("A toolbar's buttons lie where they are found, whatever the layout") {
    for (const bool horizontal : {true, false}) {
        for (const bool size24 : {true, false}) {
            controls::ToolBarLayout layout;
            layout.separators = {false, true, true, false};
            layout.leftIndent = 5;
            layout.horizontal = horizontal;
            layout.size24 = size24;
            CAPTURE(horizontal);
            CAPTURE(size24);
            const platform::Size size = layout.Preferred();
            std::vector<int> area(4, 0);
            for (int y = -2; y < size.height + 2; ++y) {
                for (int x = -2; x < size.width + 2; ++x) {
                    const int hit = layout.HitTest({x, y});
                    for (int i = 0; i < 4; ++i) REQUIRE(layout.Button(i).contains({x, y}) == (hit == i));
                    if (hit >= 0) ++area[static_cast<std::size_t>(hit)];
                }
            }
            const int image = size24 ? 24 : 16;
            for (int i = 0; i < 4; ++i) {
                const Rect button = layout.Button(i);
                CHECK(area[static_cast<std::size_t>(i)] == button.width() * button.height());
                CHECK(std::min(button.width(), button.height()) > image);
                CHECK(Rect::fromSize({}, size).intersect(button) == button);
                for (int j = 0; j < 4; ++j) CHECK_FALSE(layout.Separator(i).intersects(layout.Button(j)));
            }
            CHECK((horizontal ? layout.Button(0).left : layout.Button(0).top) == 5);
            CHECK(layout.Separator(0).empty());
            CHECK_FALSE(layout.Separator(2).empty());
            CHECK(layout.Button(4).empty());
            CHECK(layout.Button(-1).empty());
        }
    }
}

TEST_CASE("A toolbar reports clicks") {
    Strip strip;
    ToolBar& bar = strip.bar;

    SUBCASE("press and release over one button") {
        strip.Click(1);
        sim::click(bar, kBeside);
        sim::click(bar, strip.Middle(3), platform::MouseButton::Right);
        CHECK(strip.clicks == Clicks{1});
    }
    SUBCASE("a double click is one click, on a check-box button too") {
        sim::doubleClick(bar, strip.Middle(1));
        sim::doubleClick(bar, strip.Middle(kCheck));
        CHECK(strip.clicks == Clicks{1, kCheck});
        CHECK(bar.IsChecked(kCheck));
        strip.Click(1);  // the mark of the double click is not left behind
        CHECK(strip.clicks == Clicks{1, kCheck, 1});
    }
    SUBCASE("two quick clicks are two when another button has moved under the pointer") {
        bar.Click = [&](int index) {
            strip.clicks.push_back(index);
            bar.SetLeftIndent(3 + bar.ButtonRect(0).width());
        };
        sim::doubleClick(bar, strip.Middle(1));
        CHECK(strip.clicks == Clicks{1, 0});
    }
    SUBCASE("a check-box button clicked twice is up again") {
        strip.Click(kCheck);
        CHECK(bar.IsChecked(kCheck));
        strip.Click(kCheck);
        CHECK_FALSE(bar.IsChecked(kCheck));
        CHECK(strip.clicks == Clicks{kCheck, kCheck});
        strip.Click(1);
        CHECK_FALSE(bar.IsChecked(1));
    }
    SUBCASE("the receiver sees the new state, and may take the control away") {
        bar.Click = [&](int) {
            CHECK(bar.IsChecked(kCheck));
            CHECK_FALSE(bar.captured());
            bar.destroy();
        };
        strip.Click(kCheck);
        CHECK_FALSE(bar.exists());
    }
    SUBCASE("a press that leaves the button is given up") {
        sim::mouseDown(bar, strip.Middle(1));
        strip.PointAt(3);
        CHECK_FALSE(bar.captured());
        strip.PointAt(1);
        sim::mouseUp(bar, strip.Middle(1));
        CHECK(strip.clicks.empty());
    }
    SUBCASE("a press that loses the mouse is given up") {
        sim::mouseDown(bar, strip.Middle(1));
        sim::loseCapture();
        sim::mouseUp(bar, strip.Middle(1));
        CHECK(strip.clicks.empty());
    }
}

TEST_CASE("Disabled toolbar buttons are inert") {
    Strip strip;
    ToolBar& bar = strip.bar;
    // By EnableButton from 1 on, by SetUnavailable all of them; each counts on its own.
    for (const int index : {-1, 0, kButtons}) bar.EnableButton(index, false);
    CHECK(bar.IsEnabled(0));
    strip.Click(0);
    CHECK(strip.clicks == Clicks{0});

    bar.EnableButton(kCheck, false);
    bar.SetUnavailable(0, true);
    bar.SetUnavailable(1, true);
    bar.EnableButton(1, false);
    bar.EnableButton(1, true);
    for (const int index : {0, 1, kCheck}) {
        CHECK_FALSE(bar.IsEnabled(index));
        strip.Click(index);
        sim::doubleClick(bar, strip.Middle(index));
        strip.PointAt(index);
        CHECK(strip.hovers.back() == index);  // its tip is still of use
        const Rect area = bar.ButtonRect(index);
        CHECK(DrawnIn(bar, "masked", area).empty());
        CHECK(DrawnIn(bar, "disabled", area).size() == 1);
        CHECK(DrawnIn(bar, "edge", area).empty());
    }
    CHECK(strip.clicks == Clicks{0});
    CHECK_FALSE(bar.IsChecked(kCheck));

    bar.EnableButton(kCheck, true);
    sim::mouseDown(bar, strip.Middle(kCheck));
    bar.EnableButton(kCheck, false);  // while it is held
    sim::mouseUp(bar, strip.Middle(kCheck));
    CHECK(strip.clicks == Clicks{0});
}

TEST_CASE("The hovered button holds the mouse, and lets it go") {
    Strip strip;
    ToolBar& bar = strip.bar;
    strip.PointAt(1);
    CHECK(bar.captured());
    CHECK(strip.hovers == std::vector<int>{1});
    CHECK(DrawnIn(bar, "edge", bar.ButtonRect(1)).size() == 1);

    const auto over = [&] { return !DrawnIn(bar, "edge", bar.ButtonRect(1)).empty(); };
    SUBCASE("to the next button") {
        strip.PointAt(2);
        CHECK(bar.captured());
        CHECK(strip.hovers == std::vector<int>{1, 2});
        CHECK_FALSE(over());
    }
    SUBCASE("into a gap, then out of the strip") {
        const Rect gap = {bar.ButtonRect(2).right, 10, bar.ButtonRect(3).left, 11};
        sim::setPointer(bar, {gap.left + 1, gap.top});
        CHECK_FALSE(bar.captured());
        sim::setPointer(strip.form, kBeside);
        CHECK(strip.hovers == std::vector<int>{1, -1});
    }
    SUBCASE("straight out of the strip: the next click goes where it is made") {
        sim::setPointer(strip.form, kBeside);
        CHECK_FALSE(bar.captured());
        CHECK_FALSE(over());
    }
    SUBCASE("the strip is hidden: nothing tells it, it has to look for itself") {
        bar.show(platform::ShowCommand::Hide);
        sim::run(1000);
        CHECK_FALSE(bar.captured());
        CHECK(strip.hovers == std::vector<int>{1, -1});
    }
    SUBCASE("a menu takes the mouse") {
        sim::loseCapture();
        CHECK(strip.hovers == std::vector<int>{1, -1});
        CHECK_FALSE(over());
    }
    SUBCASE("a box disables the window") {
        strip.form.enable(false);
        sim::run(1000);
        CHECK_FALSE(bar.captured());
        CHECK_FALSE(over());
    }
    SUBCASE("the window dies and is made again") {
        bar.destroy();
        REQUIRE(bar.Create(strip.form, "ToolBar1", {0, 0, 400, 40}));
        CHECK_FALSE(over());
        strip.PointAt(1);
        CHECK(over());
    }
    sim::setPointer(strip.form, kBeside);
    CHECK_FALSE(bar.captured());
}

TEST_CASE("A drag that passes over the toolbar raises nothing") {
    Strip strip;
    sim::mouseDown(strip.form, kBeside);
    strip.PointAt(1);
    CHECK(strip.hovers.empty());
    CHECK_FALSE(strip.bar.captured());
}

TEST_CASE("Only what changed on a toolbar is painted again") {
    Strip strip;
    ToolBar& bar = strip.bar;
    const auto changed = [&] {
        const Rect area = sim::invalidArea(bar);
        sim::paint(bar);
        return area;
    };
    bar.SetChecked(3, true);
    CHECK(changed() == bar.ButtonRect(3));
    bar.SetChecked(3, true);
    CHECK(changed().empty());
    bar.EnableButton(5, false);
    CHECK(changed() == bar.ButtonRect(5));
    strip.PointAt(1);
    CHECK(changed() == bar.ButtonRect(1));
    strip.PointAt(1);
    CHECK(changed().empty());
    sim::mouseDown(bar, strip.Middle(1));
    CHECK(changed() == bar.ButtonRect(1));

    bar.SetChecked(0, true);
    for (const sim::Drawn& drawn : sim::paint(bar)) CHECK(drawn.area.right <= bar.ButtonRect(0).right);
}

TEST_CASE("What a toolbar shows") {
    Strip strip;
    ToolBar& bar = strip.bar;
    const auto picture = [&](int index) { return DrawnIn(bar, "masked", bar.ButtonRect(index)).at(0); };

    SUBCASE("each button its picture of the strip; a press moves it one pixel right and down") {
        CHECK(picture(3).source == Point{72, 0});
        CHECK(picture(3).color == 16777215);
        const Rect before = picture(3).area;
        CHECK(before.size() == platform::Size{24, 24});
        sim::mouseDown(bar, strip.Middle(3));
        CHECK(picture(3).area == before.offset(1, 1));
    }
    SUBCASE("a white background is not drawn") {
        sim::setPictureResource(7, {48, 24}, std::vector<platform::Color>(48 * 24, 0xFFFFFF));
        bar.SetImages(platform::loadPictureResource(7), 2);
        bar.SetBackColor(0x332211);
        sim::paint(bar);
        CHECK(sim::pixelAt(bar, strip.Middle(0)) == 0x332211);
        bar.SetCurrentImage(0);
        bar.SetMaskColor(0);
        sim::paint(bar);
        CHECK(sim::pixelAt(bar, strip.Middle(0)) == 0xFFFFFF);
    }
    SUBCASE("checked, pressed and hovered buttons differ at their edge, and every pixel is covered") {
        bar.SetChecked(0, true);
        strip.PointAt(1);
        sim::paint(bar, true);
        const auto corner = [&](int index) { return sim::pixelAt(bar, bar.ButtonRect(index).origin()); };
        CHECK(corner(0) != corner(1));
        CHECK(corner(1) != corner(2));
        CHECK(corner(0) != corner(2));
        CHECK(DrawnIn(bar, "edge", {bar.ButtonRect(2).right, 0, bar.ButtonRect(3).left, 40}).size() == 1);
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 400; ++x) REQUIRE(sim::pixelAt(bar, {x, y}) != sim::kUnpainted);
        }
    }
    SUBCASE("the user's colours, unless a colour was chosen") {
        const auto ground = [&] {
            sim::paint(bar, true);
            return sim::pixelAt(bar, {399, 39});
        };
        sim::setSystemColor(platform::SysColor::ButtonFace, 0x445566);
        CHECK(ground() == 0x445566);
        CHECK(bar.BackColor() == 0x445566);
        bar.SetBackColor(0x112233);
        CHECK(ground() == 0x112233);
        bar.SetTransparency(true);
        CHECK(ground() == 0x445566);
    }
}

TEST_CASE("A toolbar works with the keyboard") {
    Strip strip;
    ToolBar& bar = strip.bar;
    bar.SetUnavailable(0, true);
    bar.EnableButton(2, false);
    bar.EnableButton(5, false);
    bar.focus();
    const auto focusButton = [&] {
        for (int i = 0; i < kButtons; ++i) {
            if (!DrawnIn(bar, "focus", bar.ButtonRect(i)).empty()) return i;
        }
        return -1;
    };

    CHECK(focusButton() == 1);  // the first that works
    const struct {
        std::uint16_t code;
        int index;
    } moves[] = {{key::kRight, 3}, {key::kDown, 4}, {key::kRight, 4}, {key::kLeft, 3},
                 {key::kUp, 1},    {key::kUp, 1},   {key::kEnd, 4},   {key::kHome, 1}};
    for (const auto& move : moves) {
        sim::pressKey(move.code);
        CHECK(focusButton() == move.index);
    }
    sim::pressKey(key::kSpace);
    sim::pressKey(key::kEnd);
    sim::pressKey(key::kEnter);
    CHECK(strip.clicks == Clicks{1, kCheck});
    CHECK(bar.IsChecked(kCheck));

    SUBCASE("a key held down clicks once") {
        for (int i = 0; i < 5; ++i) sim::keyDown(key::kEnter);
        CHECK(strip.clicks.size() == 2);
        sim::keyUp(key::kEnter);
        CHECK(strip.clicks.size() == 3);
    }
    SUBCASE("a key let go somewhere else does not click") {
        sim::keyDown(key::kSpace);
        strip.form.focus();
        bar.focus();
        sim::keyUp(key::kSpace);
        CHECK(strip.clicks.size() == 2);
    }
    SUBCASE("the mouse that passes by does not disturb it") {
        sim::keyDown(key::kSpace);
        strip.PointAt(2);
        sim::setPointer(strip.form, kBeside);
        sim::keyUp(key::kSpace);
        CHECK(strip.clicks.size() == 3);
    }
    SUBCASE("the focus is shown only while the strip has it") {
        strip.form.focus();
        CHECK(focusButton() == -1);
    }
}

TEST_CASE("A toolbar's slot properties") {
    Strip strip;
    ToolBar& bar = strip.bar;
    std::vector<std::string> changes;
    bar.PropertyChanged = [&](std::string_view name) { changes.emplace_back(name); };

    bar.SetCurrentImage(50);
    CHECK(bar.CurrentImage() == kButtons - 1);
    bar.SetCurrentImage(-3);
    CHECK(bar.CurrentImage() == 0);
    bar.SetMaskColor(0x123456);
    bar.SetImage(2);  // the mask colour goes with the picture
    CHECK(bar.MaskColor() == 16777215);
    bar.SetSeperator(true);
    bar.SetCheckBox(true);
    CHECK(changes ==
          std::vector<std::string>{"CurrentImage", "CurrentImage", "Mask", "Image", "Seperator", "CheckBox"});

    SUBCASE("without slots") {
        bar.SetImages({}, 0);
        CHECK(bar.MaskColor() == 0);
        bar.SetSeperator(true);
        CHECK_FALSE(bar.Seperator());
        strip.Click(0);
        CHECK(strip.clicks.empty());
        bar.SetImage(0);
        CHECK(bar.ImageCount() == 1);
        CHECK(bar.MaskColor() == 16777215);
    }
    SUBCASE("fewer slots while a later button is hovered") {
        strip.PointAt(5);
        bar.focus();
        sim::pressKey(key::kEnd);
        bar.SetImages({}, 2);
        CHECK(strip.hovers.back() == -1);
        sim::mouseUp(bar, {390, 10});
        CHECK(strip.clicks.empty());
        sim::pressKey(key::kSpace);  // the keyboard is on the last one left
        CHECK(strip.clicks == Clicks{1});
    }
    SUBCASE("they come back as they were written") {
        bar.SetLeftIndent(9);
        bar.SetHorizontal(false);
        bar.SetCurrentImage(3);
        controls::PropertyMap map;
        bar.WriteProperties(map);
        CHECK(map["Seperators0"] == "True");
        CHECK(map["Checkboxs4"] == "True");
        CHECK(map["Images0"] == "2");
        CHECK(map["Masks5"] == "16777215");
        CHECK(map.count("BackColor") == 0);

        ToolBar copy;
        copy.ReadProperties(map);
        controls::PropertyMap again;
        copy.WriteProperties(again);
        CHECK(again == map);
        for (int i = 0; i < kButtons; ++i) CHECK(copy.ButtonRect(i) == bar.ButtonRect(i));
    }
    SUBCASE("missing and absurd values give the defaults") {
        ToolBar other;
        other.ReadProperties({});
        CHECK(other.ImageCount() == 0);
        CHECK(other.LeftIndent() == 3);
        CHECK(other.Size24());
        CHECK(other.Horizontal());
        other.ReadProperties({{"ImageCount", "2"},
                              {"LeftIndent", "-7"},
                              {"Size24", "maybe"},
                              {"CurrentImage", "9"},
                              {"Masks1", "99999999999"},
                              {"Checkboxs1", ""}});
        CHECK(other.LeftIndent() == 3);
        CHECK(other.Size24());
        CHECK(other.CurrentImage() == 1);
        CHECK(other.MaskColor() == 16777215);
        CHECK_FALSE(other.CheckBox());
        other.ReadProperties({{"ImageCount", "-1"}});
        CHECK(other.ImageCount() == 0);
    }
}
