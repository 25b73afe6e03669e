#include "controls/DialogPlace.h"

#include <algorithm>

#include "controls/Resources.h"

namespace controls {

using platform::Rect;
using platform::Size;

platform::WindowSpec DialogSpec(const std::string& title, platform::Window& owner) {
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Dialog;
    spec.title = title;
    spec.parent = &owner;
    spec.bounds = {0, 0, 400, 300};
    spec.iconResource = kProgramIcon;
    return spec;
}

Rect AreaOfOwner(const platform::Window& owner) {
    if (owner.visible() && owner.state() != platform::WindowState::Minimized) return owner.bounds();
    return platform::nearestWorkArea(owner.normalBounds());
}

Rect PlacedOver(const Rect& area, Size size) {
    const Rect work = platform::nearestWorkArea(area);
    const int left = std::min(area.left + (area.width() - size.width) / 2, work.right - size.width);
    const int top = std::min(area.top + (area.height() - size.height) / 2, work.bottom - size.height);
    return Rect::fromSize({std::max(work.left, left), std::max(work.top, top)}, size);
}

Size FrameOf(const platform::Window& dialog) {
    const Size whole = dialog.bounds().size();
    const Size client = dialog.clientSize();
    return {whole.width - client.width, whole.height - client.height};
}

}  // namespace controls
