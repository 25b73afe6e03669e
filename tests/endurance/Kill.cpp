#include "endurance/Kill.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>

#include "endurance/Edits.h"

namespace endurance {

using desktop::Process;
using desktop::Session;
using desktop::WaitFor;

namespace {

constexpr int kMostEdits = 3;  // before the last one
constexpr int kEveryJr = 5;    // steps
constexpr int kFavorites = 6;
constexpr const char* kJrCaption = "  Kestrum Jr.";
const std::vector<std::string> kRunning = {"Aa1.exe", "Aa2.exe", "Aa3.exe", "Aa4.exe"};

std::string FavoriteName(int number) {
    return "Fa" + std::to_string(number) + ".exe";
}

// Of a step. A gesture that the program did not get, on a machine with too much to do, is no edit: nothing was
// acknowledged, and nobody was killed.
enum class Outcome { Passed, Failed, NotMade };

class Killer {
public:
    explicit Killer(unsigned seed) : seed_(seed) {
        installation_.AddJr();
        for (const std::string& name : kRunning) AddGuest(name);
        for (int number = 1; number <= kFavorites; ++number) AddGuest(FavoriteName(number));
        for (const auto& [name, size] : desktop::FileSizes(installation_.Folder())) programs_.insert(name);
        programs_.insert("Cache");
    }

    // Learns what the names of all programs look like. False when it cannot.
    bool Prepare() {
        std::vector<std::string> names = kRunning;
        for (int number = 1; number <= kFavorites; ++number) names.push_back(FavoriteName(number));
        std::vector<std::string> lines;
        for (const std::string& name : names) lines.push_back(RandomLine(name));
        State state;
        state.SetLines(ProfileName(1), lines);
        WriteState(installation_.Folder(), state);
        Session session(installation_);
        if (!session.Started()) return false;
        const int count = static_cast<int>(names.size());
        if (!WaitFor([&] { return session.Favorites().HasText(count - 1); })) return false;
        for (int slot = 0; slot < count; ++slot) {
            looks_.Learn(session.Favorites(), slot, names[static_cast<std::size_t>(slot)]);
        }
        return looks_.AllDiffer() && session.End();
    }

    Outcome Step(int step) {
        random_.seed(seed_ * 1000003u + static_cast<unsigned>(step));
        step_ = step;
        lost_ = false;
        std::vector<std::unique_ptr<Process>> company;
        for (const std::string& name : kRunning) {
            company.push_back(std::make_unique<Process>(installation_.Folder() + name));
        }
        const State start = RandomState();
        WriteState(installation_.Folder(), start);
        desktop::WriteSetting("FavName", std::to_string(profile_ - 1));
        std::vector<State> allowed;
        const std::unique_ptr<Process> jr = EditAndKill(start, allowed);
        if (allowed.empty()) return lost_ ? Outcome::NotMade : Outcome::Failed;
        const State found = ReadState(installation_.Folder());
        NoteOutcome(found, allowed);
        if (std::ranges::find(allowed, found) == allowed.end()) {
            Fails("killed in: " + last_ + "; found then, against what was before:\n" +
                  Difference(found, allowed.front()));
            return Outcome::Failed;
        }
        return NextStart(found, jr.get()) ? Outcome::Passed : Outcome::Failed;
    }

    void PrintFigures() const {
        std::printf("%d edits acknowledged\n", acknowledged_);
        std::printf("the last edit: %d not begun, %d half done, %d done; %d half-written files left\n", notBegun_,
                    halfDone_, done_, leftOver_);
    }

private:
    void AddGuest(const std::string& name) const {
        CopyFileA((desktop::OwnFolder() + "Guest.exe").c_str(), (installation_.Folder() + name).c_str(), FALSE);
    }

    int Random(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }

    bool Fails(const std::string& why) const {
        std::printf("seed %u step %d: %s\n", seed_, step_, why.c_str());
        std::fflush(stdout);
        return false;
    }

    bool Loses(const Edit& edit) {
        lost_ = true;
        std::printf("step %d: not made: %s\n", step_, edit.what.c_str());
        return false;
    }

