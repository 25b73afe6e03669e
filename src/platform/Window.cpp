// The part of windows that is the same on every platform.
#include "platform/Window.h"

#include "platform/MessageLoop.h"

namespace platform {

int runMessageLoop() {
    return dispatchWhile([] { return true; }).value_or(0);
}

std::optional<int> dispatchWhile(const std::function<bool()>& goOn) {
    constexpr int kMostFailures = 1000;
    for (int failures = 0; goOn();) {
        const NextMessage next = dispatchNext();
        if (next.kind == NextMessage::Kind::Quit) return next.quitCode;
        failures = next.kind == NextMessage::Kind::Failed ? failures + 1 : 0;
        if (failures == kMostFailures) return 1;
    }
    return std::nullopt;
}

bool Window::createChild(Window& parent, const std::string& className, const std::string& instanceName,
                         const Rect& bounds, TabStop tabStop) {
    WindowSpec spec;
    spec.className = className;
    spec.title = instanceName;
    spec.parent = &parent;
    spec.bounds = bounds;
    spec.tabStop = tabStop == TabStop::Yes;
    return create(spec);
}

// Handlers that a window does not care about.
void Window::onPaint(Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, systemColor(SysColor::ButtonFace));
}
void Window::onSize(Size, WindowState) {}
void Window::onMouse(const MouseEvent&) {}
void Window::onMouseLeave() {}
void Window::onWheel(const WheelEvent&) {}
void Window::onKey(const KeyEvent&) {}
void Window::onFocus(bool) {}
void Window::onTimer(int) {}
void Window::onCaptureLost() {}
void Window::onDropFiles(const std::vector<std::string>&) {}
void Window::onSystemColors() {}
void Window::onClose() {
    destroy();
}
void Window::onEndSession() {}
void Window::onTray(TrayEvent) {}
void Window::onTextChanged() {}
void Window::onTaskbarCreated() {}
void Window::onDestroyed() {}
Size Window::minimumSize() const {
    return {};
}

}  // namespace platform
