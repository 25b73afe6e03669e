// What a program finds where others had their hands in: values of the machine's part of the registry, the command
// line that it was started with (told by a program of its own), and a library planted beside it.
#include "platform/Machine.h"

#include <doctest/doctest.h>

#include <string>

#include "contract/Machine.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Libraries.h"
#include "platform/win32/SystemLibrary.h"

using namespace contract;
using namespace platform;

namespace {

std::string besideProgram(const std::string& name) {
    const std::string own = programPath();
    return own.substr(0, own.rfind('\\') + 1) + name;
}

// What the teller writes when it is started with this command line, the program's name included.
std::string told(const std::string& teller, std::string commandLine) {
    const std::string folder = scratchFolder();
    deleteFile(folder + "answer.txt");
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    REQUIRE(CreateProcessA(teller.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(),
                           &startup, &process));
    CHECK(WaitForSingleObject(process.hProcess, 20000) == WAIT_OBJECT_0);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return readFile(folder + "answer.txt").value_or("nothing to read");
}

constexpr char kPlanted[] = "kestrum-planted.dll";  // which Windows does not have

// Whether a library that is asked for by its name alone is found.
bool isFound() {
    const HMODULE library = LoadLibraryA(kPlanted);
    if (library != nullptr) FreeLibrary(library);
    return library != nullptr;
}

}  // namespace

TEST_CASE_FIXTURE(Fresh, "texts and numbers of the machine are read whatever their values look like") {
    const std::string name = "SOFTWARE\\Kestrum2 Contract";
    HKEY key = nullptr;
    REQUIRE(RegCreateKeyA(HKEY_LOCAL_MACHINE, name.c_str(), &key) == ERROR_SUCCESS);
    using namespace std::string_literals;
    const std::string big(300000, 'x');
    const struct {
        DWORD type;
        std::string bytes;
        std::string text;
        std::uint32_t number;
    } values[] = {
        {REG_SZ, "ended\0"s, "ended", 0},
        {REG_SZ, "not ended", "not ended", 0},
        {REG_SZ, "ended\0twice\0"s, "ended", 0},
        {REG_SZ, "", "", 0},
        {REG_SZ, big, big, 0},
        {REG_BINARY, "some", "", 0},
        {REG_DWORD, "\x01\x02\x03\x84", "", 0x84030201},
        {REG_DWORD, "\x01\x02\x03", "", 0},
        {REG_DWORD, std::string(5000, '\x01'), "", 0},
    };
    for (const auto& value : values) {
        CAPTURE(value.bytes.size());
        RegSetValueExA(key, "value", 0, value.type, reinterpret_cast<const BYTE*>(value.bytes.data()),
                       static_cast<DWORD>(value.bytes.size()));
        CHECK(machineText(name, "value") == value.text);
        CHECK(machineNumber(name, "value") == value.number);
    }
    CHECK(machineText(name, "other").empty());
    RegCloseKey(key);
    RegDeleteKeyA(HKEY_LOCAL_MACHINE, name.c_str());
    CHECK_FALSE(machineText("HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0", "Identifier").empty());
}

TEST_CASE_FIXTURE(Fresh, "a program is told all that stands behind its name, as it stands") {
    REQUIRE(createFolders(scratch + "a folder  with blanks"));
    const std::string teller = scratch + "a folder  with blanks\\The Teller.exe";
    REQUIRE(CopyFileA(besideProgram("Teller.exe").c_str(), teller.c_str(), FALSE));
    const std::string quoted = "\"" + teller + "\"";
    const std::string names[] = {quoted, teller, lowerCase(teller), "Teller"};
    const std::string rests[] = {
        "", " ", " /d", "   three  blanks   ", " \"one  argument\" c\"d", "\tTab \xC3\xBC"};
    for (const std::string& name : names) {
        for (const std::string& rest : rests) {
            const std::string line = name + rest;
            CAPTURE(line);
            CHECK(told(teller, line) == rest);
        }
    }
    CHECK(told(teller, quoted + "/d") == "/d");
    CHECK(told(teller, "\"" + teller).empty());  // a quote that never ends
}

// There is no way back within one program: the tests behind this one run as the programs do.
TEST_CASE("a library beside the program is found until it is looked for in the system folder only") {
    const std::string path = besideProgram(kPlanted);
    REQUIRE(CopyFileA((windowsDirectory() + "\\system32\\msimg32.dll").c_str(), path.c_str(), FALSE));
    CHECK(isFound());
    searchLibrariesInSystemFolderOnly();
    CHECK_FALSE(isFound());
    DeleteFileA(path.c_str());
    CHECK(systemLibrary("winmm.dll") != nullptr);
    CHECK(systemLibrary("no-such-library.dll") == nullptr);
    CHECK(systemFunction<void*>("winmm.dll", "PlaySoundA") != nullptr);
    CHECK(systemFunction<void*>("winmm.dll", "NoSuchFunction") == nullptr);
}
