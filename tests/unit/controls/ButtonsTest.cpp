// Push button, check boxes and slider: what they tell, and what they look like.
#include <type_traits>

#include "ControlFixture.h"
#include "controls/CheckBox.h"
#include "controls/GradColorChk.h"
#include "controls/HorizSlider.h"
#include "controls/XPbutn.h"

namespace {

namespace sim = platform::sim;
namespace key = platform::key;
using controls::GradColorChk;
using controls::HorizSlider;
using controls::XPbutn;
using platform::Color;
using platform::Point;
using platform::Rect;
using platform::rgb;
using platform::SysColor;
using platform::systemColor;

// A control that counts its clicks.
template <class C>
struct Clickable : ControlFixture<C> {
    explicit Clickable(const Rect& bounds = {20, 20, 100, 41}) : ControlFixture<C>(bounds) {
        this->control.Click = [this] { ++clicks; };
    }
    int clicks = 0;
};

// Each slice in a colour of its own that tells look and slice, with the corners of the caps transparent.
constexpr Color kMagenta = rgb(255, 0, 255);
Color SliceColor(int look, int slice) {
    return rgb(10 + look, 20 + slice, 30);
}
void PutSlices() {
    std::vector<Color> pixels;
    for (int y = 0; y < 21; ++y) {
        for (int x = 0; x < 60; ++x) {
            const bool corner = (x % 15 == 0 || x % 15 == 14) && (y == 0 || y == 20);
            pixels.push_back(corner ? kMagenta : SliceColor(x / 15, x % 15 / 5));
        }
    }
    sim::setPictureResource(205, {60, 21}, pixels);
}

}  // namespace

TEST_CASE_TEMPLATE("What is clicked tells it when it is let go", C, XPbutn, GradColorChk) {
    Clickable<C> one;
    C& control = one.control;
    constexpr bool takesEnter = std::is_same_v<C, XPbutn>;
    const int timers = sim::openHandles("timer");

    SUBCASE("by the mouse") {
        sim::mouseDown(control, {5, 5});
        CHECK(one.clicks == 0);
        sim::mouseUp(control, {5, 5});
        CHECK(one.clicks == 1);
        CHECK_FALSE(control.captured());  // what it shows gets the mouse
        CHECK(control.focused());
        sim::doubleClick(control, {5, 5});
        CHECK(one.clicks == 3);
    }
    SUBCASE("but not when it is let go elsewhere, taken away, or another button") {
        sim::mouseDown(control, {5, 5});
        sim::mouseUp(control, {-5, 5});
        sim::mouseDown(control, {5, 5});
        sim::loseCapture();
        sim::mouseUp(control, {5, 5});
        sim::mouseDown(one.form, {5, 5});
        sim::mouseUp(control, {5, 5});
        sim::click(control, {5, 5}, platform::MouseButton::Right);
        CHECK(one.clicks == 0);
        sim::mouseDown(control, {5, 5});
        sim::setPointer(control, {-5, 5});
        sim::setPointer(control, {5, 5});  // came back
        sim::mouseUp(control, {5, 5});
        CHECK(one.clicks == 1);
    }
    SUBCASE("by a key") {
        control.focus();
        for (int i = 0; i < 3; ++i) sim::keyDown(key::kSpace);
        CHECK(one.clicks == 0);
        sim::keyUp(key::kEnter);
        CHECK(one.clicks == 0);
        sim::keyUp(key::kSpace);
        CHECK(one.clicks == 1);
        sim::keyUp(key::kSpace);
        CHECK(one.clicks == 1);
        sim::pressKey(key::kEnter);
        CHECK(one.clicks == (takesEnter ? 2 : 1));
        sim::keyDown(key::kSpace);  // given up
        one.form.focus();
        control.focus();
        sim::keyUp(key::kSpace);
        CHECK(one.clicks == (takesEnter ? 2 : 1));
    }
    SUBCASE("never while it is disabled") {
        sim::mouseDown(control, {5, 5});
        control.SetEnabled(false);
        sim::mouseUp(control, {5, 5});
        sim::click(control, {5, 5});
        sim::pressKey(key::kSpace);
        CHECK(one.clicks == 0);
        CHECK_FALSE(control.Enabled());
        control.SetEnabled(true);
        sim::click(control, {5, 5});
        CHECK(one.clicks == 1);
    }
    SUBCASE("and the receiver may destroy it") {
        control.Click = [&] { control.destroy(); };
        sim::click(control, {5, 5});
        CHECK_FALSE(control.exists());
    }
    CHECK(sim::openHandles("timer") == timers);
}

