#include "endurance/Swarm.h"

#include <algorithm>
#include <cstdio>

namespace endurance {

namespace {

constexpr int kPeriod = 175;                        // milliseconds from one start to the next
constexpr int kLeastLife = 2000, kMostLife = 2800;  // of a guest, milliseconds
// Two ticks: each comes half a second after the end of the one before, as the system's timers go. What the program
// works meanwhile is added, and what the machine stood still: both are measured.
constexpr int kTwoTicks = 2 * 500, kTimerSlack = 2 * 16;
constexpr int kUsualGap = 100;  // between two rounds of ours, with the start of a process in between

bool IsSet(const desktop::Process& process, const Kind& kind) {
    return process.Affinity() == kind.affinity && process.PriorityClass() == kind.priorityClass;
}

}  // namespace

void Swarm::Beat() {
    Look();
    const DWORD now = GetTickCount();
    const auto lived = [now](const Guest& guest) { return now - guest.start >= guest.lifetime; };
    for (const Guest& guest : guests_) {
        if (lived(guest)) End(guest);
    }
    std::erase_if(guests_, lived);
    if (nextStart_ == 0) nextStart_ = now;
    if (static_cast<int>(now - nextStart_) < 0) return;
    Start();
    // What was missed while the machine was busy is not made up for all at once.
    nextStart_ = std::max(nextStart_ + kPeriod, now - kPeriod);
}

void Swarm::Look() {
    const DWORD now = GetTickCount();
    const int gap = lastRound_ == 0 ? 0 : static_cast<int>(now - lastRound_);
    lastRound_ = now;
    figures_.longestGap = std::max(figures_.longestGap, gap);
    // It answers when its work is done.
    DWORD_PTR ignored = 0;
    SendMessageTimeoutA(window_, WM_NULL, 0, 0, SMTO_NORMAL, desktop::kBound, &ignored);
    const int answer = static_cast<int>(GetTickCount() - now);
    figures_.longestAnswer = std::max(figures_.longestAnswer, answer);
    // It answers late when it works; we look late when the machine is not to be had, by it no more than by us.
    const int lost = std::max(answer, gap > kUsualGap ? gap : 0);
    for (Guest& guest : guests_) LookAt(guest, lost);
}

void Swarm::LookAt(Guest& guest, int lost) {
    if (!guest.kind->favorite || guest.firstSet >= 0) return;
    // Asked after looking, so that what counts as unset is not younger than it says.
    const int before = static_cast<int>(GetTickCount() - guest.start);
    if (IsSet(*guest.process, *guest.kind)) {
        guest.firstSet = static_cast<int>(GetTickCount() - guest.start);
        setMoments_.push_back(GetTickCount());
    } else {
        guest.lastUnset = before;
        guest.lost += lost;
    }
}

void Swarm::Start() {
    const Kind& kind = kinds_[static_cast<std::size_t>(Random(0, static_cast<int>(kinds_.size()) - 1))];
    Guest guest;
    guest.process = std::make_unique<desktop::Process>(kind.path);
    guest.start = GetTickCount();  // it is there and can be asked about
    if (guest.process->Id() == 0) {
        ++figures_.failedStarts;
        return;
    }
    guest.kind = &kind;
    guest.lifetime = static_cast<DWORD>(Random(kLeastLife, kMostLife));
    ++figures_.started;
    guests_.push_back(std::move(guest));
}

void Swarm::End(const Guest& guest) {
    ++figures_.ended;
    if (!guest.kind->favorite) {
        if (!IsSet(*guest.process, *guest.kind)) ++figures_.strangersTouched;
        return;
    }
    ++figures_.favorites;
    if (guest.firstSet < 0) ++figures_.neverSet;
    figures_.unset.push_back(guest.lastUnset);
    if (guest.firstSet >= 0) figures_.set.push_back(guest.firstSet);
    if (guest.lastUnset <= kTwoTicks + guest.lost + kTimerSlack) return;
    // A tick sets all that are there: it shows in the others.
    std::string ticks;
    for (const DWORD moment : setMoments_) {
        const int after = static_cast<int>(moment - guest.start);
        if (after >= 0 && after <= guest.lastUnset) ticks += ' ' + std::to_string(after);
    }
    figures_.late.push_back(
        "number " + std::to_string(figures_.ended) + ": seen unset after " + std::to_string(guest.lastUnset) +
        " ms, of which the program worked or the machine stood still for " + std::to_string(guest.lost) +
        " and set others after" + ticks + "; set after " + std::to_string(guest.firstSet));
    std::printf("late: %s\n", figures_.late.back().c_str());
}

int Swarm::Disturb(int bound) {
    const auto found = std::find_if(guests_.rbegin(), guests_.rend(),
                                    [](const Guest& guest) { return guest.kind->favorite && guest.firstSet >= 0; });
    if (found == guests_.rend()) return -1;
    const HANDLE process = OpenProcess(PROCESS_SET_INFORMATION, FALSE, found->process->Id());
    SetPriorityClass(process, NORMAL_PRIORITY_CLASS);
    CloseHandle(process);
    const DWORD start = GetTickCount();
    desktop::WaitFor(
        [&] {
            Look();
            return IsSet(*found->process, *found->kind);
        },
        static_cast<DWORD>(bound));
    return std::min(bound, static_cast<int>(GetTickCount() - start));
}

}  // namespace endurance
