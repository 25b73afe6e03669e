#include "graphs/CpuGraphs.h"

#include <algorithm>

#include "graphs/GraphPlaces.h"

namespace graphs {

using platform::ShowCommand;

CpuGraphs::~CpuGraphs() {
    CloseAll();
}

CpuGraphs::Launched CpuGraphs::Launch(const std::string& fileName, platform::ProcessId pid) {
    Release();
    if (iCPU* graph = GraphOf(pid)) {
        if (graph->SameProcess()) {
            graph->BringForward();
            return Launched::BroughtForward;
        }
        graph->Close();
    }
    const int slot = FreeSlot();
    if (slot == 0) return Launched::Full;
    auto graph = std::make_unique<iCPU>(iCPU::Parts{parts_.options, parts_.access, parts_.tips, *this}, slot);
    if (!graph->Launch(fileName, pid, PlaceFor(slot))) return Launched::Failed;
    graphs_[static_cast<std::size_t>(slot - 1)] = std::move(graph);
    if (!watch_) watch_ = platform::startTimer(kWatchMilliseconds, [this](std::uintptr_t) { Watch(); });
    return Launched::Opened;
}

int CpuGraphs::OpenCount() const {
    return static_cast<int>(
        std::count_if(graphs_.begin(), graphs_.end(), [](const auto& graph) { return !!graph; }));
}

iCPU* CpuGraphs::GraphOf(platform::ProcessId pid) const {
    const auto found = std::find_if(graphs_.begin(), graphs_.end(),
                                    [pid](const auto& graph) { return graph && graph->PID() == pid; });
    return found == graphs_.end() ? nullptr : found->get();
}

int CpuGraphs::FreeSlot() const {
    const auto found = std::find(graphs_.begin(), graphs_.end(), nullptr);
    return found == graphs_.end() ? 0 : static_cast<int>(found - graphs_.begin()) + 1;
}

platform::Rect CpuGraphs::PlaceFor(int slot) const {
    if (const auto place = RememberedPlace(slot, parts_.settings)) return *place;
    std::vector<platform::Rect> taken;
    for (const auto& graph : graphs_) {
        if (graph) taken.push_back(graph->bounds());
    }
    if (AlsoTaken) AlsoTaken(taken);
    return FreePlace(slot, parts_.settings, std::move(taken));
}

void CpuGraphs::ShowAll() {
    for (const auto& graph : graphs_) {
        if (graph) graph->BringForward();
    }
}

void CpuGraphs::HideAll() {
    for (const auto& graph : graphs_) {
        if (graph) graph->show(ShowCommand::Hide);
    }
}

void CpuGraphs::CloseAll() {
    for (const auto& graph : graphs_) {
        if (graph) graph->Close();
    }
}

void CpuGraphs::RememberPositions() {
    for (const auto& graph : graphs_) {
        if (!graph) continue;
        const platform::Rect bounds = graph->bounds();
        parts_.settings.WriteGraphPlace(graph->Slot(), bounds.top, bounds.left);
    }
}

void CpuGraphs::SetEdgeDetection(bool on) {
    for (const auto& graph : graphs_) {
        if (graph) graph->SetEdgeDetection(on);
    }
}

void CpuGraphs::ApplySeeThrough() {
    for (const auto& graph : graphs_) {
        if (graph) graph->ApplySeeThrough();
    }
}

void CpuGraphs::ApplyColors() {
    for (const auto& graph : graphs_) {
        if (graph) graph->ApplyColors();
    }
}

// Comes from a handler of the graph: its object has to stay a while, its slot is free at once.
void CpuGraphs::Closed(iCPU& graph) {
    auto& place = graphs_[static_cast<std::size_t>(graph.Slot() - 1)];
    if (place.get() == &graph) closed_.push_back(std::move(place));
}

// A snapshot of its own: nobody else's is kept current while the main window is hidden.
void CpuGraphs::Watch() {
    snapshot_.Take();
    const auto listed = [this](platform::ProcessId pid) {
        for (int slot = process::kFirstListedSlot; slot <= snapshot_.Count(); ++slot) {
            if (snapshot_.Id(slot) == pid) return true;
        }
        return false;
    };
    // A system that refuses the list says nothing about any process.
    const bool known = snapshot_.Count() > 0;
    for (const auto& graph : graphs_) {
        if (graph && known && !(listed(graph->PID()) && graph->SameProcess())) graph->Close();
    }
    Release();
    if (closed_.empty() && !AnyOpen()) watch_.reset();
}

void CpuGraphs::Release() {
    std::erase_if(closed_, [](const auto& graph) { return !graph->InHandler(); });
}

}  // namespace graphs
