#include "controls/BalloonTips.h"

#include "ControlFixture.h"
#include "controls/Label.h"

namespace {

namespace sim = platform::sim;

// A window with two labels to explain.
struct Explained : ControlFixture<controls::Label> {
    Explained() : ControlFixture({0, 0, 50, 20}) { REQUIRE(second.Create(form, "Control2", {60, 0, 110, 20})); }
    // What is explained, as "Control1: title/text".
    static std::string Shown() {
        std::string shown;
        for (const sim::Tip& tip : sim::tips()) shown += tip.target + ": " + tip.title + "/" + tip.text;
        return shown;
    }
    static std::ptrdiff_t Made() { return std::ranges::count(sim::log(), "createTooltip"); }

    controls::Label& first = control;
    controls::Label second;
    controls::BalloonTips tips;
};

}  // namespace

TEST_CASE_FIXTURE(Explained, "A balloon tip explains one window at a time") {
    tips.Show("Apply changes\r\nto files", first, "Apply", false);
    REQUIRE(Shown() == "Control1: Apply/Apply changes\r\nto files");
    CHECK(sim::tips()[0].autoPop == 7000);
    CHECK(sim::tips()[0].initial == 800);
    CHECK(tips.ShownFor(first));
    CHECK_FALSE(tips.ShownFor(second));
    for (const bool force : {false, true}) tips.Show("other words", first, "Other", force);
    CHECK(Shown() == "Control1: Apply/Apply changes\r\nto files");
    CHECK(Made() == 1);

    tips.Show("Remove it", second, "", false);
    CHECK(Shown() == "Control2: /Remove it");
    tips.Remove();
    CHECK(sim::openHandles("tooltip") == 0);
    CHECK_FALSE(tips.ShownFor(second));
    tips.Show("Again", second, "", false);
    CHECK(Shown() == "Control2: /Again");
}

TEST_CASE_FIXTURE(Explained, "Balloon tips are shown when the user wants them") {
    tips.Show("text", first, "title", false);
    tips.SetEnabled(true);
    CHECK(Shown() == "Control1: title/text");
    tips.SetEnabled(false);
    tips.Show("text", second, "title", false);
    CHECK(Shown().empty());
    tips.Show("forced", second, "title", true);
    tips.Show("text", first, "title", false);
    tips.SetEnabled(false);
    CHECK(Shown() == "Control2: title/forced");
    tips.SetEnabled(true);
    tips.Show("text", first, "title", false);
    CHECK(Shown() == "Control1: title/text");
}

TEST_CASE_FIXTURE(Explained, "A balloon tip that cannot be made is not tried for again and again") {
    tips.Show("text", first, "title", false);
    sim::failTooltips(true);
    tips.Show("text", second, "title", false);
    CHECK(sim::openHandles("tooltip") == 0);  // the old one is gone all the same
    sim::failTooltips(false);
    tips.Show("text", second, "title", false);
    CHECK(Shown().empty());
    tips.Remove();
    tips.Show("text", second, "title", false);
    CHECK(Shown() == "Control2: title/text");
}

TEST_CASE_FIXTURE(Explained, "A balloon tip outlives the window it explains") {
    tips.Show("text", first, "title", false);
    first.destroy();
    CHECK_FALSE(tips.ShownFor(first));
    tips.Show("text", first, "title", true);
    CHECK(Made() == 1);  // there is nothing to explain
    // Made anew, it is another window.
    REQUIRE(first.Create(form, "New", {0, 0, 50, 20}));
    tips.Show("new text", first, "title", false);
    CHECK(Shown() == "New: title/new text");
    form.destroy();
    tips.Remove();
    CHECK(sim::openHandles("tooltip") == 0);
}
