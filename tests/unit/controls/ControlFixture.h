// What the tests of small controls share: a window to put one in, and what it painted.
#pragma once

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/sim/Sim.h"

// A shown main window with a control of type C in it, painted.
template <class C>
struct ControlFixture {
    explicit ControlFixture(const platform::Rect& bounds) {
        platform::sim::reset();
        platform::WindowSpec spec;
        spec.kind = platform::WindowKind::Main;
        spec.className = "Form1";
        spec.bounds = {100, 100, 700, 500};
        REQUIRE(form.create(spec));
        form.show(platform::ShowCommand::Show);
        if constexpr (requires { control.Create(form, "Control1", bounds); }) {
            REQUIRE(control.Create(form, "Control1", bounds));
        } else {
            REQUIRE(control.Create(form, "Control1", "1", bounds));  // with its caption
        }
        platform::sim::paint(control);
    }

    platform::Color PixelAt(int x, int y) {
        platform::sim::paint(control);
        return platform::sim::pixelAt(control, {x, y});
    }

    // The operations of one kind in a full paint.
    std::vector<platform::sim::Drawn> Painted(const std::string& what) {
        std::vector<platform::sim::Drawn> drawn = platform::sim::paint(control, true);
        std::erase_if(drawn, [&](const auto& one) { return one.what != what; });
        return drawn;
    }

    platform::Window form;
    C control;
};
