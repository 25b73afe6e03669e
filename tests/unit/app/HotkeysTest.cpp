#include "app/Hotkeys.h"

#include <doctest/doctest.h>

#include <memory>
#include <vector>

#include "platform/sim/Sim.h"

namespace sim = platform::sim;
namespace key = platform::key;

namespace {

struct Keys {
    Keys() {
        sim::reset();
        MakeAnew();
    }
    ~Keys() {
        hotkeys.reset();
        CHECK(sim::openHandles("timer") == 0);
    }
    void MakeAnew() {
        hotkeys = std::make_unique<app::Hotkeys>(
            app::Hotkeys::Actions{[this] { Acted(0); }, [this](int number) { Acted(number); }});
        hotkeys->Start();
    }
    void Acted(int what) {
        acts.push_back(what);
        times.push_back(sim::nowMilliseconds());
        if (then) then();
    }
    static void Hold(std::initializer_list<int> codes) {
        for (const int code : codes) sim::holdKey(static_cast<std::uint16_t>(code));
    }
    static void Release(std::initializer_list<int> codes) {
        for (const int code : codes) sim::releaseKey(static_cast<std::uint16_t>(code));
    }

    std::unique_ptr<app::Hotkeys> hotkeys;
    std::vector<int> acts;  // 0: the favourites were applied
    std::vector<std::uint64_t> times;
    std::function<void()> then;
};

using Acts = std::vector<int>;

}  // namespace

TEST_CASE("a hotkey needs all its keys, and acts within a twentieth of a second") {
    Keys keys;
    Keys::Hold({key::kCtrl, 'S'});
    sim::run(500);
    Keys::Release({key::kCtrl});
    Keys::Hold({key::kShift});
    sim::run(500);
    Keys::Release({'S'});
    Keys::Hold({key::kCtrl, '6', 'A'});
    sim::run(500);
    Keys::Release({'6', 'A'});
    Keys::Hold({key::kAlt, 'S'});  // a letter of some keyboards
    sim::run(500);
    CHECK(keys.acts.empty());
    Keys::Release({key::kAlt});
    sim::run(50);
    CHECK(keys.acts == Acts{0});
}

TEST_CASE("Ctrl+Shift+S repeats once a second while it is held") {
    Keys keys;
    Keys::Hold({key::kCtrl, key::kShift, 'S'});
    sim::run(3000);
    REQUIRE(keys.acts == Acts{0, 0, 0});
    CHECK(keys.times[1] - keys.times[0] == 1000);
    CHECK(keys.times[2] - keys.times[1] == 1000);
    // After the second of rest the keys are looked at as before.
    Keys::Release({'S'});
    sim::run(1100);
    Keys::Hold({'S'});
    sim::run(50);
    CHECK(keys.acts.size() == 4);
}

TEST_CASE("a profile hotkey acts once until Ctrl or Shift is let go") {
    Keys keys;
    Keys::Hold({key::kCtrl, key::kShift, '3'});
    sim::run(5000);
    CHECK(keys.acts == Acts{3});
    Keys::Release({'3'});
    Keys::Hold({'5', 'S'});  // still the same hold of Ctrl and Shift
    sim::run(2000);
    CHECK(keys.acts == Acts{3});
    Keys::Release({key::kShift, 'S'});
    sim::run(50);
    Keys::Hold({key::kShift});
    sim::run(50);
    CHECK(keys.acts == Acts{3, 5});
}

TEST_CASE("hotkeys rest while the program waits for an answer") {
    Keys keys;
    platform::Window box;
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Dialog;
    spec.title = "Kestrum - Info";
    REQUIRE(box.create(spec));
    Keys::Hold({key::kCtrl, key::kShift, '1'});
    sim::run(1000);
    CHECK(keys.acts.empty());
    box.destroy();
    spec.title = "Kestrum Options";
    REQUIRE(box.create(spec));
    sim::run(50);
    CHECK(keys.acts == Acts{1});
}

TEST_CASE("no tick comes while a hotkey acts") {
    Keys keys;
    keys.then = [] { sim::run(5000); };  // a message is open
    Keys::Hold({key::kCtrl, key::kShift, 'S'});
    sim::run(50);
    CHECK(keys.acts == Acts{0});
    keys.then = nullptr;
    sim::run(1000);
    CHECK(keys.acts == Acts{0, 0});
}

TEST_CASE("hotkeys are started and stopped, by what they do as well") {
    Keys keys;
    keys.hotkeys->Start();
    CHECK(sim::openHandles("timer") == 1);
    keys.hotkeys->Stop();
    keys.hotkeys->Stop();
    Keys::Hold({key::kCtrl, key::kShift, 'S'});
    sim::run(200);
    CHECK(keys.acts.empty());
    CHECK_FALSE(keys.hotkeys->Running());

    keys.then = [&] { keys.hotkeys->Stop(); };
    keys.hotkeys->Start();
    sim::run(5000);
    CHECK(keys.acts == Acts{0});
    keys.then = [&] { keys.hotkeys.reset(); };
    keys.hotkeys->Start();
    sim::run(5000);
    CHECK(keys.acts == Acts{0, 0});

    // One that runs inside another, and ends them both.
    keys.MakeAnew();
    keys.then = [&] {
        keys.then = [&] { keys.hotkeys.reset(); };
        keys.hotkeys->Stop();
        keys.hotkeys->Start();
        sim::run(1000);
    };
    sim::run(5000);
    CHECK(keys.acts == Acts{0, 0, 0, 0});
}
