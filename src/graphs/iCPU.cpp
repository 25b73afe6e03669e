#include "graphs/iCPU.h"

#include <algorithm>

#include "graphs/GraphLooks.h"
#include "graphs/GraphMenu.h"
#include "process/ProcessDetails.h"
#include "text/Numbers.h"

namespace graphs {

using platform::ShowCommand;

namespace {

constexpr int kSampleTimer = 1;
constexpr char kUnknown[] = "n/a";

std::optional<std::uint64_t> CreationOf(platform::ProcessId pid) {
    return process::CreationTime(platform::openProcess(pid, process::rights::kQuery));
}

std::string OrUnknown(std::string text) {
    return text.empty() ? kUnknown : text;
}

}  // namespace

iCPU::iCPU(const Parts& parts, int slot)
    : GraphWindow(parts.options), parts_(parts), slot_(slot), meter_(parts.access.HighestCpu()) {}

bool iCPU::Launch(const std::string& fileName, platform::ProcessId pid, const platform::Rect& bounds) {
    meter_.SetPID(pid);
    creation_ = CreationOf(pid);
    fileName_ = fileName;
    captionName_ = fileName.substr(0, fileName.rfind('.'));
    if (!CreateGraph("iCPU", captionName_, bounds, Options().edgeDetection)) return false;
    if (Options().stayOnTop) SetStayOnTop(true);
    show(ShowCommand::ShowInactive);
    startTimer(kSampleTimer, kSampleMilliseconds);
    return true;
}

std::string iCPU::CaptionText() const {
    return text::TwoDigits(history_.Newest()) + "%  " + captionName_;
}

bool iCPU::SameProcess() const {
    const auto creation = CreationOf(PID());
    return !creation || !creation_ || *creation == *creation_;
}

void iCPU::onPaint(platform::Canvas& canvas, const platform::Rect&) {
    const GraphOptions& options = Options();
    DrawPlot(canvas, clientSize(), history_.Samples(), options.plotColor, SeenThrough());
    if (!showCaption_) return;
    DrawCaption(canvas, clientSize(), CaptionText(), options.captionColor, history_.Samples(), options.plotColor,
                SeenThrough());
}

void iCPU::onTimer(int) {
    if (history_.TickDue() && history_.Add(static_cast<int>(meter_.GetCpuUsage()))) Repaint();
    const bool over = PointerOver();
    FollowPointer(over);
    Explain(over && underPointer());  // another window may lie over it, with a tip of its own
}

// Each visit of the pointer gets a new tip: its words stay what they were when it came.
void iCPU::Explain(bool over) {
    controls::BalloonTips& tips = parts_.tips;
    if (over && Options().tips && !InHandler()) {
        // Tips of graphs have an option of their own.
        if (!tips.ShownFor(*this)) tips.Show(TipText(), *this, "", true);
    } else if (tips.ShownFor(*this)) {
        tips.Remove();
    }
}

std::string iCPU::TipText() const {
    const std::string title = process::TitleOf(fileName_, PID(), parts_.access.ImagePath(PID()));
    const auto memory = parts_.access.WorkingSetKb(PID());
    const std::string uptime = process::UptimeText(process::StartTime(PID()), process::LocalNow());
    return "Title: " + OrUnknown(title) + "\r\nMemory: " + (memory ? text::Grouped(*memory) + "K" : kUnknown) +
           "\r\nUptime: " + OrUnknown(uptime) + "\r\nPID: " + text::Decimal(PID());
}

void iCPU::Close() {
    Explain(false);  // a tip would outlive its window
    destroy();
}

void iCPU::onDestroyed() {
    parts_.group.Closed(*this);
}

void iCPU::RunMenu(platform::Point screen) {
    Explain(false);
    GraphMenuState state;
    state.divisor = history_.Divisor();
    state.stayOnTop = stayOnTop_;
    state.edgeDetection = EdgeDetection();
    state.showCaption = showCaption_;
    const int id = ShowGraphMenu(*this, screen, state);
    if (exists()) Run(id);  // else the process ended while the menu was open
}

void iCPU::Run(int id) {
    switch (id) {
        case command::kStayOnTop:
            return SetStayOnTop(!stayOnTop_);
        case command::kEdgeDetection:
            return SetEdgeDetection(!EdgeDetection());
        case command::kShowCaption:
            showCaption_ = !showCaption_;
            return Repaint();
        case command::kRememberPositions:
            return parts_.group.RememberPositions();
        case command::kForgetPositions:
            return parts_.group.ForgetPositions();
        case command::kHideAll:
            return parts_.group.HideAll();
        case command::kCloseAll:
            return parts_.group.CloseAll();
        case command::kHide:
            return show(ShowCommand::Hide);
        case command::kClose:
            return Close();
        default:
            if (const int divisor = DivisorOfCommand(id); divisor > 0) SetGraphTime(divisor);
    }
}

void iCPU::SetGraphTime(int divisor) {
    stopTimer(kSampleTimer);
    history_.SetDivisor(divisor);
    startTimer(kSampleTimer, kSampleMilliseconds);
}

void iCPU::SetStayOnTop(bool on) {
    stayOnTop_ = on;
    setTopmost(on);
}

}  // namespace graphs
