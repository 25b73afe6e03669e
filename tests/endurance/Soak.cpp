#include "endurance/Soak.h"

#include <algorithm>
#include <cstdio>

#include "endurance/Counts.h"
#include "endurance/Swarm.h"

namespace endurance {

using desktop::WaitFor;

namespace {

constexpr int kHalfMinute = 30000;  // milliseconds
constexpr int kCounting = 2000;     // at the end of each half minute
constexpr int kWarmUp = 2;          // minutes before the figures count
constexpr int kEnforceSeconds = 10;
constexpr int kDisturbEvery = 5;  // minutes

std::vector<Kind> MakeKinds(const desktop::Installation& installation) {
    static constexpr struct {
        const char* name;
        const char* affinity;
        const char* priority;
        DWORD_PTR mask;
        DWORD priorityClass;
    } kPrograms[] = {
        {"Ant.exe", "0", "High", 1, HIGH_PRIORITY_CLASS},
        {"Bee.exe", "1", "Below", 2, BELOW_NORMAL_PRIORITY_CLASS},
        {"Cicada.exe", "0", "Low", 1, IDLE_PRIORITY_CLASS},
        {"Drone.exe", "1", "Above", 2, ABOVE_NORMAL_PRIORITY_CLASS},
        {"Earwig.exe", "1", "High", 2, HIGH_PRIORITY_CLASS},
        {"Stranger.exe", nullptr, nullptr, 3, NORMAL_PRIORITY_CLASS},
        {"Unknown.exe", nullptr, nullptr, 3, NORMAL_PRIORITY_CLASS},
    };
    DWORD_PTR usual = 0, system = 0;
    GetProcessAffinityMask(GetCurrentProcess(), &usual, &system);
    std::vector<Kind> kinds;
    std::string profile = desktop::kProfileHeader;
    for (const auto& program : kPrograms) {
        const std::string path = installation.Folder() + program.name;
        CopyFileA((desktop::OwnFolder() + "Guest.exe").c_str(), path.c_str(), FALSE);
        const bool favorite = program.priority != nullptr;
        if (favorite) profile += desktop::FavoriteLine(program.affinity, program.priority, path);
        kinds.push_back({path, favorite ? program.mask : usual, program.priorityClass, favorite});
    }
    desktop::WriteWholeFile(installation.ProfilePath(), profile);
    return kinds;
}

int Percentile(std::vector<int> values, int percent) {
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    return values[(values.size() - 1) * static_cast<std::size_t>(percent) / 100];
}

// The figures of one state of the window, a minute each.
using Series = std::vector<Counts>;

// Whether a figure grew: its least value in the last third is above the greatest in the first, both after the
// warm-up. One that goes up and down is flat; one that loses something with each process or tick is not.
bool Flat(const char* state, const char* what, const Series& series, int Counts::*figure, int tolerance) {
    if (static_cast<int>(series.size()) < kWarmUp + 3) return true;
    const std::size_t third = (series.size() - kWarmUp) / 3;
    const auto less = [figure](const Counts& a, const Counts& b) { return a.*figure < b.*figure; };
    const int first =
        (*std::max_element(series.begin() + kWarmUp, series.begin() + kWarmUp + static_cast<int>(third), less)).*
        figure;
    const int last = (*std::min_element(series.end() - static_cast<int>(third), series.end(), less)).*figure;
    const bool flat = first >= 0 && last <= first + tolerance;
    std::printf("%s, %s: %d at first, %d at last%s\n", state, what, first, last, flat ? "" : "  NOT FLAT");
    return flat;
}

bool AllFlat(const char* state, const Series& series) {
    constexpr int kMemoryTolerance = 256;
    const bool flat[] = {Flat(state, "kernel handles", series, &Counts::kernelHandles, 0),
                         Flat(state, "GDI objects", series, &Counts::gdiObjects, 0),
                         Flat(state, "windows", series, &Counts::windows, 0),
                         Flat(state, "private KB", series, &Counts::privateKilobytes, kMemoryTolerance)};
    return std::all_of(std::begin(flat), std::end(flat), [](bool each) { return each; });
}

class Run {
public:
    explicit Run(const desktop::Installation& installation)
        : program_(installation.Folder() + "Kestrum2.exe"),
          kinds_(MakeKinds(installation)),
          session_(installation),
          swarm_(kinds_, 1, session_.Main()) {}
    bool Started() const { return session_.Started(); }

