// What holds for every window of the program: nothing overlaps, is cut off or left empty, and Tab goes as one
// reads.
#include "AppFixture.h"

using namespace apptest;
using platform::Rect;
using platform::Window;

namespace {

Rect ClientOf(const Window& window) {
    return Rect::fromSize({}, window.clientSize());
}
bool Inside(const Rect& inner, const Rect& outer) {
    return inner.intersect(outer) == inner;
}

// Every text fits its place. Lists and the caption of a graph may end in an ellipsis.
void CheckTexts(Window& window) {
    for (const sim::Drawn& drawn : sim::paint(window, true)) {
        if (drawn.what != "text" || drawn.text.empty()) continue;
        CAPTURE(drawn.text);
        const platform::Size size = platform::textSize(drawn.text, drawn.font);
        CHECK(drawn.area.height() >= size.height);
        if ((drawn.format & platform::kTextWordEllipsis) != 0) continue;
        CHECK(drawn.area.width() >= size.width);
        CHECK(Inside(drawn.area, ClientOf(window)));
    }
}

// `overlays` are shown on top of others on purpose.
void CheckInside(Window& window, const std::vector<std::string>& overlays = {}) {
    CheckTexts(window);
    std::vector<const Window*> seen;
    const Window* stop = nullptr;
    for (Window* control : sim::controlsOf(window)) {
        CAPTURE(control->text());
        const Rect bounds = control->bounds();
        CHECK_FALSE(bounds.empty());
        CHECK(Inside(bounds, ClientOf(window)));
        const bool overlay = std::count(overlays.begin(), overlays.end(), control->text()) > 0;
        for (const Window* other : seen) {
            if (overlay) break;
            CAPTURE(other->text());
            CHECK_FALSE(bounds.intersects(other->bounds()));
        }
        if (!overlay) seen.push_back(control);
        if (sim::isTabStop(*control)) {
            if (stop != nullptr) {
                CAPTURE(stop->text());
                CHECK((bounds.left >= stop->bounds().right || bounds.top >= stop->bounds().bottom));
            }
            stop = control;
        }
        CheckInside(*control);
    }
}

// Dialogs and boxes: besides, what they hold stands in their middle, no further from one edge than from the other.
void CheckDialog(Window& dialog) {
    CAPTURE(dialog.text());
    CheckInside(dialog);
    Rect held;
    for (const Window* control : sim::controlsOf(dialog)) {
        const Rect bounds = control->bounds();
        held = held.empty() ? bounds
                            : Rect{std::min(held.left, bounds.left), std::min(held.top, bounds.top),
                                   std::max(held.right, bounds.right), std::max(held.bottom, bounds.bottom)};
    }
    CHECK(held.left == dialog.clientSize().width - held.right);
    CHECK(held.top == dialog.clientSize().height - held.bottom);
    CHECK(Inside(dialog.bounds(), platform::nearestWorkArea(dialog.bounds())));
}

struct Desk : Machine {
    Desk() {
        for (const char* path : {"C:\\Apps\\a.exe", "C:\\Apps\\b.exe"}) {
            sim::putFile(path, "");
            Run(path);
        }
        PutProfile("A.exe\t01\tDefault\tC:\\Apps\\a.exe\t-p\r\nB.exe\t1\tHigh\tC:\\Apps\\b.exe\t\r\n");
    }
    void Click(const std::string& name) {
        Window* window = sim::findWindow(name);
        REQUIRE_MESSAGE(window, name);
        sim::click(*window, {6, window->clientSize().height / 2});
    }
};

}  // namespace

TEST_CASE_FIXTURE(Desk, "Every window shows all that it holds, and Tab goes as one reads") {
    for (const int processors : {1, 4, 8}) {
        CAPTURE(processors);
        sim::setProcessorCount(processors);
        Start();
        for (const Rect& bounds : {form->bounds(), Rect{0, 0, 1280, 770}, Rect::fromSize({50, 50}, {1, 1})}) {
            sim::dragFrame(*form, bounds);
            CheckInside(*form);
        }
        SelectFavorites({1});
        sim::click(Favorites(), {40, 47}, platform::MouseButton::Middle);
        CheckInside(*form, {"TxTParam"});
        sim::pressKey(key::kEscape);
        ChooseNext("Change Settings");
        sim::click(Favorites(), {40, 47}, platform::MouseButton::Right);
        for (Window* window : sim::topLevelWindows()) {
            if (window != form.get() && window->visible()) CheckDialog(*window);
        }
        sim::pressKey(key::kEscape);
        sim::whenModal([](Window& dialog) {
            CheckDialog(dialog);
            sim::closeBox(dialog);
        });
        ClickButton2(2);
        ClickButton(app::button::kSetOptions);
        for (const char* page : {"Misc", "CPU Graphs", "Start Up"}) {
            Click(page);
            CheckDialog(*sim::findWindow("Kestrum Options"));
        }
        form.reset();
    }
}
