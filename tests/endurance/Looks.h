// What the names in a list look like, so that rows can be told apart from outside.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "desktop/Session.h"

namespace endurance {

class Looks {
public:
    // The row shows this name.
    void Learn(const desktop::List& list, int slot, const std::string& name) { shapes_[name] = Shape(list, slot); }
    // Selected or not, in a list whose first column is as wide.
    bool Shows(const desktop::List& list, int slot, const std::string& name) const {
        return shapes_.at(name) == Shape(list, slot);
    }
    // No two names look the same.
    bool AllDiffer() const;

private:
    static std::vector<bool> Shape(const desktop::List& list, int slot);

    std::map<std::string, std::vector<bool>> shapes_;
};

}  // namespace endurance
