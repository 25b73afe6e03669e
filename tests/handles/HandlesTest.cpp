// The real program in this process, its ticks run in quick succession: what it takes from the system it gives back.
#include <doctest/doctest.h>

#include <cstdio>

#include "app/Form1.h"
#include "handles/HandleCounts.h"
#include "platform/Store.h"

namespace {

constexpr int kTicks = 600;

struct Counts {
    int kernel = handles::Kernel();
    int gdi = handles::Gdi();
};

void Ticks(app::Form1& form, int count) {
    for (int i = 0; i < count; ++i) {
        form.Tray().TrayTimer();
        form.Refresh().ProcTimer();
        platform::pumpMessages();
    }
}

void UseMeter(app::Form1& form, int type) {
    settings::DisplayOptions options;
    options.trayType = type;
    options.trayColor = platform::rgb(0, 0, 255);
    form.Tray().Show(options);
}

}  // namespace

TEST_CASE("600 ticks of each meter leave no handle and no GDI object behind") {
    platform::storeDelete("Morvell\\Kestrum2");
    app::Form1 form;
    REQUIRE(form.Start() == app::Form1::StartResult::Running);
    for (const int type : {1, 2, 3}) {
        UseMeter(form, type);
        Ticks(form, 20);  // fonts, caches and the like come once
        const Counts before;
        CHECK(before.gdi > 0);
        Ticks(form, kTicks);
        const Counts after;
        std::printf("meter %d: %d kernel handles, %d GDI objects; after %d ticks %d and %d\n", type, before.kernel,
                    before.gdi, kTicks, after.kernel, after.gdi);
        CHECK(after.kernel <= before.kernel);
        CHECK(after.gdi <= before.gdi);
    }
}
