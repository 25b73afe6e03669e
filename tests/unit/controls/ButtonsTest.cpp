// Push button, check boxes and slider: what they tell, and what they look like.
#include <functional>
#include <type_traits>

#include "ControlFixture.h"
#include "controls/CheckBox.h"
#include "controls/GradColorChk.h"
#include "controls/HorizSlider.h"
#include "controls/XPbutn.h"

using namespace controls;
using namespace platform;

namespace {

constexpr Point kBeside{300, 300};

// A control that counts its clicks.
template <class C>
struct Clickable : ControlFixture<C> {
    explicit Clickable(const Rect& bounds = {20, 20, 100, 41}) : ControlFixture<C>(bounds) {
        this->control.Click = [this] { ++clicks; };
    }
    int clicks = 0;
};

}  // namespace

TEST_CASE_TEMPLATE("What is clicked tells it when it is let go", C, XPbutn, GradColorChk) {
    Clickable<C> one;
    C& control = one.control;
    const int enter = std::is_same_v<C, XPbutn> ? 1 : 0;  // takes that key, too
    const int timers = sim::openHandles("timer");
    int wanted = 0;

    SUBCASE("by the mouse, over it") {
        sim::mouseDown(control, {5, 5});
        CHECK(one.clicks == 0);
        sim::mouseUp(control, {5, 5});
        CHECK_FALSE(control.captured());  // what it shows gets the mouse
        CHECK(control.focused());
        sim::doubleClick(control, {5, 5});
        sim::mouseDown(control, {5, 5});
        sim::setPointer(control, {-5, 5});
        sim::setPointer(control, {5, 5});  // came back
        sim::mouseUp(control, {5, 5});
        wanted = 4;
    }
    SUBCASE("but not when it is let go elsewhere, taken away, another button, or disabled") {
        sim::mouseDown(control, {5, 5});
        sim::mouseUp(control, {-5, 5});
        sim::mouseDown(control, {5, 5});
        sim::loseCapture();
        sim::mouseUp(control, {5, 5});
        sim::mouseDown(one.form, {5, 5});
        sim::mouseUp(control, {5, 5});
        sim::click(control, {5, 5}, MouseButton::Right);
        sim::mouseDown(control, {5, 5});
        control.SetEnabled(false);
        sim::mouseUp(control, {5, 5});
        sim::click(control, {5, 5});
        sim::pressKey(key::kSpace);
    }
    SUBCASE("by a key") {
        control.focus();
        for (int i = 0; i < 3; ++i) sim::keyDown(key::kSpace);
        sim::keyUp(key::kEnter);
        CHECK(one.clicks == 0);
        sim::keyUp(key::kSpace);
        sim::keyUp(key::kSpace);
        CHECK(one.clicks == 1);
        sim::pressKey(key::kEnter);
        sim::keyDown(key::kSpace);  // given up
        one.form.focus();
        control.focus();
        sim::keyUp(key::kSpace);
        wanted = 1 + enter;
    }
    SUBCASE("and the receiver may destroy it") {
        control.Click = [&] { control.destroy(); };
        sim::click(control, {5, 5});
        CHECK_FALSE(control.exists());
    }
    CHECK(one.clicks == wanted);
    CHECK(sim::openHandles("timer") == timers);
}

TEST_CASE_TEMPLATE("The pointer over a control is told, and that it left", C, XPbutn, GradColorChk, CheckBox) {
    using Fixture = ControlFixture<C>;
    const std::pair<const char*, std::function<void(Fixture&)>> cases[] = {
        {"onto the window", [](Fixture& f) { sim::setPointer(f.form, kBeside); }},
        {"another window takes the mouse", [](Fixture&) { sim::loseCapture(); }},
        {"it is disabled", [](Fixture& f) { f.control.SetEnabled(false); }},
        {"it is hidden", [](Fixture& f) { f.control.show(ShowCommand::Hide); }},
    };
    for (const auto& [what, act] : cases) {
        CAPTURE(what);
        Fixture one({20, 20, 100, 41});
        std::string told;
        one.control.Hover = [&] { told += "hover "; };
        one.control.Left = [&] { told += "left "; };
        for (const int x : {5, 6}) sim::setPointer(one.control, {x, 5});
        sim::run(1000);  // it may rest there
        CHECK(told == "hover hover ");
        act(one);
        sim::run(1000);  // nothing may tell it
        CHECK(told == "hover hover left ");
        CHECK_FALSE(one.control.captured());
    }
}

