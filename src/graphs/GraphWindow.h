// What every graph is: a small window that stands on the desktop, is dragged by its body, has its menu under the
// right button, and lets the desktop show through.
#pragma once

#include <string>

#include "graphs/GraphOptions.h"
#include "platform/Window.h"

namespace graphs {

class GraphWindow : public platform::Window {
public:
    // The window is to be kept wholly within the work area of its screen; on, it is moved there at once.
    void SetEdgeDetection(bool on);
    // The user asks for it: shows it in front of other windows, where it was, or within reach.
    void BringForward();
    bool EdgeDetection() const { return edgeDetection_; }
    // Takes over see-through and level of the options.
    void ApplySeeThrough();
    // Takes over the colours of the options.
    void ApplyColors() { Repaint(); }
    // One of its own handlers waits for the user, in a menu or while dragging: the object must not go yet.
    bool InHandler() const { return handlers_ > 0; }

protected:
    explicit GraphWindow(const GraphOptions& options) : options_(options) {}

    // Hidden at first.
    bool CreateGraph(const std::string& className, const std::string& title, const platform::Rect& bounds,
                     bool edgeDetection);
    const GraphOptions& Options() const { return options_; }

    // The window is seen and the pointer within its bounds. A hole has no mouse messages, so that they can't tell.
    bool PointerOver() const;
    // Once a tick: a window that is seen through is solid while the pointer is over it.
    void FollowPointer(bool over);
    // To be painted with holes in place of its ground.
    bool SeenThrough() const { return holed_; }
    // What is hidden is painted when it is shown.
    void Repaint();
    // Shows the menu at a point of the screen and does what was chosen. The window may be gone afterwards.
    virtual void RunMenu(platform::Point screen) = 0;

    void onMouse(const platform::MouseEvent& event) override;
    void onKey(const platform::KeyEvent& event) override;

private:
    class Handling;
    void Drag();
    void OpenMenu(platform::Point screen);
    void PaintHoled(bool holed);
    void MoveInside();

    const GraphOptions& options_;
    bool edgeDetection_ = false;
    bool canHole_ = false;  // the system leaves out what is painted in the hole's colour
    bool holed_ = false;
    int handlers_ = 0;
};

// The rectangle within the work area of its nearest screen, of the same size.
platform::Rect InsideWorkArea(const platform::Rect& bounds);

}  // namespace graphs