TEST_CASE_TEMPLATE("The pointer over a control is told, and that it left", C, XPbutn, GradColorChk,
                   controls::CheckBox) {
    ControlFixture<C> one({20, 20, 100, 41});
    C& control = one.control;
    platform::Window& form = one.form;
    int hovers = 0;
    int lefts = 0;
    control.Hover = [&] { ++hovers; };
    control.Left = [&] { ++lefts; };

    sim::setPointer(control, {5, 5});
    sim::setPointer(control, {6, 5});
    CHECK(hovers == 2);
    CHECK(lefts == 0);
    sim::run(1000);
    CHECK(lefts == 0);  // it may rest there
    SUBCASE("onto the window") {
        sim::setPointer(form, {300, 300});
    }
    SUBCASE("another window takes the mouse") {
        sim::loseCapture();
    }
    SUBCASE("it is disabled") {
        control.SetEnabled(false);
    }
    SUBCASE("it is hidden") {
        control.show(platform::ShowCommand::Hide);
        sim::run(1000);
    }
    CHECK(hovers == 2);
    CHECK(lefts == 1);
    CHECK_FALSE(control.captured());
}

TEST_CASE("A push button is put together from its slices") {
    sim::reset();
    for (const int width : {80, 83, 10}) {
        CAPTURE(width);
        Clickable<XPbutn> one({20, 20, 20 + width, 41});
        XPbutn& button = one.control;
        button.destroy();
        PutSlices();
        REQUIRE(button.Create(one.form, "Button1", {20, 20, 20 + width, 41}));
        const auto checkLook = [&](int look) {
            CAPTURE(look);
            CHECK(one.PixelAt(0, 0) == systemColor(SysColor::ButtonFace));
            CHECK(one.PixelAt(width - 1, 20) == systemColor(SysColor::ButtonFace));
            for (int x = 0; x < width; ++x) {
                const int slice = x < 5 ? 0 : x < width - 5 ? 1 : 2;
                REQUIRE(one.PixelAt(x, 10) == SliceColor(look, slice));
            }
        };
        checkLook(0);
        sim::setPointer(button, {5, 5});
        checkLook(1);
        sim::mouseDown(button, {5, 5});
        checkLook(2);
        sim::setPointer(button, {5, 50});
        checkLook(0);
        sim::setPointer(button, {5, 5});
        checkLook(2);
        button.DrawNormalButton();
        checkLook(0);
        button.SetEnabled(false);
        checkLook(3);
        button.SetEnabled(true);
        checkLook(0);
    }
}

TEST_CASE("The caption of a push button is in its middle, and its text once it is set") {
    Clickable<XPbutn> one;
    XPbutn& button = one.control;
    CHECK(button.text() == "Control1");
    button.SetCaption("Apply & go");
    CHECK(button.text() == "Apply & go");
    const std::vector<sim::Drawn> texts = one.Painted("text");
    REQUIRE(texts.size() == 1);
    CHECK(texts[0].text == "Apply & go");
    CHECK(texts[0].area == Rect{0, 0, 80, 21});
    CHECK(texts[0].format ==
          (platform::kTextCenter | platform::kTextVCenter | platform::kTextSingleLine | platform::kTextNoPrefix));
    CHECK(button.PreferredSize().height == 21);
    CHECK(button.PreferredSize().width > 60 + 2 * 5);
    button.SetEnabled(false);
    CHECK(one.Painted("text")[0].color != texts[0].color);
}

TEST_CASE("A check box has a shaded box, a mark when it is checked, and its caption beside it") {
    Clickable<GradColorChk> one({20, 20, 120, 33});
    GradColorChk& box = one.control;
    box.SetCaption("Sounds");
    const auto texts = [&] {
        std::string all;
        for (const sim::Drawn& drawn : one.Painted("text")) {
            all += drawn.text + " " + std::to_string(drawn.area.left) + " " + std::to_string(drawn.area.top) + "|";
        }
        return all;
    };
    CHECK(texts() == "Sounds 16 0|");
    CHECK(one.PixelAt(0, 0) == systemColor(SysColor::ButtonShadow));
    CHECK(one.PixelAt(12, 12) == systemColor(SysColor::ButtonHighlight));
    CHECK(one.PixelAt(6, 2) != one.PixelAt(6, 10));
    CHECK(one.PixelAt(13, 6) == systemColor(SysColor::ButtonFace));
    const Color plain = one.PixelAt(6, 6);
    box.SetValue(true);
    CHECK(one.clicks == 0);
    CHECK(texts() == "X 3 -1|Sounds 16 0|");
    sim::setPointer(box, {5, 5});
    CHECK(one.PixelAt(6, 6) != plain);
    bool seen = true;
    box.Click = [&] { seen = box.Value(); };
    sim::click(box, {60, 6});
    CHECK_FALSE(seen);
    CHECK_FALSE(box.Value());
    CHECK(one.PixelAt(6, 6) == plain);
    sim::pressKey(key::kSpace);
    CHECK(seen);
    CHECK(box.PreferredSize().width >= 16 + 36);
}

