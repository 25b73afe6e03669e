#include "platform/Tooltip.h"

#include <string>

#include "contract/Probe.h"

using namespace contract;
using namespace platform;

TEST_CASE("a balloon explains a window") {
    Desk desk;
    TooltipHandle tooltip = createTooltip();
    REQUIRE(tooltip);
    setTooltipTitle(tooltip, "Title");
    setTooltipTitle(tooltip, std::string(98, 't') + "\xC3\xBC\xC3\xBC");  // a character across the limit
    setTooltipDelays(tooltip, 20000, 500);
    CHECK(addTool(tooltip, desk.a, "first line\r\nsecond line"));
    CHECK(addTool(tooltip, desk.b, std::string(5000, 'x')));

    SUBCASE("it goes before the window") {
        tooltip.reset();
        desk.a.destroy();
    }
    SUBCASE("or after it") {
        desk.main.destroy();
        CHECK_FALSE(addTool(tooltip, desk.a, "too late"));
        pumpMessages();
        tooltip.reset();
    }
    CHECK_FALSE(desk.a.exists());
}

TEST_CASE("nothing to explain, or nothing to explain it with, is refused") {
    Desk desk;
    Log log;
    Probe never("never", log);
    CHECK_FALSE(addTool({}, desk.a, "text"));
    setTooltipTitle({}, "title");
    setTooltipDelays({}, 1, 1);
    const TooltipHandle tooltip = createTooltip();
    CHECK_FALSE(addTool(tooltip, never, "text"));
}
