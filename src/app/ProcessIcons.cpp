#include "app/ProcessIcons.h"

#include "text/Case.h"

namespace app {

namespace {
constexpr int kIconSize = 16;
constexpr std::size_t kManyNames = 300;
// What a row shows when even the program's own default icon cannot be had: any value but 0, which would end
// the rows. Drawing an icon that does not exist draws nothing.
constexpr std::uintptr_t kNoIcon = 1;
}  // namespace

ProcessIcons::ProcessIcons(int defaultIconResource)
    : default_(platform::loadIconResource(defaultIconResource, kIconSize)) {}

std::uintptr_t ProcessIcons::IconOf(const std::string& imagePath) {
    const std::string name = text::Lower(text::FileNameOf(imagePath));
    auto found = icons_.find(name);
    if (found == icons_.end()) {
        found = icons_.emplace(name, Entry{platform::extractIcon(imagePath, kIconSize)}).first;
    }
    found->second.used = true;
    if (found->second.icon) return found->second.icon.raw();
    return default_ ? default_.raw() : kNoIcon;
}

void ProcessIcons::DropUnused() {
    if (icons_.size() <= kManyNames) return;
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
