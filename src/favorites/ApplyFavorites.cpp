#include "favorites/ApplyFavorites.h"

#include <unordered_map>

#include "process/Affinity.h"
#include "process/PriorityClass.h"
#include "process/ProcessAccess.h"
#include "process/ProcessSnapshot.h"
#include "text/Case.h"
#include "text/Numbers.h"

namespace favorites {

namespace {

using Instances = std::unordered_map<std::string, std::vector<platform::ProcessId>>;

// The processes of each lower-case image path, in snapshot order: every path is read once, however many
// favourites there are.
Instances ReadInstances(const process::ProcessSnapshot& snapshot, const process::ProcessAccess& access) {
    Instances instances;
    for (int slot = process::kFirstListedSlot; slot <= snapshot.Count(); ++slot) {
        const platform::ProcessId id = snapshot.Id(slot);
        if (id == 0) continue;
        const std::string path = access.ImagePath(id);
        if (!path.empty()) instances[text::Lower(path)].push_back(id);
    }
    return instances;
}

// True when something differed and was set, or tried to.
bool ApplyTo(platform::ProcessId id, const Favorite& favorite, process::ProcessAccess& access) {
    bool changed = false;
    // A favourite without a processor asks for nothing that could be set: trying it would only fail each time.
    if (!favorite.affinity.empty() &&
        process::AffinityText(access.GetAffinity(id), access.HighestCpu()) != favorite.affinity) {
        access.SetAffinity(id, favorite.affinity);
        changed = true;
    }
    if (favorite.priority != kDefaultPriority &&
        process::PriorityName(access.GetPriorityClass(id)) != favorite.priority) {
        access.SetPriorityClass(id, process::PriorityValue(favorite.priority));
        changed = true;
    }
    return changed;
}

}  // namespace

bool SelectFavMatch(const std::string& imagePath, const Favorite& favorite) {
    return !imagePath.empty() && text::Lower(imagePath) == IdentityOf(favorite.path);
}

bool SelectFavMatch(const std::string& imagePath, const std::vector<Favorite>& favorites) {
    for (const Favorite& favorite : favorites) {
        if (SelectFavMatch(imagePath, favorite)) return true;
    }
    return false;
}

ApplyResult ApplyFavorites(const std::vector<Favorite>& favorites, const process::ProcessSnapshot& snapshot,
                           process::ProcessAccess& access) {
    ApplyResult result;
    access.Errors().Reset();
    if (favorites.empty()) return result;
    const Instances instances = ReadInstances(snapshot, access);
    for (const Favorite& favorite : favorites) {
        const auto found = instances.find(IdentityOf(favorite.path));
        if (found == instances.end()) continue;
        for (const platform::ProcessId id : found->second) {
            if (ApplyTo(id, favorite, access)) result.changed = true;
        }
    }
    result.affinityErrors = access.Errors().Affinity();
    result.priorityErrors = access.Errors().Priority();
    return result;
}

std::string ApplySummary(const ApplyResult& result) {
    // The spelling is what users of this program know.
    return "Unable to make changes to some favorites.\r\nAffiniy Errors: " + text::Decimal(result.affinityErrors) +
           "\r\nPriority Errors :" + text::Decimal(result.priorityErrors);
}

}  // namespace favorites