TEST_CASE("A push button is put together from its slices") {
    // Each in a colour that tells look and slice; the corners of the caps are transparent.
    const auto colorOf = [](int look, int slice) { return rgb(10 + look, 20 + slice, 30); };
    std::vector<Color> slices;
    for (int y = 0; y < 21; ++y) {
        for (int x = 0; x < 60; ++x) {
            const bool corner = (x % 15 == 0 || x % 15 == 14) && (y == 0 || y == 20);
            slices.push_back(corner ? rgb(255, 0, 255) : colorOf(x / 15, x % 15 / 5));
        }
    }
    for (const int width : {83, 10}) {
        Clickable<XPbutn> one;
        XPbutn& button = one.control;
        button.destroy();
        sim::setPictureResource(205, {60, 21}, slices);
        REQUIRE(button.Create(one.form, "Button1", {20, 20, 20 + width, 41}));
        const auto checkLook = [&](int look) {
            CAPTURE(width);
            CAPTURE(look);
            CHECK(one.PixelAt(0, 0) == systemColor(SysColor::ButtonFace));
            CHECK(one.PixelAt(width - 1, 20) == systemColor(SysColor::ButtonFace));
            for (int x = 0; x < width; ++x) {
                const int slice = x < 5 ? 0 : x < width - 5 ? 1 : 2;
                REQUIRE(sim::pixelAt(button, {x, 10}) == colorOf(look, slice));
            }
        };
        checkLook(0);
        sim::setPointer(button, {5, 5});
        checkLook(1);
        sim::mouseDown(button, {5, 5});
        checkLook(2);
        button.DrawNormalButton();
        checkLook(0);
        button.SetEnabled(false);
        checkLook(3);
    }
}

TEST_CASE("Push button and check box show their captions as they are, and have room for them") {
    Clickable<XPbutn> button;
    button.control.SetCaption("Apply & go");
    CHECK(button.control.text() == "Apply & go");
    const sim::Drawn text = button.Painted("text").at(0);
    CHECK(text.text == "Apply & go");
    CHECK(text.area == Rect{0, 0, 80, 21});
    CHECK((text.format & kTextNoPrefix) != 0);
    CHECK(button.control.PreferredSize().width > 60 + 2 * 5);
    button.control.SetEnabled(false);
    CHECK(button.Painted("text").at(0).color != text.color);

    Clickable<GradColorChk> box({20, 20, 120, 33});
    box.control.SetCaption("Sounds");
    CHECK(box.control.PreferredSize().width >= 16 + 36);
    CHECK(box.Painted("text").at(0).area.left == 16);
    sim::setSystemColor(SysColor::ButtonText, rgb(250, 240, 230));  // the ground is the button's face
    CHECK(box.Painted("text").at(0).color == rgb(250, 240, 230));
    box.control.SetValue(true);
    CHECK(box.clicks == 0);
    CHECK(box.Painted("text").at(0).text == "X");
    CHECK(box.Painted("text").at(0).area.origin() == Point{3, -1});
    CHECK(box.Painted("text").at(1).text == "Sounds");
    const Color plain = box.PixelAt(6, 6);
    sim::setPointer(box.control, {5, 5});
    CHECK(box.PixelAt(6, 6) != plain);
    sim::click(box.control, {60, 6});
    CHECK_FALSE(box.control.Value());
    CHECK(box.Painted("text").size() == 1);
}

