// What the program keeps for its user, as it is in files and registry.
#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "settings/SettingKeys.h"

namespace endurance {

inline constexpr int kProfiles = 5;
inline constexpr char kFilter[] = "FileFilter";

std::string ProfileName(int number);

struct State {
    std::map<std::string, std::string> files;     // the profiles and the filter, by name; those that exist
    std::map<std::string, std::string> settings;  // the options that are edited, by key
    friend bool operator==(const State&, const State&) = default;

    // The lines of a file, without their ends; of a profile those below its header.
    std::vector<std::string> Lines(const std::string& file) const;
    // Gives a file these lines; none delete it.
    void SetLines(const std::string& file, const std::vector<std::string>& lines);
    bool Has(const std::string& file, const std::string& path) const;
};

// Options that can be edited without anything else changing.
std::span<const settings::Key> EditedKeys();
// The other value of an option that is on or off.
std::string Toggled(settings::Key key, const std::string& value);

State ReadState(const std::string& folder);
void WriteState(const std::string& folder, const State& state);
// Waits until the state is this one. Opens files only when they have their sizes: an open one can't be replaced.
bool StateBecomes(const std::string& folder, const State& state);
// What differs, for a person to read.
std::string Difference(const State& found, const State& expected);

}  // namespace endurance
