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

int StripHeight(const MainParts& parts) {
    return parts.toolBar2Height + 2 * kStripPadding;
}

}  // namespace

platform::Size SmallestMainWindow(const MainParts& parts) {
    const int strip = kMargin + parts.toolBar2Width + kGap + parts.affinityWidth + kMargin;
    const int lists = 2 * kLeastListWidth + kSplitterWidth + 2 * kMargin;
    const int bottom = parts.statusWidth + 2 * parts.gaugeWidth + kGap + kMargin;
    return {std::max({parts.toolBar1Width, strip, lists, bottom}) + kFrameWidth,
            parts.toolBar1Height + StripHeight(parts) + kLeastListHeight + kStatusHeight + kFrameHeight};
}

int EffectiveSplitter(int clientWidth, int wanted) {
    const int most = clientWidth - kMargin - kLeastListWidth - kSplitterWidth;
    return std::max(kMargin + kLeastListWidth, std::min(wanted, most));
}

MainLayout LayOutMain(platform::Size client, int splitter, const MainParts& parts) {
    MainLayout out;
    out.toolBar1 = {0, 0, client.width, parts.toolBar1Height};

    const int stripTop = parts.toolBar1Height + kStripPadding;
    const int stripBottom = stripTop + parts.toolBar2Height;
    out.toolBar2 = {kMargin, stripTop, kMargin + parts.toolBar2Width, stripBottom};
    out.affinity = {out.toolBar2.right + kGap, stripTop, out.toolBar2.right + kGap + parts.affinityWidth,
                    stripBottom};

    // One pixel around each list is left for its frame.
    const int listTop = stripBottom + kStripPadding + 1;
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
