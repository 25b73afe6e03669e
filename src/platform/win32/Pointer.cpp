// The shape of the mouse pointer.
#include "platform/Window.h"
#include "platform/win32/SystemLibrary.h"
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

// The arrow with a plus sign, which users know from dragging files: what is dropped here is added, and stays where
// it came from. It is none of the standard pointers but one of those that the system's own drag and drop shows.
// Found once and kept: the pointers live in the system's library.
HCURSOR dropCursor() {
    constexpr WORD kCopy = 3;
    static const HMODULE library = systemLibraryResources("ole32.dll");
    const HCURSOR copy = library == nullptr ? nullptr : LoadCursorA(library, MAKEINTRESOURCEA(kCopy));
    return copy != nullptr ? copy : LoadCursorA(nullptr, IDC_UPARROW);
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
        case Pointer::Drop:
            return dropCursor();
        case Pointer::NoDrop:
            return LoadCursorA(nullptr, IDC_NO);
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
