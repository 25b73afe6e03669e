// System sounds.
#pragma once
#include <string>

namespace platform {

void beep();  // MessageBeep(MB_OK)
// Plays a sound alias such as "SystemQuestion" without waiting; silent when it is missing. PlaySoundA.
void playSound(const std::string& alias);

}  // namespace platform
