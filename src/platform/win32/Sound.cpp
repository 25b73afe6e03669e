#include "platform/Sound.h"

#include "platform/win32/SystemLibrary.h"

#include <mmsystem.h>

namespace platform {

void beep() {
    MessageBeep(MB_OK);
}

void playSound(const std::string& alias) {
    // Loaded with the first sound: the library takes memory that a program in the background need not have.
    static const auto play = systemFunction<decltype(&PlaySoundA)>("winmm.dll", "PlaySoundA");
    if (play != nullptr) play(alias.c_str(), nullptr, SND_ALIAS | SND_ASYNC | SND_NODEFAULT);
}

}  // namespace platform
