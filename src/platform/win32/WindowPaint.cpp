// Double-buffered painting: a window paints into memory, with the part that needs painting as its clip, and only
// the finished picture is shown.
#include "platform/win32/Win32.h"
#include "platform/win32/WindowData.h"

namespace platform {

namespace {

// A bitmap in memory whose coordinates are those of the client area around `box`.
class BackBuffer {
public:
    BackBuffer(HDC screen, const Rect& box) : box_(box) {
        dc_ = CreateCompatibleDC(screen);
        bitmap_ = CreateCompatibleBitmap(screen, box.width(), box.height());
        if (!ready()) return;
        previous_ = SelectObject(dc_, bitmap_);
        SetViewportOrgEx(dc_, -box.left, -box.top, nullptr);
    }
    ~BackBuffer() {
        if (previous_ != nullptr) SelectObject(dc_, previous_);
        if (bitmap_ != nullptr) DeleteObject(bitmap_);
        if (dc_ != nullptr) DeleteDC(dc_);
    }
    BackBuffer(const BackBuffer&) = delete;
    BackBuffer& operator=(const BackBuffer&) = delete;

    bool ready() const { return dc_ != nullptr && bitmap_ != nullptr; }
    HDC dc() const { return dc_; }

    // `region` is in client coordinates; a clip is in those of the bitmap.
    void clip(HRGN region) const {
        OffsetRgn(region, -box_.left, -box_.top);
        SelectClipRgn(dc_, region);
    }

    void show(HDC screen) const {
        SelectClipRgn(dc_, nullptr);
        BitBlt(screen, box_.left, box_.top, box_.width(), box_.height(), dc_, box_.left, box_.top, SRCCOPY);
    }

private:
    Rect box_;
    HDC dc_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
};

void paintThrough(Window& window, HDC screen, HRGN region) {
    RECT bounding{};
    if (GetRgnBox(region, &bounding) == NULLREGION) return;
    const Rect box = toRect(bounding);
    const BackBuffer buffer(screen, box);
    if (!buffer.ready()) {  // short of memory: flicker rather than nothing
        Canvas canvas(screen);
        WindowAccess::paint(window, canvas, box);
        return;
    }
    buffer.clip(region);
    Canvas canvas(buffer.dc());
    WindowAccess::paint(window, canvas, box);
    buffer.show(screen);
}

}  // namespace

void paintWindow(HWND hwnd, Window& window) {
    // BeginPaint empties the update region, so it is taken first.
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    GetUpdateRgn(hwnd, region, FALSE);
    PAINTSTRUCT paint{};
    if (const HDC screen = BeginPaint(hwnd, &paint)) {
        paintThrough(window, screen, region);
        EndPaint(hwnd, &paint);
    }
    DeleteObject(region);
}

}  // namespace platform
