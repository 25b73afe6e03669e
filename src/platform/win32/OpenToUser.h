// Who may open a named object of ours.
#pragma once

#include "platform/win32/Win32.h"

namespace platform {

// Rights for a new object: every program of this user may open it for everything, elevated or not. What Windows
// gives to the objects of an elevated program shuts the user's other programs out.
class OpenToUser {
public:
    OpenToUser();
    ~OpenToUser();
    OpenToUser(const OpenToUser&) = delete;
    OpenToUser& operator=(const OpenToUser&) = delete;

    // For the call that makes the object. Null, Windows' own choice, when it cannot be said who the user is.
    SECURITY_ATTRIBUTES* attributes() { return descriptor_ != nullptr ? &attributes_ : nullptr; }

private:
    PSECURITY_DESCRIPTOR descriptor_ = nullptr;
    SECURITY_ATTRIBUTES attributes_{};
};

}  // namespace platform
