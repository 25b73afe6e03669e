// The shape of the mouse pointer.
#include "platform/Window.h"
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

struct BusyState {
    int depth = 0;
    HCURSOR before = nullptr;
};

// There is one mouse pointer, hence one state.
BusyState& busyState() {
    static BusyState state;
    return state;
}

}  // namespace

bool busyPointerActive() {
    return busyState().depth > 0;
}

HCURSOR cursorFor(Pointer shape) {
    if (busyPointerActive()) shape = Pointer::Busy;
    switch (shape) {
        case Pointer::Busy:
            return LoadCursorA(nullptr, IDC_WAIT);
        case Pointer::SizeWestEast:
            return LoadCursorA(nullptr, IDC_SIZEWE);
        case Pointer::Arrow:
            break;
    }
    return LoadCursorA(nullptr, IDC_ARROW);
}

BusyPointer::BusyPointer() {
    BusyState& state = busyState();
    if (state.depth++ > 0) return;
    state.before = SetCursor(cursorFor(Pointer::Busy));
}

BusyPointer::~BusyPointer() {
    BusyState& state = busyState();
    if (--state.depth > 0) return;
    SetCursor(state.before);
}

}  // namespace platform
