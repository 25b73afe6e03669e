// The paint queue, and what painting left behind.
#include <algorithm>

#include "platform/sim/SimCanvas.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform::sim {

namespace {

constexpr int kMostRounds = 100;

Rect clientOf(const WindowRecord& record) {
    return Rect::fromSize({}, clientSizeOf(record));
}

Rect hull(const Rect& a, const Rect& b) {
    if (a.empty()) return b;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

bool needsPaint(const WindowPointer& record) {
    return !record->invalid.empty() && isVisible(*record) && topLevel(record)->state != WindowState::Minimized;
}

// The buffer follows the window's size; what it showed stays where it was.
void fitBuffer(WindowRecord& record, Size size) {
    if (record.bufferSize == size) return;
    std::vector<Color> fresh(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height),
                             kUnpainted);
    const int rows = std::min(size.height, record.bufferSize.height);
    const int columns = std::min(size.width, record.bufferSize.width);
    for (int y = 0; y < rows; ++y) {
        std::copy_n(record.buffer.begin() + y * record.bufferSize.width, columns, fresh.begin() + y * size.width);
    }
    record.buffer = std::move(fresh);
    record.bufferSize = size;
}

}  // namespace

void invalidateRecord(WindowRecord& record, const Rect& area) {
    const Rect inside = area.intersect(clientOf(record));
    if (!inside.empty()) record.invalid = hull(record.invalid, inside);
}

void invalidateTree(WindowRecord& record) {
    invalidateRecord(record, clientOf(record));
    for (const std::uintptr_t native : record.children) invalidateTree(*findRecord(native));
}

void paintRecord(const WindowPointer& record) {
    const Rect dirty = std::exchange(record->invalid, {}).intersect(clientOf(*record));
    if (dirty.empty() || record->object == nullptr) return;
    fitBuffer(*record, clientSizeOf(*record));
    record->drawn.clear();
    PaintContext context{record->bufferSize, record->buffer, record->drawn, dirty, {}};
    context.fill(dirty, kUnpainted);
    Canvas canvas(&context);
    if (record->textBox) {
        paintBox(*record, canvas, dirty);
    } else {
        WindowAccess::paint(*record->object, canvas, dirty);
    }
}

void paintTree(const WindowPointer& record) {
    if (needsPaint(record)) paintRecord(record);
    const std::vector<std::uintptr_t> children = record->children;
    for (const std::uintptr_t native : children) {
        if (const WindowPointer child = findRecord(native)) paintTree(child);
    }
}

void paintInvalid() {
    std::vector<WindowPointer> waiting;
    for (int round = 0; round < kMostRounds; ++round) {
        waiting.clear();
        for (const auto& [native, record] : machine().desktop.windows) {
            if (needsPaint(record)) waiting.push_back(record);
        }
        if (waiting.empty()) return;
        for (const WindowPointer& record : waiting) {
            if (!record->destroying && needsPaint(record)) paintRecord(record);
        }
    }
    fail("a window never stops painting: its paint handler invalidates it");
}

std::vector<Drawn> paint(Window& window, bool everything) {
    const WindowPointer record = findRecord(window.native());
    if (!record) return {};
    if (everything) invalidateRecord(*record, clientOf(*record));
    if (record->invalid.empty()) return {};
    paintRecord(record);
    return record->drawn;
}

Color pixelAt(Window& window, Point at) {
    const WindowPointer record = findRecord(window.native());
    if (!record || !Rect::fromSize({}, record->bufferSize).contains(at)) return kUnpainted;
    const Color pixel = record->buffer[static_cast<std::size_t>(at.y * record->bufferSize.width + at.x)];
    return pixel == kUnpainted ? pixel : pixel & 0xFFFFFFU;
}

std::vector<Color> pixels(const Window& window) {
    const WindowPointer record = findRecord(window.native());
    return record ? record->buffer : std::vector<Color>{};
}

Rect invalidArea(const Window& window) {
    const WindowPointer record = findRecord(window.native());
    return record ? record->invalid : Rect{};
}

std::uint64_t drawCount() {
    return machine().desktop.drawCount;
}

}  // namespace platform::sim
