// The program under thousands of starting and ending processes.
#pragma once

namespace endurance {

// Runs for so many minutes with Auto Set and Enforce on, half of the time in the window and half in the
// notification area. Prints figures and a verdict; false when something was left unset, changed by mistake or not
// given back.
bool Soak(int minutes);

}  // namespace endurance
