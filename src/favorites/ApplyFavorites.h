// Giving running processes the affinity and priority of their favourites: the rules of SetFavs, without the
// windows around them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "favorites/Favorite.h"

namespace process {
class ProcessSnapshot;
class ProcessAccess;
}  // namespace process

namespace favorites {

struct ApplyResult {
    bool changed = false;  // an affinity or priority was set, or tried to
    std::int16_t affinityErrors = 0;
    std::int16_t priorityErrors = 0;
    bool Failed() const { return affinityErrors > 0 || priorityErrors > 0; }
};

// True when a process with this image path belongs to the favourite. An empty path belongs to none.
bool SelectFavMatch(const std::string& imagePath, const Favorite& favorite);
// True when it belongs to any of them.
bool SelectFavMatch(const std::string& imagePath, const std::vector<Favorite>& favorites);

// Sets every running instance of every favourite whose affinity or priority differs. Starts the shared error
// counters at 0 and gives them in the result.
ApplyResult ApplyFavorites(const std::vector<Favorite>& favorites, const process::ProcessSnapshot& snapshot,
                           process::ProcessAccess& access);

// The text of the balloon that reports a run with errors.
std::string ApplySummary(const ApplyResult& result);

}  // namespace favorites
