// The real program in this process, its ticks run in quick succession: what it takes from the system it gives back.
#include <doctest/doctest.h>

#include <windows.h>

#include <cstdio>

#include "app/Form1.h"
#include "handles/HandleCounts.h"
#include "handles/SuspendedProcesses.h"
#include "platform/Store.h"

namespace {

constexpr int kTicks = 600;
constexpr int kSamples = 300;

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

// Each graph takes a sample, is painted, and looks whether its process is still there.
void Samples(app::Form1& form, int count) {
    for (int i = 0; i < count; ++i) {
        for (int slot = 1; slot <= settings::kGraphSlots; ++slot) {
            graphs::iCPU* graph = form.Graphs().InSlot(slot);
            REQUIRE(graph != nullptr);
            SendMessageA(reinterpret_cast<HWND>(graph->native()), WM_TIMER, 1, 0);
            graph->invalidate();
            graph->update();
        }
        form.TotalGraph().GraphTimer();
        form.TotalGraph().invalidate();
        form.TotalGraph().update();
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

TEST_CASE("300 samples of sixteen graphs and the total graph leave no handle and no GDI object behind") {
    platform::storeDelete("Morvell\\Kestrum2");
    app::Form1 form;
    REQUIRE(form.Start() == app::Form1::StartResult::Running);
    const handles::SuspendedProcesses processes(settings::kGraphSlots);
    for (const std::uint32_t id : processes.Ids()) form.Graphs().Launch("Handles.exe", id);
    REQUIRE(form.Graphs().OpenCount() == settings::kGraphSlots);
    form.TotalGraph().Open();
    Samples(form, 20);
    const Counts before;
    Samples(form, kSamples);
    const Counts after;
    std::printf("graphs: %d kernel handles, %d GDI objects; after %d samples %d and %d\n", before.kernel,
                before.gdi, kSamples, after.kernel, after.gdi);
    CHECK(after.kernel <= before.kernel);
    CHECK(after.gdi <= before.gdi);
}
