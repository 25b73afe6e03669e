#include "favorites/ProfileTransfer.h"

#include <algorithm>
#include <unordered_set>

#include "favorites/ProfileFile.h"
#include "favorites/Profiles.h"
#include "storage/SafeFile.h"
#include "text/Case.h"

namespace favorites {

namespace {

// The lines of a profile, made ready for many searches.
class SearchedProfile {
public:
    explicit SearchedProfile(std::string_view content) {
        for (const std::string_view line : storage::SplitLines(content)) lines_.push_back(text::Lower(line));
    }
    bool Holds(std::string_view path) const {
        const std::string wanted = IdentityOf(path);
        return std::any_of(lines_.begin(), lines_.end(),
                           [&wanted](const std::string& line) { return line.find(wanted) != std::string::npos; });
    }

private:
    std::vector<std::string> lines_;
};

// Where the next line can be appended: behind a header, at the start of a line.
std::string ReadyForAppending(std::string content) {
    // An empty file would take the first favourite for its header.
    if (content.empty()) return FormatProfile({});
    if (!content.ends_with('\n')) content += "\r\n";
    return content;
}

}  // namespace

std::vector<ProfileEntry> ProfileEntries(const std::string& baseFolder) {
    std::vector<ProfileEntry> entries;
    for (int number = 1; number <= kProfileCount; ++number) {
        const std::string caption = ProfileCaption(baseFolder, number);
        entries.push_back({caption, caption != ProfileName(number)});
    }
    return entries;
}

bool CopyToProfile(const std::vector<Favorite>& favorites, const std::string& baseFolder,
                   const std::string& profileName) {
    if (favorites.empty() || !IsProfileName(profileName)) return false;
    const std::string path = ProfilePath(baseFolder, profileName);
    std::string content;
    if (storage::ReadWhole(path, content) == storage::ReadResult::Failed) return false;
    // Only what was there before counts: of two new favourites one may well begin the path of the other.
    const SearchedProfile before(content);
    std::unordered_set<std::string> added;
    std::string lines;
    for (const Favorite& favorite : favorites) {
        if (before.Holds(favorite.path) || !added.insert(IdentityOf(favorite.path)).second) continue;
        lines += FormatLine(favorite);
    }
    if (lines.empty()) return false;
    return storage::WriteWhole(path, ReadyForAppending(std::move(content)) + lines);
}

std::vector<bool> HeldByProfile(const std::vector<Favorite>& favorites, const std::string& baseFolder,
                                const std::string& profileName) {
    std::vector<bool> held(favorites.size(), false);
    std::string content;
    if (!IsProfileName(profileName) ||
        storage::ReadWhole(ProfilePath(baseFolder, profileName), content) != storage::ReadResult::Read) {
        return held;
    }
    const SearchedProfile profile(content);
    for (std::size_t i = 0; i < favorites.size(); ++i) held[i] = profile.Holds(favorites[i].path);
    return held;
}

}  // namespace favorites
