#include "app/ProcessIcons.h"

namespace app {

namespace {
constexpr int kIconSize = 16;
constexpr int kMostTries = 3;  // as often as the list is rebuilt after a change
constexpr std::size_t kManyPrograms = 300;
// What a row shows when even the program's own default icon cannot be had: any value but 0, which would end
// the rows. Drawing an icon that does not exist draws nothing.
constexpr std::uintptr_t kNoIcon = 1;
}  // namespace

ProcessIcons::ProcessIcons(int defaultIconResource)
    : default_(platform::loadIconResource(defaultIconResource, kIconSize)) {}

std::uintptr_t ProcessIcons::IconOf(const std::string& imagePath) {
    Entry& entry = icons_[imagePath];
    entry.used = true;
    if (!entry.icon && entry.tries < kMostTries && entry.lastTry != pass_) {
        entry.icon = platform::extractIcon(imagePath, kIconSize);
        entry.lastTry = pass_;
        ++entry.tries;
    }
    if (entry.icon) return entry.icon.raw();
    return default_ ? default_.raw() : kNoIcon;
}

void ProcessIcons::DropUnused() {
    ++pass_;
    if (icons_.size() <= kManyPrograms) return;
    for (auto entry = icons_.begin(); entry != icons_.end();) {
        if (entry->second.used) {
            entry->second.used = false;
            ++entry;
        } else {
            entry = icons_.erase(entry);
        }
    }
}

void ProcessIcons::Clear() {
    icons_.clear();
    default_.reset();
}

}  // namespace app
