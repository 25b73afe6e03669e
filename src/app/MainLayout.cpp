#include "app/MainLayout.h"

#include <algorithm>

namespace app {

using platform::Rect;

namespace {

constexpr int kStatusHeight = 22;
constexpr int kStripPadding = 2;
constexpr int kGap = 8;
constexpr int kLeastListHeight = 110;
// Room for the widest frame and caption in use; a few pixels too many do no harm.
constexpr int kFrameWidth = 16;
constexpr int kFrameHeight = 40;

// The strip above the lists: its parts stand side by side, and in further lines where one is not wide enough.
class Strip {
public:
    Strip(int width, const MainParts& parts)
        : width_(width), height_(parts.toolBar2Height), top_(parts.toolBar1Height) {
        out.toolBar2 = Next(parts.toolBar2Width);
        out.affinity = Next(parts.affinityWidth);
        out.priority = Next(parts.priorityWidth);
        out.invert = Next(parts.invertWidth);
        out.refresh = Next(parts.refreshWidth);
    }
    int Bottom() const { return top_ + kStripPadding + height_ + kStripPadding; }

    MainLayout out;

private:
    Rect Next(int width) {
        if (x_ > kMargin && x_ + width > width_ - kMargin) {
            x_ = kMargin;
            top_ += height_ + kStripPadding;
        }
        const Rect place = Rect::fromSize({x_, top_ + kStripPadding}, {width, height_});
        x_ += width + kGap;
        return place;
    }

    int width_;
    int height_;
    int top_;
    int x_ = kMargin;
};

}  // namespace

platform::Size SmallestMainWindow(const MainParts& parts) {
    const int widest = std::max(
        {parts.toolBar2Width, parts.affinityWidth, parts.priorityWidth, parts.invertWidth, parts.refreshWidth});
    const int lists = 2 * kLeastListWidth + kSplitterWidth;
    const int bottom = parts.statusWidth + 2 * parts.gaugeWidth + kGap;
    const int width = std::max({parts.toolBar1Width, widest + 2 * kMargin, lists + 2 * kMargin, bottom + kMargin});
    return {width + kFrameWidth, Strip(width, parts).Bottom() + kLeastListHeight + kStatusHeight + kFrameHeight};
}

int EffectiveSplitter(int clientWidth, int wanted) {
    const int most = clientWidth - kMargin - kLeastListWidth - kSplitterWidth;
    return std::max(kMargin + kLeastListWidth, std::min(wanted, most));
}

MainLayout LayOutMain(platform::Size client, int splitter, const MainParts& parts) {
    const Strip strip(client.width, parts);
    MainLayout out = strip.out;
    out.toolBar1 = {0, 0, client.width, parts.toolBar1Height};

    // One pixel around each list is left for its frame.
    const int listTop = strip.Bottom() + 1;
    const int statusTop = std::max(listTop, client.height - kStatusHeight);
    const int listBottom = std::max(listTop, statusTop - 1);
    const int right = EffectiveSplitter(client.width, splitter);
    out.processList = {kMargin, listTop, right, listBottom};
    out.splitter = {right, listTop, right + kSplitterWidth, listBottom};
    out.favoritesList = {out.splitter.right, listTop, std::max(out.splitter.right, client.width - kMargin),
                         listBottom};

    const int gaugeTop = statusTop + 3;
    const int gaugeBottom = statusTop + kStatusHeight - 3;
    const int cpuLeft = client.width - kMargin - parts.gaugeWidth;
    const int memoryLeft = cpuLeft - kGap - parts.gaugeWidth;
    out.cpuGauge = {cpuLeft, gaugeTop, cpuLeft + parts.gaugeWidth, gaugeBottom};
    out.memoryGauge = {memoryLeft, gaugeTop, memoryLeft + parts.gaugeWidth, gaugeBottom};
    out.status = {0, statusTop, memoryLeft, statusTop + kStatusHeight};
    return out;
}

}  // namespace app
