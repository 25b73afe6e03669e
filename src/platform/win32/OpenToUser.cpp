#include "platform/win32/OpenToUser.h"

#include <cstddef>
#include <string>

#include <sddl.h>

namespace platform {

namespace {

// The user of this process as "S-1-5-21-..."; empty when that cannot be read. OpenProcessToken,
// GetTokenInformation.
std::string userId() {
    HANDLE token = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == 0) return {};
    alignas(TOKEN_USER) std::byte room[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE];
    DWORD used = 0;
    const bool known = GetTokenInformation(token, TokenUser, room, sizeof room, &used) != 0;
    CloseHandle(token);
    char* text = nullptr;
    if (!known || ConvertSidToStringSidA(reinterpret_cast<TOKEN_USER*>(room)->User.Sid, &text) == 0) return {};
    const std::string id = text;
    LocalFree(text);
    return id;
}

PSECURITY_DESCRIPTOR parsed(const std::string& text) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorA(text.c_str(), SDDL_REVISION_1, &descriptor, nullptr);
    return descriptor;
}

}  // namespace

OpenToUser::OpenToUser() {
    const std::string user = userId();
    if (user.empty()) return;
    const std::string allowed = "D:(A;;GA;;;" + user + ")";
    // The list alone is not enough: an object has the integrity of its maker, and none below may write to it.
    descriptor_ = parsed(allowed + "S:(ML;;NW;;;LW)");
    if (descriptor_ == nullptr) descriptor_ = parsed(allowed);  // XP knows no integrity
    attributes_ = {sizeof attributes_, descriptor_, FALSE};
}

OpenToUser::~OpenToUser() {
    LocalFree(descriptor_);
}

}  // namespace platform
