#include "platform/Sound.h"

#include "platform/win32/Win32.h"

#include <mmsystem.h>

namespace platform {

void beep() {
    MessageBeep(MB_OK);
}

void playSound(const std::string& alias) {
    PlaySoundA(alias.c_str(), nullptr, SND_ALIAS | SND_ASYNC | SND_NODEFAULT);
}

}  // namespace platform
