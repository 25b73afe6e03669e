// Profile files: any bytes are read without harm, and what is saved loads as it was.
#include <string>
#include <vector>

#include "Fuzz.h"
#include "favorites/ProfileFile.h"
#include "platform/sim/Sim.h"

namespace {

constexpr const char* kPath = "C:\\Kestrum\\My Favs 1";
constexpr std::size_t kMostShown = 255;

// Rows too short to be kept in a file are the only ones that writing and reading loses.
void RequireSettled(const std::vector<favorites::Favorite>& rows) {
    const std::vector<favorites::Favorite> again = favorites::ParseProfile(favorites::FormatProfile(rows));
    fuzz::Require(again.size() <= rows.size());
    fuzz::Require(favorites::ParseProfile(favorites::FormatProfile(again)) == again);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    platform::sim::reset();
    const std::string_view content = fuzz::Text(data, size);
    const std::vector<favorites::Favorite> rows = favorites::ParseProfile(content);
    RequireSettled(rows);

    platform::sim::putFile("C:\\Apps\\there.exe", "MZ");
    platform::sim::putFile(kPath, std::string(content));
    const favorites::LoadedProfile loaded = favorites::LoadProfile(kPath);
    fuzz::Require(!loaded.unreadable);
    fuzz::Require(loaded.rows.size() + static_cast<std::size_t>(loaded.missing) == rows.size());
    fuzz::Require(favorites::MissingText(loaded.missing, loaded.missingNames).size() <= kMostShown);

    fuzz::Require(favorites::SaveProfile(kPath, loaded.rows));
    fuzz::Require(platform::sim::file(kPath).has_value() == !loaded.rows.empty());
    fuzz::Require(favorites::LoadProfile(kPath).rows == favorites::ParseProfile(FormatProfile(loaded.rows)));
    return 0;
}
