#include "app/LayoutMemory.h"

#include "app/ProcessColumns.h"
#include "text/Numbers.h"

namespace app {

using settings::Key;

void LayoutMemory::Load(const settings::Settings& settings) {
    normal_ = {settings.Text(Key::FileColWide), settings.Text(Key::FavColWide), settings.Number(Key::Splitter)};
    maximized_ = {settings.Text(Key::FileColWideMax), settings.Text(Key::FavColWideMax),
                  text::LeadingNumber(settings.Text(Key::SplitterMax))};
}

void LayoutMemory::CompleteMaximized() {
    if (maximized_.fileWidths.empty()) maximized_.fileWidths = normal_.fileWidths;
    if (maximized_.favoriteWidths.empty()) maximized_.favoriteWidths = normal_.favoriteWidths;
}

void LayoutMemory::Reset() {
    normal_ = maximized_ = {kProcessWidths, "134,82,70,50,50,", 474};
}

void LayoutMemory::Save(settings::Settings& settings) const {
    settings.WriteText(Key::FileColWideMax, maximized_.fileWidths);
    settings.WriteText(Key::FavColWideMax, maximized_.favoriteWidths);
    settings.WriteText(Key::SplitterMax, text::Decimal(maximized_.splitter));
    settings.WriteText(Key::FileColWide, normal_.fileWidths);
    settings.WriteText(Key::FavColWide, normal_.favoriteWidths);
    settings.WriteText(Key::Splitter, text::Decimal(normal_.splitter));
}

}  // namespace app
