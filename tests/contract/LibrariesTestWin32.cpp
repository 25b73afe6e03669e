// Where the system looks for a library, with one planted beside the program.
#include "platform/Libraries.h"

#include <doctest/doctest.h>

#include <string>

#include "platform/Machine.h"
#include "platform/win32/SystemLibrary.h"

namespace {

// A library beside this program under a name that Windows does not have.
class Planted {
public:
    Planted() {
        const std::string program = platform::programPath();
        path_ = program.substr(0, program.rfind('\\') + 1) + kName;
        char system[MAX_PATH];
        GetSystemDirectoryA(system, sizeof system);
        REQUIRE(CopyFileA((std::string(system) + "\\msimg32.dll").c_str(), path_.c_str(), FALSE));
    }
    ~Planted() { DeleteFileA(path_.c_str()); }
    Planted(const Planted&) = delete;
    Planted& operator=(const Planted&) = delete;

    // Whether a library that is asked for by its name alone is found there.
    static bool found() {
        const HMODULE library = LoadLibraryA(kName);
        if (library != nullptr) FreeLibrary(library);
        return library != nullptr;
    }

private:
    static constexpr const char* kName = "kestrum-planted.dll";
    std::string path_;
};

}  // namespace

// There is no way back within one program: the tests behind this one run as the programs do.
TEST_CASE("a library beside the program is found until it is looked for in the system folder only") {
    const Planted planted;
    CHECK(planted.found());
    platform::searchLibrariesInSystemFolderOnly();
    CHECK_FALSE(planted.found());
    CHECK(platform::systemLibrary("winmm.dll") != nullptr);
    CHECK(platform::systemLibrary("no-such-library.dll") == nullptr);
    CHECK(platform::systemFunction<void*>("winmm.dll", "PlaySoundA") != nullptr);
    CHECK(platform::systemFunction<void*>("winmm.dll", "NoSuchFunction") == nullptr);
}
