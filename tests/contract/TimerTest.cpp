#include "platform/Timer.h"

#include <doctest/doctest.h>

#include <vector>

#include "contract/Machine.h"

using contract::waitFor;
using platform::startTimer;
using platform::TimerHandle;

TEST_CASE("a timer fires with its id until it is closed") {
    contract::freshMachine();
    int first = 0;
    int second = 0;
    std::vector<std::uintptr_t> ids;
    TimerHandle one = startTimer(10, [&](std::uintptr_t id) {
        ++first;
        ids.push_back(id);
    });
    TimerHandle two = startTimer(10, [&](std::uintptr_t) { ++second; });
    REQUIRE(one);
    REQUIRE(two);
    CHECK(one.raw() != two.raw());
    CHECK(first == 0);  // only the message loop fires it
    CHECK(waitFor([&] { return first >= 3 && second >= 3; }));
    for (const std::uintptr_t id : ids) CHECK(id == one.raw());

    one.reset();
    const int firstAtEnd = first;
    const int secondThen = second;
    CHECK(waitFor([&] { return second >= secondThen + 5; }));
    CHECK(first == firstAtEnd);
}

TEST_CASE("a timer may close itself while it fires") {
    contract::freshMachine();
    int ticks = 0;
    int others = 0;
    TimerHandle timer;
    const std::string kept(100, 'k');  // lives in the closure, which must outlive the close
    timer = startTimer(10, [&timer, &ticks, kept](std::uintptr_t) {
        timer.reset();
        if (kept == std::string(100, 'k')) ++ticks;
    });
    const TimerHandle other = startTimer(10, [&](std::uintptr_t) { ++others; });
    CHECK(waitFor([&] { return ticks == 1 && others >= 5; }));
    CHECK(ticks == 1);
}

TEST_CASE("a timer closed by another's tick does not fire any more") {
    contract::freshMachine();
    TimerHandle timers[2];
    int ticks[2] = {};
    for (int n = 0; n < 2; ++n) {
        timers[n] = startTimer(10, [&timers, &ticks, n](std::uintptr_t) {
            ++ticks[n];
            timers[1 - n].reset();
        });
    }
    CHECK(waitFor([&] { return ticks[0] + ticks[1] >= 5; }));
    CHECK((ticks[0] == 0 || ticks[1] == 0));
}

TEST_CASE("a timer may be started anew while it fires") {
    contract::freshMachine();
    int before = 0;
    int after = 0;
    TimerHandle timer;
    timer = startTimer(10, [&](std::uintptr_t) {
        ++before;
        timer = startTimer(10, [&](std::uintptr_t) { ++after; });
    });
    CHECK(waitFor([&] { return after >= 3; }));
    CHECK(before == 1);
}
