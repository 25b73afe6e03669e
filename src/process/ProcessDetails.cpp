#include "process/ProcessDetails.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/Clock.h"
#include "platform/Instance.h"
#include "platform/OtherWindows.h"
#include "process/ProcessAccess.h"
#include "text/Case.h"
#include "text/Numbers.h"
#include "text/Split.h"

namespace process {

using platform::ProcessId;

namespace {

constexpr std::uint64_t kUnitsPerSecond = 10'000'000;
constexpr std::int64_t kDay = 86'400;
constexpr std::int64_t kHour = 3'600;
constexpr std::int64_t kMinute = 60;

// Seconds. Time services set the clock back by small steps: that must not cost a young process its uptime.
constexpr std::int64_t kClockJitter = 2;

constexpr std::uint32_t kOverlappedWindow = 0x00CF0000;
constexpr std::size_t kMostOfCaption = 255;
constexpr std::size_t kMostOfTitle = 64;
constexpr char kShell[] = "Explorer.exe";

std::int64_t LocalSeconds(std::uint64_t utc) {
    return static_cast<std::int64_t>(utc / kUnitsPerSecond) - platform::localBiasMinutes() * kMinute;
}

bool BeginsWith(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

// The desktop itself is a window of the shell, class "Progman", with a caption: it is no window people mean.
// Balloon tips ("VBBubble") have a caption for a while and are none either; nor are the program's own graphs.
bool CanBeMainWindow(const platform::WindowFacts& window) {
    if (window.caption.empty() || BeginsWith(window.caption, "VBBubble")) return false;
    if (BeginsWith(window.className, "Progman") && (window.style & kOverlappedWindow) == 0) return false;
    if (window.className == "iCPU" || window.className == "FrmColorMeter") return false;
    return window.parent == 0 && window.owner == 0 && window.visible;
}

struct MainWindow {
    std::uintptr_t number = 0;
    std::string caption;
};

MainWindow FindMainWindow(ProcessId id) {
    // A window that goes away while it is looked at belongs to process 0.
    if (id == 0) return {};
    for (const std::uintptr_t number : platform::topLevelWindowNumbers()) {
        const auto facts = platform::windowFacts(number);
        if (facts && facts->process == id && CanBeMainWindow(*facts)) return {number, facts->caption};
    }
    return {};
}

// The list may show names without their extension: the file itself tells the shell from a program "Explorer".
bool IsShell(const std::string& fileText, const std::string& imagePath) {
    return (imagePath.empty() ? fileText : text::ProcessDisplayName(text::FileNameOf(imagePath))) == kShell;
}

std::string Shortened(const std::string& title) {
    const std::string_view shown = text::FirstCharacters(title, kMostOfTitle);
    return shown.size() == title.size() ? title : std::string(shown) + "...";
}

}  // namespace

std::optional<std::uint64_t> CreationTime(const platform::ProcessHandle& process) {
    if (!process) return std::nullopt;
    const auto times = platform::processTimes(process);
    if (!times || times->creation == 0) return std::nullopt;
    return times->creation;
}

std::optional<std::int64_t> StartTime(ProcessId id) {
    const auto creation = CreationTime(platform::openProcess(id, rights::kQuery));
    if (!creation) return std::nullopt;
    return LocalSeconds(*creation);
}

std::int64_t LocalNow() {
    return LocalSeconds(platform::systemTime());
}

std::string UptimeText(std::optional<std::int64_t> start, std::int64_t now) {
    // A process that cannot be opened has no uptime to show: any number would be taken for the truth. Nor has one
    // that started while the clock was ahead.
    if (!start || *start - now > kClockJitter) return {};
    const std::int64_t elapsed = std::max<std::int64_t>(now - *start, 0);
    const std::int64_t parts[] = {elapsed / kDay, elapsed % kDay / kHour, elapsed % kHour / kMinute,
                                  elapsed % kMinute};
    std::string uptime;
    for (const std::int64_t part : parts) {
        if (!uptime.empty()) uptime += ':';
        uptime += text::TwoDigits(static_cast<double>(part));
    }
    return uptime;
}

std::uintptr_t MainWindowOf(ProcessId id) {
    return FindMainWindow(id).number;
}

std::string CaptionOf(ProcessId id) {
    return std::string(text::Trim(text::FirstCharacters(FindMainWindow(id).caption, kMostOfCaption)));
}

std::string TitleOf(const std::string& fileText, ProcessId id, const std::string& imagePath) {
    std::string title = IsShell(fileText, imagePath) ? "Windows Explorer" : CaptionOf(id);
    title.resize(std::min(title.find_first_of("\r\n"), title.size()));
    return Shortened(title);
}

TipText RowTip(const std::string& fileText, ProcessId id, const std::string& imagePath) {
    std::string title = TitleOf(fileText, id, imagePath);
    if (title.empty()) title = Shortened(fileText);
    return {std::move(title), imagePath + "\r\nUpTime: " + UptimeText(StartTime(id), LocalNow())};
}

}  // namespace process
