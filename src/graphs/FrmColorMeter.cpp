#include "graphs/FrmColorMeter.h"

#include <string_view>

#include "controls/PictureMenu.h"
#include "graphs/GraphLooks.h"
#include "process/ProcessDetails.h"
#include "settings/WindowPosition.h"
#include "text/Split.h"

namespace graphs {

using platform::Canvas;
using platform::Color;
using platform::Rect;
using platform::ShowCommand;
using platform::Size;

namespace {

constexpr char kName[] = "FrmColorMeter";
constexpr char kTitle[] = "CPU usage";

constexpr int kBars = static_cast<int>(LoadHistory::kSamples);
constexpr Size kSize{kBars + 2, kPlotHeight + 2};
constexpr int kGap = 4;       // pixels to the edges of the work area where it first stands
constexpr int kTextRoom = 5;  // above and below the text

// Clear, but no traffic light.
constexpr Color kLow = platform::rgb(63, 178, 96);
constexpr Color kMiddle = platform::rgb(232, 200, 72);
constexpr Color kHigh = platform::rgb(226, 70, 58);

namespace command {
constexpr int kTotal = 1;
constexpr int kAverage = 2;
constexpr int kReset = 3;
constexpr int kEdgeDetection = 4;
constexpr int kClose = 5;
}  // namespace command

platform::PictureHandle MakeColorBar() {
    return platform::drawPicture({kBars, kPlotHeight}, kMiddle, [](Canvas& canvas) {
        constexpr int kHalf = kPlotHeight / 2;
        canvas.gradient({0, 0, kBars, kHalf}, kHigh, kMiddle, platform::Direction::Vertical);
        canvas.gradient({0, kHalf, kBars, kPlotHeight}, kMiddle, kLow, platform::Direction::Vertical);
    });
}

void Call(const std::function<void()>& callback) {
    if (callback) callback();
}

}  // namespace

FrmColorMeter::FrmColorMeter(const Parts& parts)
    : GraphWindow(parts.options), parts_(parts), usage_(process::LocalNow()) {}

bool FrmColorMeter::Open() {
    if (exists()) {
        BringForward();
        return true;
    }
    if (!colorBar_) colorBar_ = MakeColorBar();
    average_ = false;
    history_.Clear();
    if (!CreateGraph(kName, kTitle, Place(), Options().edgeDetection)) return false;
    show(ShowCommand::ShowInactive);
    usage_.Checked(process::LocalNow());  // nobody looked at the clock while there was no window
    Call(StartGraphTimer);
    return true;
}

// Without a frame to pull at, the window is always of one size: of what is stored only the place counts.
Rect FrmColorMeter::Place() const {
    if (exists()) return bounds();
    if (const auto stored = settings::ParseWindowPosition(parts_.settings.Position(kName))) {
        return Rect::fromSize(stored->origin(), kSize);
    }
    const Rect area = platform::nearestWorkArea({0, 0, 1, 1});
    return Rect::fromSize({area.right - kSize.width - kGap, area.top + kGap}, kSize);
}

void FrmColorMeter::Close() {
    if (!exists()) return;
    settings::SaveWindowPosition(*this, kName, parts_.settings);
    destroy();
}

void FrmColorMeter::onDestroyed() {
    Call(StopGraphTimer);
}

void FrmColorMeter::GraphTimer() {
    if (!exists()) return;
    bool changed = history_.Add(parts_.totals.last) && !average_;
    const std::int64_t now = process::LocalNow();
    usage_.FollowClock(now);  // for an average that is shown later, too
    if (average_) {
        std::string text = usage_.Text(parts_.totals, now);
        changed = text != averageText_;
        averageText_ = std::move(text);
    }
    usage_.Checked(now);
    if (changed) Repaint();
    FollowPointer(PointerOver());
}

void FrmColorMeter::onPaint(Canvas& canvas, const Rect&) {
    if (average_) {
        DrawAverage(canvas);
    } else {
        DrawBars(canvas);
    }
}

void FrmColorMeter::DrawBars(Canvas& canvas) const {
    if (SeenThrough()) {
        DrawHole(canvas, kSize, GroundFor(kMiddle));
    } else {
        DrawGround(canvas, kSize, GroundFor(kMiddle));
    }
    const auto samples = history_.Samples();
    // Neighbours of one height are copied together.
    for (int from = 0; from < kBars;) {
        const int height = samples[static_cast<std::size_t>(from)];
        int to = from + 1;
        while (to < kBars && samples[static_cast<std::size_t>(to)] == height) ++to;
        if (height > 0) {
            canvas.picture({from + 1, kPlotHeight + 1 - height}, colorBar_,
                           {from, kPlotHeight - height, to, kPlotHeight});
        }
        from = to;
    }
}

void FrmColorMeter::DrawAverage(Canvas& canvas) const {
    using platform::Font;
    const Color ink = Options().captionColor;
    const std::string_view time = std::string_view(averageText_).substr(0, averageText_.find('\r'));
    const Size line = platform::textSize(text::Trim(time), Font::Normal);
    const int blanks = platform::textSize(time, Font::Normal).width - line.width;
    // In the middle is what there is to be seen, not the blanks before it.
    const int left = (kSize.width - line.width) / 2 - blanks;
    const int top = (kSize.height - 2 * line.height) / 2;
    const Rect area{0, top - kTextRoom, kSize.width, top + 2 * line.height + kTextRoom};
    if (SeenThrough()) canvas.fill(Rect::fromSize({}, kSize), kHole);
    DrawPanel(canvas, SeenThrough() ? area : Rect::fromSize({}, kSize), GroundFor(ink));
    canvas.text({left, top, kSize.width, area.bottom}, averageText_, ink, Font::Normal, platform::kTextNoPrefix);
}

void FrmColorMeter::RunMenu(platform::Point screen) {
    const controls::MenuEntry entries[] = {
        {command::kTotal, "Total CPU usage", -1, true, !average_},
        {command::kAverage, "Average CPU usage", -1, true, average_},
        {command::kReset, "Reset average usage"},
        {},
        {command::kEdgeDetection, "Edge Detection", -1, true, EdgeDetection()},
        {},
        {command::kClose, "Close"},
    };
    const int id = controls::ShowPictureMenu(*this, screen, entries);
    if (exists()) Run(id);
}

void FrmColorMeter::Run(int id) {
    switch (id) {
        case command::kTotal:
            return ShowBars();
        case command::kAverage:
            return ShowAverage();
        case command::kReset:
            return ResetAverage();
        case command::kEdgeDetection:
            return SetEdgeDetection(!EdgeDetection());
        case command::kClose:
            return Close();
        default:
            return;
    }
}

void FrmColorMeter::ShowBars() {
    average_ = false;
    Repaint();
}

void FrmColorMeter::ShowAverage() {
    average_ = true;
    averageText_.clear();
    Repaint();
    GraphTimer();
}

void FrmColorMeter::ResetAverage() {
    Call(StopGraphTimer);
    Call(StopReadings);
    averageText_.clear();
    Repaint();
    parts_.totals.sum = 0;
    parts_.totals.samples = 0;
    usage_.Begin(process::LocalNow());
    Call(StartReadings);
    GraphTimer();
    Call(StartGraphTimer);
}

}  // namespace graphs