    std::string RandomLine(const std::string& name) {
        static constexpr const char* kPriorities[] = {"Default", "High", "Normal", "Below", "Low"};
        // A running one keeps the affinity it has, which is that of a favourite that is added.
        const std::string affinity = name[0] == 'F' ? std::to_string(Random(0, 1)) : "01";
        return name + '\t' + affinity + '\t' + kPriorities[Random(0, 4)] + '\t' + installation_.Folder() + name +
               '\t' + std::string(static_cast<std::size_t>(Random(0, 12)), 'p');
    }

    State RandomState() {
        State state = ReadState(installation_.Folder());
        profile_ = Random(1, kProfiles);
        for (int number = 1; number <= kProfiles; ++number) {
            std::vector<std::string> lines;
            for (const std::string& name : kRunning) {
                if (Random(0, 3) == 0) lines.push_back(RandomLine(name));
            }
            for (int favorite = 1; favorite <= kFavorites; ++favorite) {
                if (Random(0, 2) == 0) lines.push_back(RandomLine(FavoriteName(favorite)));
            }
            state.SetLines(ProfileName(number), lines);
        }
        std::vector<std::string> names;
        for (const std::string& name : kRunning) {
            if (Random(0, 3) == 0) names.push_back(name);
        }
        state.SetLines(kFilter, names);
        for (const settings::Key key : EditedKeys()) {
            std::string& value = state.settings[settings::InfoOf(key).name];
            if (Random(0, 1) == 1) value = Toggled(key, value);
        }
        return state;
    }

    // Puts into `allowed` what may be found afterwards, nothing when it does not come to that. Gives Kestrum Jr.
    // when it runs.
    std::unique_ptr<Process> EditAndKill(const State& start, std::vector<State>& allowed) {
        Session session(installation_);
        if (!session.Started()) {
            Fails("the program does not start");
            return nullptr;
        }
        std::unique_ptr<Process> jr;
        if (step_ % kEveryJr == 0) jr = StartJr();
        Editor editor(installation_, session, profile_, kRunning, looks_, start, random_);
        for (int edits = Random(0, kMostEdits); edits > 0; --edits) {
            if (!Make(editor)) return jr;
        }
        const Edit edit = editor.Next();
        last_ = edit.what;
        const int moment = Random(0, 9);
        const int delay = RandomDelay();
        const auto files = desktop::FileSizes(installation_.Folder());
        if (!edit.begin()) {
            Loses(edit);
            return jr;
        }
        if (moment != 0) edit.finish();  // else before the last key
        if (moment < 5) {
            Sleep(static_cast<DWORD>(delay));
        } else {
            WaitForSign(files);
            if (moment < 8) Sleep(static_cast<DWORD>(delay % 4));
        }
        session.Kill();
        allowed = edit.steps;
        allowed.insert(allowed.begin(), editor.Now());
        return jr;
    }

    // The first sign of writing, whatever it is, without a pause; or none for a while.
    void WaitForSign(const std::map<std::string, std::size_t>& files) const {
        constexpr DWORD kLongest = 300;
        const DWORD begun = GetTickCount();
        while (desktop::FileSizes(installation_.Folder()) == files && GetTickCount() - begun < kLongest) {
        }
    }

    // Short ones above all: an edit takes a few milliseconds.
    int RandomDelay() {
        static constexpr int kMost[] = {3, 10, 30, 150};
        return Random(0, kMost[Random(0, 3)]);
    }

    std::unique_ptr<Process> StartJr() const {
        auto jr = std::make_unique<Process>(installation_.Folder() + "Kestrum_Jr.exe /" + ProfileName(profile_));
        WaitFor([] { return FindWindowA(nullptr, kJrCaption) != nullptr; });
        return jr;
    }

    // An edit, until it is in the files.
    bool Make(Editor& editor) {
        const Edit edit = editor.Next();
        if (!edit.begin()) return Loses(edit);
        edit.finish();
        if (!StateBecomes(installation_.Folder(), edit.steps.back())) {
            const State found = ReadState(installation_.Folder());
            if (found == editor.Now()) return Loses(edit);
            return Fails(edit.what + " is not done:\n" + Difference(found, edit.steps.back()));
        }
        if (!edit.leave()) return Fails("no way back from the edit: " + edit.what);
        editor.Done(edit);
        ++acknowledged_;
        return true;
    }

