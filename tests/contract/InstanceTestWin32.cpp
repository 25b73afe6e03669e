// Two copies of one user's program, of which only the first runs as administrator.
#include "platform/Instance.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

#include "contract/Machine.h"
#include "platform/win32/Win32.h"

#include <aclapi.h>
#include <sddl.h>

using namespace contract;
using namespace platform;

namespace {

// As long as it lives this process gives its new objects the rights that Windows has for those of elevated
// programs: they are for administrators only.
class AsElevated {
public:
    AsElevated() {
        OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &token_);
        DWORD size = 0;
        GetTokenInformation(token_, TokenDefaultDacl, nullptr, 0, &size);
        before_.resize(size);
        REQUIRE(GetTokenInformation(token_, TokenDefaultDacl, before_.data(), size, &size));
        PSECURITY_DESCRIPTOR administrators = nullptr;
        REQUIRE(ConvertStringSecurityDescriptorToSecurityDescriptorA("D:(A;;GA;;;BA)(A;;GA;;;SY)", SDDL_REVISION_1,
                                                                     &administrators, nullptr));
        TOKEN_DEFAULT_DACL rights{};
        BOOL present = FALSE, defaulted = FALSE;
        GetSecurityDescriptorDacl(administrators, &present, &rights.DefaultDacl, &defaulted);
        REQUIRE(SetTokenInformation(token_, TokenDefaultDacl, &rights, sizeof rights));
        LocalFree(administrators);
    }
    ~AsElevated() {
        SetTokenInformation(token_, TokenDefaultDacl, before_.data(), static_cast<DWORD>(before_.size()));
        CloseHandle(token_);
    }

private:
    HANDLE token_ = nullptr;
    std::vector<char> before_;
};

// As long as it lives this thread belongs to the same user, who is no administrator here.
class AsOrdinary {
public:
    AsOrdinary() {
        char administrators[SECURITY_MAX_SID_SIZE];
        DWORD size = sizeof administrators;
        REQUIRE(CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators, &size));
        HANDLE whole = nullptr, rest = nullptr;
        REQUIRE(OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &whole));
        SID_AND_ATTRIBUTES without{administrators, 0};
        REQUIRE(CreateRestrictedToken(whole, DISABLE_MAX_PRIVILEGE, 1, &without, 0, nullptr, 0, nullptr, &rest));
        REQUIRE(ImpersonateLoggedOnUser(rest));
        CloseHandle(rest);
        CloseHandle(whole);
    }
    ~AsOrdinary() { RevertToSelf(); }
};

}  // namespace

TEST_CASE_FIXTURE(Fresh, "an elevated program's mutex is there for its user's other programs, too") {
    const std::string name = "Kestrum2 Contract Elevated";
    CreatedMutex mutex;
    {
        const AsElevated elevated;
        mutex = createMutex(name);
        REQUIRE(mutex.handle);
    }
    {
        const AsOrdinary ordinary;
        CHECK(createMutex(name).existed);
    }
    // For those of low integrity as well.
    PACL labels = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    REQUIRE(GetSecurityInfo(reinterpret_cast<HANDLE>(mutex.handle.raw()), SE_KERNEL_OBJECT,
                            LABEL_SECURITY_INFORMATION, nullptr, nullptr, nullptr, &labels,
                            &descriptor) == ERROR_SUCCESS);
    void* label = nullptr;
    REQUIRE(labels != nullptr);
    REQUIRE(GetAce(labels, 0, &label));
    auto& integrity = static_cast<SYSTEM_MANDATORY_LABEL_ACE*>(label)->SidStart;
    CHECK(*GetSidSubAuthority(&integrity, 0) == SECURITY_MANDATORY_LOW_RID);
    LocalFree(descriptor);
}
