// The program killed in the middle of its user's work, again and again.
#pragma once

namespace endurance {

// Each time: files and settings at random, some edits that the program acknowledges, one more, and the end at a
// random moment of it. Then nothing acknowledged may be missing, nothing half written, nothing left lying about,
// and the next start shows it all. What is random comes of the seed and the number of the step alone, the moments
// of the system apart; the first step has the number `first`. Prints figures and a verdict.
bool Kill(int times, unsigned seed, int first);

}  // namespace endurance
