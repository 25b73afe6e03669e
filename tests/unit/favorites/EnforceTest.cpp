// When favourites are applied: after changes of the process set, and at the Enforce interval.
#include <doctest/doctest.h>

#include "favorites/EnforceState.h"
#include "favorites/ProcessSetWatch.h"
#include "platform/sim/Sim.h"
#include "process/ProcessSnapshot.h"

namespace sim = platform::sim;

TEST_CASE("the Enforce interval is counted in half seconds from the last application") {
    favorites::EnforceState state;
    const auto ticksUntilDue = [&state] {
        for (int tick = 1; tick <= 40000; ++tick) {
            if (state.TickDue()) return tick;
        }
        return -1;
    };
    CHECK(ticksUntilDue() == -1);  // off
    state.SetOn(true);
    CHECK(ticksUntilDue() == 120);
    struct Case {
        int index, seconds, ticks;
    };
    for (const Case each : {Case{5, 60, 120}, {-7, 10, 20}, {1700, 17010, 32766}, {32767, 32767, 32766}}) {
        CAPTURE(each.index);
        state.SetIntervalIndex(each.index);
        state.Reset();
        CHECK(state.IntervalSeconds() == each.seconds);
        CHECK(ticksUntilDue() == each.ticks);
        // Until the favourites have been applied, however long that takes.
        bool due = true;
        for (int tick = 0; tick < 40000; ++tick) due = state.TickDue() && due;
        CHECK(due);
    }
}

TEST_CASE("a change of the process set is noticed by count or sum, and settles in three ticks") {
    sim::reset();
    favorites::ProcessSetWatch watch;
    process::ProcessSnapshot snapshot;
    const auto ticksSettling = [&](int most = 10) {
        for (int ticks = 0;; ++ticks) {
            snapshot.Take();
            watch.Observe(snapshot);
            if (!watch.Settling() || ticks == most) return ticks;
            watch.TickDone();
        }
    };
    const auto start = [](platform::ProcessId id) {
        sim::Process process;
        process.path = "C:\\a.exe";
        process.id = id;
        sim::addProcess(process);
    };
    CHECK(ticksSettling() == 3);  // the first look of all
    CHECK(ticksSettling() == 0);
    start(500);
    CHECK(ticksSettling(1) == 1);
    start(600);  // another change starts over
    CHECK(ticksSettling() == 3);
    sim::endProcess(600);
    start(700);  // same count, other sum
    CHECK(ticksSettling() == 3);
    sim::endProcess(500);
    sim::endProcess(700);
    start(400);
    start(800);  // same count, same sum: not noticed
    CHECK(ticksSettling() == 0);
    watch.ForceChange();
    CHECK(ticksSettling() == 3);
}
