// When favourites are applied: after changes of the process set, and at the Enforce interval.
#include <doctest/doctest.h>

#include "favorites/EnforceState.h"
#include "favorites/ProcessSetWatch.h"
#include "platform/sim/Sim.h"
#include "process/ProcessSnapshot.h"

namespace sim = platform::sim;

namespace {

int TicksUntilDue(favorites::EnforceState& state) {
    for (int tick = 1; tick <= 40000; ++tick) {
        if (state.TickDue()) return tick;
    }
    return -1;
}

}  // namespace

TEST_CASE("the Enforce interval is counted in half seconds from the last application") {
    sim::reset();
    favorites::EnforceState state;
    CHECK(state.IntervalSeconds() == 60);
    CHECK(TicksUntilDue(state) == -1);  // off
    state.SetOn(true);
    CHECK(TicksUntilDue(state) == 120);
    struct Case {
        int index, seconds, ticks;
    };
    for (const Case each :
         {Case{0, 10, 20}, {5, 60, 120}, {-7, 10, 20}, {1700, 17010, 32766}, {32767, 32767, 32766}}) {
        CAPTURE(each.index);
        state.SetIntervalIndex(each.index);
        state.Reset();
        CHECK(state.IntervalSeconds() == each.seconds);
        CHECK(TicksUntilDue(state) == each.ticks);
        // Until the favourites have been applied, however long that takes.
        bool due = true;
        for (int tick = 0; tick < 40000; ++tick) due = state.TickDue() && due;
        CHECK(due);
    }
    state.SetIntervalIndex(0);
    state.Reset();
    for (int tick = 0; tick < 15; ++tick) CHECK_FALSE(state.TickDue());
    state.Reset();
    CHECK(TicksUntilDue(state) == 20);
}

TEST_CASE("a change of the process set is noticed by count or sum, and settles in three ticks") {
    sim::reset();
    favorites::ProcessSetWatch watch;
    process::ProcessSnapshot snapshot;
    const auto tick = [&] {
        snapshot.Take();
        watch.Observe(snapshot);
        const bool settling = watch.Settling();
        watch.TickDone();
        return settling;
    };
    const auto ticksSettling = [&] {
        int count = 0;
        while (count < 10 && tick()) ++count;
        return count;
    };
    CHECK(ticksSettling() == 3);  // the first look of all
    CHECK_FALSE(tick());

    sim::Process process;
    process.path = "C:\\a.exe";
    process.id = 500;
    sim::addProcess(process);
    CHECK(tick());
    process.id = 600;
    sim::addProcess(process);  // another change starts over
    CHECK(ticksSettling() == 3);

    sim::endProcess(600);
    process.id = 700;
    sim::addProcess(process);  // same count, other sum
    CHECK(ticksSettling() == 3);

    sim::endProcess(500);
    sim::endProcess(700);
    process.id = 400;
    sim::addProcess(process);
    process.id = 800;
    sim::addProcess(process);  // same count, same sum: not noticed
    CHECK_FALSE(tick());
    watch.ForceChange();
    CHECK(ticksSettling() == 3);
}
