#include "app/Hotkeys.h"

#include "AppFixture.h"

using namespace apptest;

namespace {

using Acts = std::vector<int>;

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
        if (then) then();
    }

    std::unique_ptr<app::Hotkeys> hotkeys;
    Acts acts;  // 0: the favourites were applied
    std::function<void()> then;
};

}  // namespace

TEST_CASE_FIXTURE(Keys, "Ctrl+Shift+S acts within a twentieth of a second, and once a second while it is held") {
    const std::vector<int> others[] = {
        {key::kCtrl, 'S'},
        {key::kShift, 'S'},
        {key::kCtrl, key::kShift, '6', 'A'},
        {key::kCtrl, key::kShift, key::kAlt, 'S'},  // a letter of some keyboards
    };
    for (const std::vector<int>& codes : others) {
        HoldKeys(codes);
        sim::run(500);
        CHECK(acts.empty());
        ReleaseKeys(codes);
    }
    HoldKeys({key::kCtrl, key::kShift, 'S'});
    for (std::size_t times = 1; times <= 3; ++times) {
        sim::run(50);
        CHECK(acts == Acts(times, 0));
        sim::run(950);
        CHECK(acts == Acts(times, 0));
    }
    // After the second of rest the keys are looked at as before.
    ReleaseKeys({'S'});
    sim::run(1100);
    HoldKeys({'S'});
    sim::run(50);
    CHECK(acts.size() == 4);
}

TEST_CASE_FIXTURE(Keys, "a profile hotkey acts once until Ctrl or Shift is let go") {
    HoldKeys({key::kCtrl, key::kShift, '3'});
    sim::run(5000);
    CHECK(acts == Acts{3});
    ReleaseKeys({'3'});
    HoldKeys({'5', 'S'});  // still the same hold of Ctrl and Shift
    sim::run(2000);
    CHECK(acts == Acts{3});
    ReleaseKeys({key::kShift, 'S'});
    sim::run(50);
    HoldKeys({key::kShift});
    sim::run(50);
    CHECK(acts == Acts{3, 5});
}

TEST_CASE_FIXTURE(Keys, "hotkeys rest while the program waits for an answer, and while one of them acts") {
    platform::Window box;
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Dialog;
    spec.title = "Kestrum - Info";
    REQUIRE(box.create(spec));
    HoldKeys({key::kCtrl, key::kShift, 'S'});
    sim::run(1000);
    CHECK(acts.empty());
    box.setText("Kestrum Options");
    then = [] { sim::run(5000); };  // a message is open
    sim::run(50);
    CHECK(acts.size() == 1);
}

TEST_CASE_FIXTURE(Keys, "hotkeys are started and stopped, by what they do as well") {
    hotkeys->Start();
    CHECK(sim::openHandles("timer") == 1);
    hotkeys->Stop();
    hotkeys->Stop();
    HoldKeys({key::kCtrl, key::kShift, 'S'});
    sim::run(200);
    CHECK(acts.empty());

    then = [&] { hotkeys->Stop(); };
    hotkeys->Start();
    sim::run(5000);
    CHECK(acts.size() == 1);
    then = [&] { hotkeys.reset(); };
    hotkeys->Start();
    sim::run(5000);
    CHECK(acts.size() == 2);

    // One that runs inside another, and ends them both.
    MakeAnew();
    then = [&] {
        then = [&] { hotkeys.reset(); };
        hotkeys->Stop();
        hotkeys->Start();
        sim::run(1000);
    };
    sim::run(5000);
    CHECK(acts.size() == 4);
}