TEST_CASE("A plain check box can be in between, until it is toggled") {
    ControlFixture<CheckBox> one({20, 20, 100, 41});
    sim::setSystemColor(SysColor::ButtonText, rgb(250, 240, 230));  // of the caption, but not of the mark
    CHECK(one.Painted("text").at(0).color == rgb(250, 240, 230));
    const auto marked = [&] { return one.PixelAt(6, 10) == systemColor(SysColor::WindowText); };
    CHECK_FALSE(marked());
    one.control.SetInBetween();
    CHECK(marked());
    CHECK_FALSE(one.control.Value());
    one.control.focus();
    sim::pressKey(key::kSpace);
    CHECK(one.control.Value());
    CHECK_FALSE(one.control.InBetween());
}

namespace {

constexpr int kThumb = 11;
using Values = std::vector<int>;

struct Slider : ControlFixture<HorizSlider> {
    // As wide as is needed for a travel of so many pixels; two for each value at first.
    explicit Slider(int travel = 510) : ControlFixture({20, 20, 20 + travel + kThumb, 40}) {
        control.Change = [this] { changes.push_back(control.Value()); };
    }
    int ThumbLeft() { return Painted("frame").front().area.left; }

    HorizSlider& slider = control;
    Values changes;
};

}  // namespace

TEST_CASE("A slider's thumb stands where its value says") {
    Slider one(100);
    const struct {
        int set, value, left;
    } cases[] = {{0, 0, 0}, {128, 128, 50}, {255, 255, 100}, {300, 255, 100}, {-4, 0, 0}, {3, 3, 1}};
    for (const auto& c : cases) {
        CAPTURE(c.set);
        one.slider.SetValue(c.set);
        CHECK(one.slider.Value() == c.value);
        CHECK(one.ThumbLeft() == c.left);
    }
    one.slider.SetValue(128);
    one.slider.setBounds({20, 20, 20 + 510 + kThumb, 40});
    CHECK(one.ThumbLeft() == 256);
    one.slider.setBounds({20, 20, 25, 40});  // no room to travel
    sim::click(one.slider, {2, 2});
    CHECK(one.slider.Value() == 128);
    CHECK(one.changes.empty());
}

TEST_CASE_FIXTURE(Slider, "A slider is moved with the mouse") {
    SUBCASE("a press on the track brings the thumb under the pointer, and drags it on") {
        sim::mouseDown(slider, {205, 5});
        CHECK(ThumbLeft() == 200);
        sim::setPointer(slider, {206, 5});  // 100.5: rounded up
        CHECK(slider.Value() == 101);
        sim::setPointer(slider, {207, 5});  // the same value
        CHECK(ThumbLeft() == 202);
        sim::setPointer(slider, {9000, -50});
        sim::setPointer(slider, {-9000, 50});
        sim::mouseUp(slider, {-9000, 50});
        CHECK(changes == Values{100, 101, 255, 0});
    }
    SUBCASE("a press on the thumb does not move it; the place it was taken at stays under the pointer") {
        slider.SetValue(100);
        sim::mouseDown(slider, {209, 5});
        CHECK(ThumbLeft() == 200);
        sim::setPointer(slider, {229, 5});
        sim::mouseUp(slider, {229, 5});
        sim::setPointer(slider, {300, 5});
        CHECK(changes == Values{110});
    }
    SUBCASE("a drag ends with the mouse, whoever takes it") {
        sim::mouseDown(slider, {205, 5});
        sim::loseCapture();
        sim::setPointer(slider, {305, 5});
        sim::click(slider, {305, 5}, MouseButton::Right);
        slider.SetEnabled(false);
        sim::click(slider, {400, 5});
        CHECK(changes == Values{100});
    }
    CHECK_FALSE(slider.captured());
}

TEST_CASE_FIXTURE(Slider, "A slider is moved with the keyboard") {
    slider.SetValue(100);
    sim::pressKey(key::kTab);
    for (const std::uint16_t code :
         {key::kRight, key::kDown, key::kLeft, key::kUp, key::kPageDown, key::kPageUp, key::kEnd, key::kEnd,
          key::kRight, key::kHome, key::kPageUp, key::kLeft, key::kSpace}) {
        sim::keyDown(code);
    }
    CHECK(changes == Values{101, 102, 101, 100, 116, 100, 255, 0});
    sim::keyUp(key::kRight);
    CHECK(slider.Value() == 0);
}
