// Balloon tips of the simulated desktop never show; what they would say can be asked.
#include "platform/Tooltip.h"

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::machine;

namespace {

constexpr std::size_t kMostTitle = 99;

sim::Tooltip* find(const TooltipHandle& tooltip) {
    const auto found = machine().tooltips.find(tooltip.raw());
    return found == machine().tooltips.end() ? nullptr : &found->second;
}

}  // namespace

void TooltipTag::close(std::uintptr_t raw) noexcept {
    if (machine().tooltips.erase(raw) != 0) sim::note("destroyTooltip");
}

TooltipHandle createTooltip() {
    if (machine().tooltipsFail) return {};
    sim::note("createTooltip");
    const std::uintptr_t raw = sim::nextSerial();
    machine().tooltips.emplace(raw, sim::Tooltip{});
    return TooltipHandle(raw);
}

bool addTool(const TooltipHandle& tooltip, const Window& target, const std::string& text) {
    sim::Tooltip* found = find(tooltip);
    if (found == nullptr || !sim::findRecord(target.native())) return false;
    found->tools[target.native()] = text.c_str();
    return true;
}

void setTooltipTitle(const TooltipHandle& tooltip, const std::string& title) {
    if (sim::Tooltip* found = find(tooltip)) found->title = std::string(sim::firstUnits(title, kMostTitle)).c_str();
}

void setTooltipDelays(const TooltipHandle& tooltip, int autoPop, int initial) {
    sim::Tooltip* found = find(tooltip);
    if (found == nullptr) return;
    found->autoPop = autoPop;
    found->initial = initial;
}

namespace sim {

std::vector<Tip> tips() {
    std::vector<Tip> found;
    for (const auto& [raw, tooltip] : machine().tooltips) {
        for (const auto& [target, text] : tooltip.tools) {
            // A tool goes with its window.
            const WindowPointer record = findRecord(target);
            if (record) found.push_back({record->title, tooltip.title, text, tooltip.autoPop, tooltip.initial});
        }
    }
    return found;
}

void failTooltips(bool refuse) {
    machine().tooltipsFail = refuse;
}

}  // namespace sim

}  // namespace platform