    // Half a minute in the window, half in the notification area. False when the program does not go along.
    bool Minute(int number) {
        const std::size_t before = swarm_.Sums().unset.size();
        for (const bool shown : {true, false}) {
            if (!Show(shown)) return false;
            Counts counts = HalfMinute();
            (shown ? window_ : tray_).push_back(counts);
            std::printf("%4d  %-6s %7d %5d   %5d %5d %7d %9d", number, shown ? "window" : "tray",
                        swarm_.Sums().started, swarm_.Alive(), counts.kernelHandles, counts.gdiObjects,
                        counts.windows, counts.privateKilobytes);
            if (shown) std::printf("\n");
        }
        const auto& unset = swarm_.Sums().unset;
        const std::vector<int> those(unset.begin() + static_cast<std::ptrdiff_t>(before), unset.end());
        std::printf("   %d, %d, %d of %zu\n", Percentile(those, 50), Percentile(those, 99), Percentile(those, 100),
                    those.size());
        std::fflush(stdout);
        if (number % kDisturbEvery == 0) Disturb();
        return session_.Running();
    }

    bool Verdict() const {
        const Swarm::Figures& sums = swarm_.Sums();
        std::printf(
            "\n%d processes started (%d could not be), %d ended, %d of them favourites: %d never set; "
            "%d strangers touched; %zu late\n",
            sums.started, sums.failedStarts, sums.ended, sums.favorites, sums.neverSet, sums.strangersTouched,
            sums.late.size());
        std::printf("first seen set after %d ms (median), %d (95 %%), %d (99 %%), %d (the last)\n",
                    Percentile(sums.set, 50), Percentile(sums.set, 95), Percentile(sums.set, 99),
                    Percentile(sums.set, 100));
        std::printf("last seen unset after %d ms (median), %d (95 %%), %d (99 %%), %d (the last)\n",
                    Percentile(sums.unset, 50), Percentile(sums.unset, 95), Percentile(sums.unset, 99),
                    Percentile(sums.unset, 100));
        std::printf("the program was at work for %d ms at most; %d ms passed between two looks at most\n",
                    sums.longestAnswer, sums.longestGap);
        const bool window = AllFlat("window", window_), tray = AllFlat("tray", tray_);
        // The system refuses a start now and then; more would not be the swarm that was meant.
        const bool started = sums.favorites > 0 && sums.failedStarts <= sums.started / 1000;
        return window && tray && enforced_ && started && sums.neverSet == 0 && sums.strangersTouched == 0 &&
               sums.late.empty();
    }

    bool End() { return Show(true) && session_.End(); }

private:
    // Goes on with the swarm until the condition holds.
    bool BeatUntil(const std::function<bool()>& condition, DWORD bound = desktop::kBound) {
        return WaitFor(
            [&] {
                swarm_.Beat();
                return condition();
            },
            bound);
    }

    bool Show(bool shown) {
        const auto isShown = [&] { return IsWindowVisible(session_.Main()) && !IsIconic(session_.Main()); };
        if (isShown() == shown) return true;
        if (!shown) {
            session_.ClickCloseBox();
            return BeatUntil([&] { return !IsWindowVisible(session_.Main()); });
        }
        const desktop::Process second(program_);  // wakes the first copy, and ends
        return BeatUntil([&] { return !second.Running() && isShown(); });
    }

    Counts HalfMinute() {
        const DWORD start = GetTickCount();
        BeatUntil([&] { return GetTickCount() - start >= kHalfMinute - kCounting; }, 2 * kHalfMinute);
        Counts counts = CountsOf(session_.Program());
        for (int round = 0; GetTickCount() - start < kHalfMinute; ++round) {
            swarm_.Beat();
            if (round % 10 == 0) counts = Least(counts, CountsOf(session_.Program()));
            Sleep(10);
        }
        return counts;
    }

    // While no process comes or goes only Enforce looks at them.
    void Disturb() {
        constexpr int kSettled = 2500;  // the ticks after the last change
        const DWORD start = GetTickCount();
        WaitFor(
            [&] {
                swarm_.Look();
                return GetTickCount() - start >= kSettled;
            },
            2 * kSettled);
        constexpr int kBound = 1000 * kEnforceSeconds + 2000;
        const int milliseconds = swarm_.Disturb(kBound);
        std::printf("      a favourite that was changed from outside was set again after %d ms\n", milliseconds);
        enforced_ = enforced_ && milliseconds >= 0 && milliseconds < kBound;
    }

    std::string program_;
    std::vector<Kind> kinds_;
    desktop::Session session_;
    Swarm swarm_;
    Series window_, tray_;
    bool enforced_ = true;
};

}  // namespace

bool Soak(int minutes) {
    const desktop::Installation installation;
    desktop::WriteSetting("AutoSet", "1");
    desktop::WriteSetting("ReEnforce", "1");
    desktop::WriteSetting("EnforceInterval", "0");  // the first of the list
    Run run(installation);
    if (!run.Started()) {
        std::printf("the program does not start\n");
        return false;
    }
    std::printf(
        "minute state  started alive  kernel   GDI windows private KB  ms last seen unset: median, 99 %%, most\n");
    for (int minute = 1; minute <= minutes; ++minute) {
        if (run.Minute(minute)) continue;
        std::printf("the program does not go on\n");
        return false;
    }
    const bool good = run.Verdict();
    if (run.End()) return good;
    std::printf("the program does not end\n");
    return false;
}

}  // namespace endurance