namespace {

constexpr int kThumb = 11;

struct Slider : ControlFixture<HorizSlider> {
    // As wide as is needed for a travel of so many pixels.
    explicit Slider(int travel) : ControlFixture({20, 20, 20 + travel + kThumb, 40}) {
        control.Change = [this] { changes.push_back(control.Value()); };
    }
    int ThumbLeft() { return Painted("frame").front().area.left; }
    std::vector<int> changes;
};

using Values = std::vector<int>;

}  // namespace

TEST_CASE("A plain check box can be in between, until it is toggled") {
    ControlFixture<controls::CheckBox> one({20, 20, 100, 41});
    controls::CheckBox& box = one.control;
    const Point middle{6, 10};
    const auto marked = [&] {
        sim::paint(box, true);
        return sim::pixelAt(box, middle) == systemColor(SysColor::WindowText);
    };
    CHECK_FALSE(marked());
    box.SetInBetween();
    CHECK(marked());
    CHECK(box.InBetween());
    CHECK_FALSE(box.Value());
    box.focus();
    sim::pressKey(key::kSpace);
    CHECK(box.Value());
    CHECK_FALSE(box.InBetween());
}

TEST_CASE("A slider's thumb stands where its value says") {
    Slider one(100);
    HorizSlider& slider = one.control;
    const struct {
        int set, value, left;
    } cases[] = {{0, 0, 0}, {128, 128, 50}, {255, 255, 100}, {300, 255, 100}, {-4, 0, 0}, {1, 1, 0}, {3, 3, 1}};
    for (const auto& c : cases) {
        CAPTURE(c.set);
        slider.SetValue(c.set);
        CHECK(slider.Value() == c.value);
        CHECK(one.ThumbLeft() == c.left);
        CHECK(one.Painted("frame").front().area.width() == kThumb);
    }
    slider.SetValue(128);
    slider.setBounds({20, 20, 20 + 510 + kThumb, 40});
    CHECK(slider.Value() == 128);
    CHECK(one.ThumbLeft() == 256);
    slider.setBounds({20, 20, 25, 40});  // no room to travel
    sim::click(slider, {2, 2});
    CHECK(slider.Value() == 128);
    CHECK(one.changes.empty());
}

TEST_CASE("A slider is moved with the mouse") {
    Slider one(510);  // two pixels a value
    HorizSlider& slider = one.control;
    SUBCASE("a press on the track brings the thumb under the pointer, and drags it on") {
        sim::mouseDown(slider, {205, 5});
        CHECK(one.ThumbLeft() == 200);
        sim::setPointer(slider, {206, 5});  // 100.5: rounded up
        CHECK(slider.Value() == 101);
        sim::setPointer(slider, {207, 5});  // the same value
        CHECK(one.ThumbLeft() == 202);
        sim::setPointer(slider, {9000, -50});
        sim::setPointer(slider, {-9000, 50});
        sim::mouseUp(slider, {-9000, 50});
        CHECK(one.changes == Values{100, 101, 255, 0});
    }
    SUBCASE("a press on the thumb does not move it; the place it was taken at stays under the pointer") {
        slider.SetValue(100);
        sim::mouseDown(slider, {209, 5});
        CHECK(one.changes.empty());
        CHECK(one.ThumbLeft() == 200);
        sim::setPointer(slider, {229, 5});
        CHECK(one.changes == Values{110});
        sim::mouseUp(slider, {229, 5});
        sim::setPointer(slider, {300, 5});
        CHECK(one.changes == Values{110});
    }
    SUBCASE("a drag ends with the mouse, whoever takes it") {
        sim::mouseDown(slider, {205, 5});
        sim::loseCapture();
        sim::setPointer(slider, {305, 5});
        sim::click(slider, {305, 5}, platform::MouseButton::Right);
        slider.SetEnabled(false);
        sim::click(slider, {400, 5});
        CHECK(one.changes == Values{100});
    }
    CHECK_FALSE(slider.captured());
}

TEST_CASE("A slider is moved with the keyboard") {
    Slider one(100);
    one.control.SetValue(100);
    sim::pressKey(key::kTab);
    const std::uint16_t keys[] = {key::kRight,  key::kDown, key::kLeft, key::kUp,    key::kPageDown,
                                  key::kPageUp, key::kEnd,  key::kEnd,  key::kRight, key::kHome,
                                  key::kPageUp, key::kLeft, key::kSpace};
    for (const std::uint16_t code : keys) sim::pressKey(code);
    CHECK(one.changes == Values{101, 102, 101, 100, 116, 100, 255, 0});
}
