// What a program is told of the command line that it was started with, by a program that tells it on.
#include <doctest/doctest.h>

#include <string>

#include "contract/Machine.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Machine.h"
#include "platform/win32/Win32.h"

namespace {

// The teller, in a folder whose name has blanks.
std::string tellerWithBlanks() {
    const std::string own = platform::programPath();
    const std::string teller = own.substr(0, own.find_last_of('\\') + 1) + "Teller.exe";
    const std::string folder = contract::scratchFolder() + "a folder  with blanks";
    CreateDirectoryA(folder.c_str(), nullptr);
    const std::string copy = folder + "\\The Teller.exe";
    REQUIRE(CopyFileA(teller.c_str(), copy.c_str(), FALSE));
    return copy;
}

// What the teller writes when it is started with this command line, the program's name included.
std::string told(const std::string& teller, std::string commandLine) {
    const std::string answer = contract::scratchFolder() + "answer.txt";
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE file =
        CreateFileA(answer.c_str(), GENERIC_WRITE, 0, &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    REQUIRE(file != INVALID_HANDLE_VALUE);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = file;
    PROCESS_INFORMATION process{};
    const BOOL started = CreateProcessA(teller.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        nullptr, &startup, &process);
    CloseHandle(file);
    REQUIRE(started);
    CHECK(WaitForSingleObject(process.hProcess, 20000) == WAIT_OBJECT_0);
    DWORD code = 1;
    GetExitCodeProcess(process.hProcess, &code);
    CHECK(code == 0);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return platform::readFile(answer).value_or("nothing to read");
}

}  // namespace

TEST_CASE("a program is told all that stands behind its name, as it stands") {
    contract::freshMachine();
    const std::string teller = tellerWithBlanks();
    const std::string quoted = "\"" + teller + "\"";
    const std::string names[] = {quoted, teller, platform::lowerCase(teller), "Teller"};
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
