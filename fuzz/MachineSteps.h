// What befalls the machine around the program: processes come, go and refuse, files are damaged or fail, settings
// hold anything, the desktop changes.
#pragma once

#include "Bytes.h"

namespace fuzz {

// Before the program starts everything may be; while it runs only what can change under a running program.
enum class When { BeforeStart, Running };

void ChangeMachine(const Step& step, When when);
// True when that step changes files or settings, or makes them fail.
bool Meddles(const Step& step);

// Programs with icons and a few files for them to come from.
void FurnishMachine();
// Nothing fails any more, as far as what was injected can be taken back.
void MendMachine();

// Absolute paths of programs, some of which are there.
const char* ProgramPath(int number);
// Text of the kind that users, files and other programs come up with.
const char* AnyText(int number);

}  // namespace fuzz
