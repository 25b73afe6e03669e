// A window that notes what it is told, and a desktop of three of them.
#pragma once

#include <doctest/doctest.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "contract/Desktop.h"
#include "contract/Machine.h"
#include "platform/Window.h"

namespace contract {

using namespace platform;

using Log = std::vector<std::string>;

inline std::string number(int value) {
    return std::to_string(value);
}

inline std::string place(Point at) {
    return number(at.x) + "," + number(at.y);
}

// Notes what it is told, as "name event".
class Probe : public Window {
public:
    Probe(std::string name, Log& log) : name_(std::move(name)), log_(log) {}

    bool createIn(Window* parent, const Rect& bounds, bool tabStop = false) {
        return create({WindowKind::Child, "Probe", name_, parent, bounds, tabStop});
    }
    bool createMain(const Rect& bounds = {100, 100, 500, 400}) {
        return create({WindowKind::Main, "ProbeMain", name_, nullptr, bounds});
    }
    bool createDialog(Window* owner) {
        return create({WindowKind::Dialog, "", name_, owner, {150, 150, 350, 300}});
    }
    bool createPopup(Window* owner, const Rect& bounds) {
        return create({WindowKind::Popup, "ProbePopup", name_, owner, bounds});
    }
    bool createGadget(const Rect& bounds, Window* parent = nullptr) {
        return create({WindowKind::Gadget, "ProbeGadget", name_, parent, bounds});
    }

    // Moves and leaves are noted on request: a pointer that rests on the screen speaks up whenever a window comes
    // up below it.
    bool notesPointer = false;
    Rect lastDirty;
    Size least;
    bool keepOpen = false;
    bool dragsByPress = false;  // of the left button
    std::vector<std::string> dropped;

protected:
    void onPaint(Canvas& canvas, const Rect& dirty) override {
        canvas.fill(dirty, rgb(255, 255, 255));
        lastDirty = dirty;
        note("paint");
    }
    void onSize(Size client, WindowState state) override {
        const char* names[] = {"size ", "minimized ", "maximized "};
        note(names[static_cast<int>(state)] + number(client.width) + "x" + number(client.height));
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

// What of the log begins with "name what", in order.
inline Log only(const Log& log, std::initializer_list<std::string> wanted) {
    Log kept;
    for (const std::string& entry : log) {
        if (std::find(wanted.begin(), wanted.end(), entry) != wanted.end()) kept.push_back(entry);
    }
    return kept;
}

// A main window with two controls, shown and painted.
struct Desk {
    Log log;
    Probe main{"main", log};
    Probe a{"a", log};
    Probe b{"b", log};

    Desk() {
        contract::freshMachine();
        REQUIRE(main.createMain());
        REQUIRE(a.createIn(&main, {10, 10, 110, 60}, true));
        REQUIRE(b.createIn(&main, {120, 10, 220, 60}, true));
        main.show(ShowCommand::Show);
        pumpMessages();
        REQUIRE(contract::waitFor(
            [this] { return has(log, "main paint") && has(log, "a paint") && has(log, "b paint"); }));
        log.clear();
    }
};

}  // namespace contract
