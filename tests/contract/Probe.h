// A window that notes what it is told, and a desktop of three of them.
#pragma once

#include <doctest/doctest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "contract/Desktop.h"
#include "contract/Machine.h"
#include "platform/Window.h"

namespace contract {

using Log = std::vector<std::string>;

inline std::string number(int value) {
    return std::to_string(value);
}

inline std::string place(Point at) {
    return number(at.x) + "," + number(at.y);
}

inline std::string extent(Size size) {
    return number(size.width) + "x" + number(size.height);
}

// What a probe can be.
inline WindowSpec asMain(const Rect& bounds = {100, 100, 500, 400}) {
    return {WindowKind::Main, "ProbeMain", "", nullptr, bounds};
}
inline WindowSpec asDialogOf(Window& owner) {
    return {WindowKind::Dialog, "", "", &owner, {150, 150, 350, 300}};
}
inline WindowSpec asChildOf(Window& parent, const Rect& bounds, bool tabStop = false) {
    return {WindowKind::Child, "Probe", "", &parent, bounds, tabStop};
}
inline WindowSpec asListOf(Window& owner, const Rect& bounds) {
    return {WindowKind::Popup, "ProbePopup", "", &owner, bounds};
}
inline WindowSpec asGadget(const Rect& bounds, Window* parent = nullptr) {
    return {WindowKind::Gadget, "ProbeGadget", "", parent, bounds};
}

// Notes what it is told, as "name event".
class Probe : public Window {
public:
    Probe(std::string name, Log& log) : name_(std::move(name)), log_(log) {}
    Probe(std::string name, Log& log, const WindowSpec& spec) : Probe(std::move(name), log) {
        REQUIRE(createAs(spec));
    }
    bool createAs(WindowSpec spec) {
        spec.title = name_;
        return create(spec);
    }

    // Moves and leaves are noted on request: a pointer that rests on the screen speaks up whenever a window comes
    // up below it.
    bool notesPointer = false;
    Rect lastDirty;
    Size least;
    bool keepOpen = false;
    bool dragsByPress = false;           // of the left button
    std::function<void(Canvas&)> draws;  // on the white ground
    std::function<void()> keyPressed;
    KeyEvent lastKey;
    std::vector<std::string> dropped;

protected:
    void onPaint(Canvas& canvas, const Rect& dirty) override {
        canvas.fill(dirty, rgb(255, 255, 255));
        if (draws) draws(canvas);
        lastDirty = dirty;
        note("paint");
    }
    void onSize(Size client, WindowState state) override {
        const char* names[] = {"size ", "minimized ", "maximized "};
        note(names[static_cast<int>(state)] + extent(client));
    }
    void onMouse(const MouseEvent& event) override {
        if (event.action == MouseAction::Move && !notesPointer) return;
        const char* actions[] = {"down", "double", "up", "move"};
        const char* buttons[] = {"", " left", " right", " middle"};
        std::string text = actions[static_cast<int>(event.action)];
        text += buttons[static_cast<int>(event.button)];
        if (event.modifiers.shift) text += " shift";
        if (event.modifiers.ctrl) text += " ctrl";
        if (event.leftHeld) text += " held";
        note(text + " " + place(event.at));
        if (!dragsByPress || event.action != MouseAction::Down || event.button != MouseButton::Left) return;
        dragAsByCaption();
        note("dragged");
    }
    void onMouseLeave() override {
        if (notesPointer) note("leave");
    }
    void onWheel(const WheelEvent& event) override { note("wheel " + number(event.delta) + " " + place(event.at)); }
    void onKey(const KeyEvent& event) override {
        std::string text = event.down ? "key " : "keyup ";
        if (event.modifiers.shift) text += "shift ";
        if (event.modifiers.ctrl) text += "ctrl ";
        note(text + number(event.code));
        lastKey = event;
        if (event.down && keyPressed) keyPressed();
    }
    void onFocus(bool gained) override { note(gained ? "focus" : "blur"); }
    void onTimer(int id) override { note("timer " + number(id)); }
    void onCaptureLost() override { note("captureLost"); }
    void onDropFiles(const std::vector<std::string>& paths) override { dropped = paths; }
    void onSystemColors() override { note("colors"); }
    void onClose() override {
        note("close");
        if (!keepOpen) Window::onClose();
    }
    void onEndSession() override { note("endSession"); }
    void onTray(TrayEvent event) override {
        const char* names[] = {"left", "double", "right", "balloon"};
        note(std::string("tray ") + names[static_cast<int>(event)]);
    }
    void onTextChanged() override { note("says " + text()); }
    void onTaskbarCreated() override { note("taskbar"); }
    void onDestroyed() override { note("destroyed"); }
    Size minimumSize() const override { return least; }

private:
    void note(const std::string& what) { log_.push_back(name_ + " " + what); }

    std::string name_;
    Log& log_;
};

inline int count(const Log& log, const std::string& entry) {
    return static_cast<int>(std::count(log.begin(), log.end(), entry));
}

inline bool has(const Log& log, const std::string& entry) {
    return count(log, entry) > 0;
}

// What of the log is wanted, in order.
inline Log only(Log log, const Log& wanted) {
    std::erase_if(log, [&wanted](const std::string& entry) { return !has(wanted, entry); });
    return log;
}

// Moves the pointer there, or clicks there, until `done`: a pointer that is moved by a program may be reported
// where it was before.
inline bool handUntil(void (*hand)(Window&, Point), Window& window, Point at, const std::function<bool()>& done) {
    return waitFor([&] {
        hand(window, at);
        pumpMessages();
        return done();
    });
}

// A main window with two controls, shown and painted.
struct Desk : Fresh {
    Log log;
    Probe main{"main", log, asMain()};
    Probe a{"a", log, asChildOf(main, {10, 10, 110, 60}, true)};
    Probe b{"b", log, asChildOf(main, {120, 10, 220, 60}, true)};

    Desk() {
        main.show(ShowCommand::Show);
        pumpMessages();
        REQUIRE(waitFor([this] { return has(log, "main paint") && has(log, "a paint") && has(log, "b paint"); }));
        log.clear();
    }
};

}  // namespace contract
