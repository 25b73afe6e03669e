// Stored text of any kind as every setting, as a number in every reading, and as a window's position.
#include <string>

#include "Fuzz.h"
#include "platform/CodePage.h"
#include "platform/sim/Sim.h"
#include "settings/Colours.h"
#include "settings/Settings.h"
#include "settings/WindowPosition.h"
#include "text/Case.h"
#include "text/Numbers.h"

namespace {

void RequireNumbersAgree(std::string_view text) {
    const std::int32_t number = text::ToInt32(text);
    const auto whole = text::WholeNumber(text);
    if (whole) fuzz::Require(*whole == number);
    if (!text::IsNumeric(text)) fuzz::Require(number == 0 && !whole);
    fuzz::Require(text::ToInt32(text::Decimal(number)) == number);
    // Digit groups are the one thing that a leading number does not take.
    if (whole && text.find(',') == text.npos) fuzz::Require(text::LeadingNumber(text) == *whole);
    if (number > 0) {
        const std::string grouped = text::Grouped(static_cast<std::uint64_t>(number));
        fuzz::Require(text::IsNumeric(grouped) && text::ToInt32(grouped) == number);
    }
}

void RequireNamesStayText(std::string_view name) {
    if (!platform::isValidText(name)) return;
    const std::string shown = text::ProcessDisplayName(name);
    fuzz::Require(platform::isValidText(shown));
    fuzz::Require(platform::isValidText(text::FavoriteDisplayName(name)));
    fuzz::Require(text::Lower(shown) == text::Lower(name));
}

void RequirePositionSettles(std::string_view text) {
    const auto bounds = settings::ParseWindowPosition(text);
    if (!bounds) return;
    fuzz::Require(settings::ParseWindowPosition(settings::FormatWindowPosition(*bounds)) == bounds);
    const platform::Rect reachable = settings::ReachableBounds(*bounds);
    fuzz::Require(!reachable.empty() && platform::onAnyScreen(reachable));
    fuzz::Require(settings::ReachableBounds(reachable) == reachable);
}

void ReadEveryKey(const std::string& text) {
    const settings::Settings store;
    for (int i = 0; i < static_cast<int>(settings::Key::Count); ++i) {
        const auto key = static_cast<settings::Key>(i);
        const settings::KeyInfo& info = settings::InfoOf(key);
        platform::sim::putSetting(settings::kSection, info.name, text);
        if (info.type == settings::KeyType::Bool) {
            store.Bool(key);
        } else if (info.type == settings::KeyType::Text) {
            store.Text(key);
        } else {
            settings::ColourFromIndex(store.Number(key));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    platform::sim::reset();
    const std::string_view text = fuzz::Text(data, size);
    RequireNumbersAgree(text);
    RequireNamesStayText(text);
    RequirePositionSettles(text);
    ReadEveryKey(std::string(text));
    return 0;
}
