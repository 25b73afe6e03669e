// Programs that come and go all the time, favourites and strangers, and how long each favourite stays unset.
#pragma once

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "desktop/Session.h"

namespace endurance {

// A program of the swarm: as a favourite what it is to get, as a stranger what it has to keep.
struct Kind {
    std::string path;
    DWORD_PTR affinity = 0;
    DWORD priorityClass = 0;
    bool favorite = false;
};

class Swarm {
public:
    // `window` is one of the program that sets them.
    Swarm(std::vector<Kind> kinds, unsigned seed, HWND window)
        : kinds_(std::move(kinds)), random_(seed), window_(window) {}

    // One round: looks at everyone, ends those who have lived, starts the next when it is time. To be called every
    // few milliseconds.
    void Beat();
    // One round of looking only: nobody comes or goes.
    void Look();
    // A favourite that is set gets the usual class back from outside. Gives the milliseconds until it was set
    // again, `bound` when it was not; -1 when there is none to try it with. Nobody comes or goes meanwhile.
    int Disturb(int bound);

    struct Figures {
        int started = 0, failedStarts = 0;
        int ended = 0;
        int favorites = 0;         // of those that ended
        int neverSet = 0;          // of these
        int strangersTouched = 0;  // something was changed although they are no favourites
        std::vector<int> unset;    // milliseconds a favourite was last seen unset after its start, each of them
        std::vector<int> set;      // and was first seen set
        int longestAnswer = 0;     // milliseconds that the program was at work without a pause
        int longestGap = 0;        // milliseconds between two rounds of ours
        std::vector<std::string> late;  // what is worth telling of those who were left unset for too long
    };
    const Figures& Sums() const { return figures_; }
    int Alive() const { return static_cast<int>(guests_.size()); }

private:
    struct Guest {
        std::unique_ptr<desktop::Process> process;
        const Kind* kind = nullptr;
        DWORD start = 0, lifetime = 0;  // milliseconds
        int lastUnset = 0, firstSet = -1;
        int lost = 0;  // milliseconds that the program worked or the machine stood still while it was unset
    };
    void Start();
    void LookAt(Guest& guest, int lost);
    void End(const Guest& guest);
    int Random(int least, int most) { return std::uniform_int_distribution(least, most)(random_); }

    std::vector<Kind> kinds_;
    std::mt19937 random_;
    HWND window_;
    std::vector<Guest> guests_;
    Figures figures_;
    DWORD nextStart_ = 0, lastRound_ = 0;
    std::vector<DWORD> setMoments_;  // when any of them was first seen set
};

}  // namespace endurance