    void NoteOutcome(const State& found, const std::vector<State>& allowed) {
        if (found == allowed.back()) {
            ++done_;
        } else {
            ++(found == allowed.front() ? notBegun_ : halfDone_);
        }
        if (!Strays().empty()) ++leftOver_;
    }

    // Files that are neither the program's nor the user's.
    std::vector<std::string> Strays() const {
        std::vector<std::string> strays;
        const State state = ReadState(installation_.Folder());
        for (const auto& [name, size] : desktop::FileSizes(installation_.Folder())) {
            if (!programs_.contains(name) && !state.files.contains(name)) strays.push_back(name);
        }
        return strays;
    }

    // The program comes up with all that was found, in the right order, and changes nothing of it.
    bool NextStart(const State& found, const Process* jr) {
        {
            Session session(installation_);
            if (!session.Started()) return Fails("the next start fails");
            if (!ShowsFavorites(session.Favorites(), found)) return false;
            if (jr != nullptr && !jr->WaitForEnd()) return Fails("Kestrum Jr. goes on beside the next start");
            if (!session.End()) return Fails("the next run does not end");
        }
        const State after = ReadState(installation_.Folder());
        if (after != found) return Fails("the next run changed:\n" + Difference(after, found));
        const std::vector<std::string> strays = Strays();
        if (strays.empty()) return true;
        DeleteFileA((installation_.Folder() + strays.front()).c_str());
        return Fails("left behind after the next run, too: " + strays.front() + " (killed in: " + last_ + ")");
    }

    bool ShowsFavorites(const desktop::List& list, const State& state) {
        const std::vector<std::string> lines = state.Lines(ProfileName(profile_));
        const int count = static_cast<int>(lines.size());
        const auto isFilled = [&] { return !list.HasText(count) && (count == 0 || list.HasText(count - 1)); };
        // The first that is not shown in its place; empty when there is none.
        const auto missing = [&] {
            for (int slot = 0; slot < count; ++slot) {
                const std::string& line = lines[static_cast<std::size_t>(slot)];
                std::string name = line.substr(0, line.find('\t'));
                if (!looks_.Shows(list, slot, name)) return name;
            }
            return std::string();
        };
        if (WaitFor([&] { return isFilled() && missing().empty(); })) return true;
        if (!isFilled()) return Fails("not so many favourites are shown as there are");
        return Fails("another favourite is shown in place of " + missing());
    }

    desktop::Installation installation_;
    std::set<std::string> programs_;  // files that are there from the beginning
    Looks looks_;
    std::mt19937 random_;
    unsigned seed_;
    int step_ = 0;
    int profile_ = 1;
    bool lost_ = false;  // the step's gesture did not get through
    std::string last_;
    int acknowledged_ = 0, notBegun_ = 0, halfDone_ = 0, done_ = 0, leftOver_ = 0;
};

}  // namespace

bool Kill(int times, unsigned seed, int first) {
    std::printf("seed %u\n", seed);
    Killer killer(seed);
    if (!killer.Prepare()) {
        std::printf("the program does not start, or its favourites cannot be told apart\n");
        return false;
    }
    int failed = 0, killed = 0, notMade = 0;
    for (int step = first; killed < times && notMade <= times / 5; ++step) {
        const Outcome outcome = killer.Step(step);
        if (outcome == Outcome::NotMade) {
            ++notMade;
            continue;
        }
        ++killed;
        if (outcome == Outcome::Failed) ++failed;
        if (killed % 20 == 0) {
            std::printf("killed %d times, %d failed\n", killed, failed);
            std::fflush(stdout);
        }
    }
    killer.PrintFigures();
    std::printf("killed %d times of %d: %d failed; %d more edits were not made\n", killed, times, failed, notMade);
    return failed == 0 && killed == times;
}

}  // namespace endurance
