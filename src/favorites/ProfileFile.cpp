#include "favorites/ProfileFile.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "storage/SafeFile.h"
#include "text/Case.h"
#include "text/Numbers.h"
#include "text/Split.h"

namespace favorites {

namespace {

constexpr std::size_t kShortestLine = 8;
constexpr std::size_t kBalloonText = 255;  // what a balloon shows at most

Favorite ParseLine(std::string_view line) {
    std::array<std::string_view, kSavedColumns> columns;
    for (std::string_view& column : columns) {
        const std::size_t tab = line.find('\t');
        column = line.substr(0, tab);
        if (tab == std::string_view::npos) break;
        line.remove_prefix(tab + 1);
    }
    const auto text = [&columns](FavoriteColumn column) {
        return std::string(columns[static_cast<std::size_t>(column)]);
    };
    // No file name begins or ends with a blank: those around a path are nobody's.
    return {text(kColName), text(kColAffinity), text(kColPriority), std::string(text::Trim(columns[kColPath])),
            text(kColParam)};
}

bool ProgramPresent(const std::string& path) {
    // A path that is no text in the code page of this Windows cannot be asked about: it was written under another
    // one, and its program may well be there. Such a favourite stays, byte for byte.
    return !platform::isValidText(path) || platform::fileExists(path);
}

void AppendName(std::string& names, const std::string& path) {
    if (names.size() > kBalloonText) return;  // more will not be shown
    if (!names.empty()) names += ", ";
    // A name ends where it could not be shown any further.
    const std::string name(text::FileNameOf(path));
    names.append(name, 0, std::min(name.find('\0'), kBalloonText + 1));
}

}  // namespace

std::vector<Favorite> ParseProfile(std::string_view content) {
    std::vector<Favorite> favorites;
    std::unordered_set<std::string> known;
    bool header = true;
    for (const std::string_view line : storage::SplitLines(content)) {
        if (!std::exchange(header, false) && line.size() >= kShortestLine) {
            Favorite favorite = ParseLine(line);
            if (known.insert(IdentityOf(favorite.path)).second) favorites.push_back(std::move(favorite));
        }
    }
    return favorites;
}

std::string FormatLine(const Favorite& favorite) {
    return favorite.name + '\t' + favorite.affinity + '\t' + favorite.priority + '\t' + favorite.path + '\t' +
           favorite.param + "\r\n";
}

std::string FormatProfile(const std::vector<Favorite>& favorites) {
    std::string content = kProfileHeader;
    content += "\r\n";
    for (const Favorite& favorite : favorites) content += FormatLine(favorite);
    return content;
}

LoadedProfile LoadProfile(const std::string& path) {
    LoadedProfile loaded;
    std::string content;
    loaded.unreadable = storage::ReadWhole(path, content) == storage::ReadResult::Failed;
    for (Favorite& favorite : ParseProfile(content)) {
        if (ProgramPresent(favorite.path)) {
            loaded.rows.push_back(std::move(favorite));
        } else {
            ++loaded.missing;
            AppendName(loaded.missingNames, favorite.path);
        }
    }
    return loaded;
}

bool SaveProfile(const std::string& path, const std::vector<Favorite>& favorites) {
    if (!favorites.empty()) return storage::WriteWhole(path, FormatProfile(favorites));
    return platform::deleteFile(path) || !platform::fileExists(path);
}

std::string MissingText(int missing, const std::string& names) {
    std::string text =
        text::Decimal(missing) + " favorites not found and removed from current profile!\r\n" + names;
    if (text.size() > kBalloonText) {
        constexpr std::string_view kCut = "...";
        const std::size_t namesStart = text.size() - names.size();
        text.resize(kBalloonText - kCut.size());
        // After a whole name; within one only when not even the first fits.
        const std::size_t comma = text.rfind(", ");
        if (comma != std::string::npos && comma > namesStart) {
            text.resize(comma + 2);
        } else {
            while (text.size() > namesStart && !platform::isValidText(text)) text.pop_back();
        }
        text += kCut;
    }
    return text;
}

}  // namespace favorites
