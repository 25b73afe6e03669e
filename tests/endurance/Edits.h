// Edits at random, as a quick user makes them, and what each of them makes of the state.
#pragma once

#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "desktop/Session.h"
#include "endurance/Looks.h"
#include "endurance/State.h"

namespace endurance {

struct Edit {
    std::string what;
    // What may be found while it is being made, in this order; the last when it is done.
    std::vector<State> steps = {};
    std::function<bool()> begin =
        nullptr;  // everything but the last key or click; false when the program does not go along
    std::function<void()> finish = nullptr;  // that key or click
    std::function<bool()> leave = nullptr;   // closes what was opened for it
};

class Editor {
public:
    // Works on one run of the program, which shows this profile. The programs of `running` stand first in the list
    // of processes, in this order; they lie in the installation's folder.
    Editor(const desktop::Installation& installation, const desktop::Session& session, int profile,
           std::vector<std::string> running, const Looks& looks, const State& state, std::mt19937& random);

    // One that can be made now, chosen at random.
    Edit Next();
    // It has been made.
    void Done(const Edit& edit);
    const State& Now() const { return state_; }

private:
    std::optional<Edit> ChangeParam();
    std::optional<Edit> RemoveFavorite();
    std::optional<Edit> AddFavorite();
    std::optional<Edit> Transfer(bool move);
    std::optional<Edit> AddToFilter();
    std::optional<Edit> RemoveFromFilter();
    std::optional<Edit> ToggleOption();
    std::optional<Edit> ToggleFileTips();
    std::optional<Edit> ToggleAutoSet();
    std::optional<Edit> ToggleEnforce();

    int Random(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }
    std::optional<int> RandomFavorite();
    std::optional<std::string> RandomProcess(const std::function<bool(const std::string& name)>& suits);
    std::vector<std::string> ShownProcesses() const;
    std::function<bool()> SelectProcess(const std::string& name) const;
    State With(const std::string& file, const std::vector<std::string>& lines) const;
    std::optional<Edit> Toggle(settings::Key key, const std::function<bool()>& begin,
                               const std::function<void()>& finish) const;

    const desktop::Installation& installation_;
    const desktop::Session& session_;
    std::string profile_;
    std::vector<std::string> running_;
    const Looks& looks_;
    State state_;
    std::mt19937& random_;
    bool autoSet_;
    bool filtering_;
};

}  // namespace endurance
