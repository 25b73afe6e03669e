#include "controls/BalloonTips.h"

#include <doctest/doctest.h>

#include <algorithm>

#include "platform/sim/Sim.h"

namespace {

namespace sim = platform::sim;
using controls::BalloonTips;
using platform::Window;

// A window with two controls to explain.
struct Form {
    Form() {
        sim::reset();
        platform::WindowSpec spec;
        spec.kind = platform::WindowKind::Main;
        spec.className = "Form1";
        spec.bounds = {0, 0, 600, 400};
        REQUIRE(form.create(spec));
        REQUIRE(first.createChild(form, "Control", "First", {0, 0, 50, 20}, platform::TabStop::No));
        REQUIRE(second.createChild(form, "Control", "Second", {60, 0, 110, 20}, platform::TabStop::No));
    }

    Window form, first, second;
    BalloonTips tips;
};

// What is explained, as "First: title/text".
std::string Shown() {
    std::string shown;
    for (const sim::Tip& tip : sim::tips()) shown += tip.target + ": " + tip.title + "/" + tip.text;
    return shown;
}

std::ptrdiff_t Made() {
    return std::ranges::count(sim::log(), "createTooltip");
}

}  // namespace

TEST_CASE("A balloon tip explains one window at a time") {
    Form form;
    BalloonTips& tips = form.tips;
    tips.Show("Apply changes\r\nto files", form.first, "Apply", false);
    REQUIRE(Shown() == "First: Apply/Apply changes\r\nto files");
    CHECK(sim::tips()[0].autoPop == 7000);
    CHECK(sim::tips()[0].initial == 800);
    CHECK(tips.ShownFor(form.first));
    CHECK_FALSE(tips.ShownFor(form.second));

    tips.Show("other words", form.first, "Other", false);
    tips.Show("other words", form.first, "Other", true);
    CHECK(Shown() == "First: Apply/Apply changes\r\nto files");
    CHECK(Made() == 1);

    tips.Show("Remove it", form.second, "", false);
    CHECK(Shown() == "Second: /Remove it");
    tips.Remove();
    CHECK(sim::openHandles("tooltip") == 0);
    CHECK_FALSE(tips.ShownFor(form.second));
    tips.Remove();
    tips.Show("Removed", form.second, "Again", false);
    CHECK(Shown() == "Second: Again/Removed");
    {
        BalloonTips passing;
        passing.Show("text", form.first, "title", false);
        CHECK(sim::openHandles("tooltip") == 2);
    }
    CHECK(sim::openHandles("tooltip") == 1);
}

TEST_CASE("Balloon tips are shown when the user wants them") {
    Form form;
    BalloonTips& tips = form.tips;
    tips.Show("text", form.first, "title", false);
    tips.SetEnabled(true);
    CHECK(Shown() == "First: title/text");
    tips.SetEnabled(false);
    CHECK(Shown().empty());
    tips.Show("text", form.second, "title", false);
    CHECK(Shown().empty());
    tips.Show("forced", form.second, "title", true);
    CHECK(Shown() == "Second: title/forced");
    tips.Show("text", form.first, "title", false);
    tips.SetEnabled(false);
    CHECK(Shown() == "Second: title/forced");
    tips.SetEnabled(true);
    tips.Show("text", form.first, "title", false);
    CHECK(Shown() == "First: title/text");
}

TEST_CASE("A balloon tip that cannot be made is not tried for again and again") {
    Form form;
    BalloonTips& tips = form.tips;
    tips.Show("text", form.first, "title", false);
    sim::failTooltips(true);
    tips.Show("text", form.second, "title", false);
    CHECK(sim::openHandles("tooltip") == 0);  // the old one is gone all the same
    sim::failTooltips(false);
    tips.Show("text", form.second, "title", false);
    CHECK(Shown().empty());
    tips.Remove();
    tips.Show("text", form.second, "title", false);
    CHECK(Shown() == "Second: title/text");
}

TEST_CASE("A balloon tip outlives the window it explains") {
    Form form;
    BalloonTips& tips = form.tips;
    tips.Show("text", form.first, "title", false);
    form.first.destroy();
    CHECK_FALSE(tips.ShownFor(form.first));
    tips.Show("text", form.first, "title", true);
    CHECK(Made() == 1);  // there is nothing to explain
    // Made anew, it is another window.
    REQUIRE(form.first.createChild(form.form, "Control", "New", {0, 0, 50, 20}, platform::TabStop::No));
    tips.Show("new text", form.first, "title", false);
    CHECK(Shown() == "New: title/new text");
    form.form.destroy();
    tips.Remove();
    CHECK(sim::openHandles("tooltip") == 0);
}
