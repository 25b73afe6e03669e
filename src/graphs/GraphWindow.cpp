#include "graphs/GraphWindow.h"

#include <algorithm>

#include "graphs/GraphLooks.h"
#include "platform/Menu.h"
#include "settings/WindowPosition.h"

namespace graphs {

using platform::Point;
using platform::Rect;

namespace {
constexpr std::uint8_t kSolid = 255;
}

// A handler that waits for the user.
class GraphWindow::Handling {
public:
    explicit Handling(GraphWindow& window) : window_(window) { ++window_.handlers_; }
    ~Handling() { --window_.handlers_; }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

private:
    GraphWindow& window_;
};

bool GraphWindow::CreateGraph(const std::string& className, const std::string& title, const Rect& bounds,
                              bool edgeDetection) {
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Gadget;
    spec.className = className;
    spec.title = title;
    spec.bounds = bounds;
    if (!create(spec)) return false;
    canHole_ = holed_ = false;
    edgeDetection_ = edgeDetection;  // it stays where the user once left it
    if (options_.shadow) addDropShadow();
    ApplySeeThrough();
    return true;
}

void GraphWindow::SetEdgeDetection(bool on) {
    edgeDetection_ = on;
    if (on) MoveInside();
}

void GraphWindow::BringForward() {
    if (edgeDetection_) MoveInside();
    settings::BringWithinReach(*this);
    show(platform::ShowCommand::Show);
    bringToFront();
}

void GraphWindow::MoveInside() {
    const Rect now = bounds();
    const Rect inside = InsideWorkArea(now);
    if (inside != now) setBounds(inside);
}

bool GraphWindow::PointerOver() const {
    return visible() && bounds().contains(platform::pointerPosition());
}

void GraphWindow::FollowPointer(bool over) {
    if (canHole_) PaintHoled(!over);
}

// The hole's own colour is never to be seen: the system knows of it before it is painted and until it is gone.
void GraphWindow::ApplySeeThrough() {
    if (options_.seeThrough) {
        canHole_ = setTranslucency(kSolid, kHole);
        PaintHoled(canHole_ && !PointerOver());
    } else {
        canHole_ = false;
        PaintHoled(false);
        setTranslucency(AlphaOfLevel(options_.level));
    }
}

// To make the window solid it is enough that nothing in it has the hole's colour: the window stays what it is for
// the system, and nothing flickers.
void GraphWindow::PaintHoled(bool holed) {
    if (holed_ == holed) return;
    holed_ = holed;
    Repaint();
    update();
}

void GraphWindow::Repaint() {
    if (visible()) invalidate();
}

void GraphWindow::onMouse(const platform::MouseEvent& event) {
    using platform::MouseAction;
    using platform::MouseButton;
    const bool pressed = event.action == MouseAction::Down || event.action == MouseAction::DoubleClick;
    if (event.button == MouseButton::Left && pressed) {
        Drag();
    } else if (event.button == MouseButton::Right && event.action == MouseAction::Up) {
        OpenMenu(platform::pointerPosition());
    }
}

void GraphWindow::onKey(const platform::KeyEvent& event) {
    if (!event.down || event.code != platform::key::kApps) return;
    const platform::Size size = clientSize();
    OpenMenu(toScreen({size.width / 2, size.height / 2}));
}

void GraphWindow::Drag() {
    const Handling handling(*this);
    dragAsByCaption();
    if (exists() && edgeDetection_) MoveInside();
}

void GraphWindow::OpenMenu(Point screen) {
    if (InHandler()) return;
    const Handling handling(*this);
    bringToFront();  // so that the menu goes when the user clicks elsewhere
    RunMenu(screen);
}

Rect InsideWorkArea(const Rect& bounds) {
    const Rect area = platform::nearestWorkArea(bounds);
    // Left and top win where the area is too small.
    return Rect::fromSize({std::max(area.left, std::min(bounds.left, area.right - bounds.width())),
                           std::max(area.top, std::min(bounds.top, area.bottom - bounds.height()))},
                          bounds.size());
}

}  // namespace graphs
