#include "app/FilterCommands.h"

#include <set>

#include "app/MainToolBars.h"
#include "filter/DlgHides.h"
#include "platform/CodePage.h"
#include "text/Case.h"

namespace app {

void FilterCommands::Load() {
    parts_.filter.Load();
    ShowLoaded();
}

bool FilterCommands::ReadUnread() {
    if (!parts_.filter.ReadUnread()) return false;
    parts_.filter.SavePending();
    ShowLoaded();
    return true;
}

void FilterCommands::ShowLoaded() {
    const bool any = !parts_.filter.Empty();
    parts_.toolBar.EnableButton(button::kFileFilter, any);
    parts_.toolBar.SetChecked(button::kFileFilter, any);
}

bool FilterCommands::Pressed() const {
    return parts_.toolBar.IsChecked(button::kFileFilter);
}

void FilterCommands::Toggled() {
    const PausedSlot pause(parts_.slots, Slot::Process, kRefreshMilliseconds);
    parts_.favorites.Reload();
    parts_.refresh.FullRebuild();
}

// The button works exactly while there is something to filter; it is pressed by the user only.
void FilterCommands::FilterChanged() {
    const bool any = !parts_.filter.Empty();
    if (!any) parts_.toolBar.SetChecked(button::kFileFilter, false);
    parts_.toolBar.EnableButton(button::kFileFilter, any);
}

void FilterCommands::Add(const std::vector<std::string>& paths) {
    std::set<std::string> seen;
    std::vector<std::string> once;
    for (const std::string& path : paths) {
        if (seen.insert(platform::lowerCase(text::FileNameOf(path))).second) once.push_back(path);
    }
    const filter::FileFilter::Added added = parts_.filter.AddAll(once);
    FilterChanged();
    parts_.refresh.FullRebuild();
    if (added.badExtension) parts_.messages.Tell(filter::kBadExtensionText);
    if (added.duplicate) parts_.messages.Tell(filter::kDuplicateText);
}

void FilterCommands::ShowDialog() {
    filter::DlgHides dialog(
        {parts_.filter, parts_.msgBoxes, parts_.tips, parts_.options.messageBeep, [this] { FilterChanged(); }});
    {
        const BusyGuard guard(parts_.busy);
        dialog.ShowModal(parts_.window);
    }
    if (parts_.window.exists()) parts_.refresh.FullRebuild();
}

}  // namespace app
