// proclist.exe: looks at processes from outside.
//   proclist [NAME...]
//       A table of all processes, or of those with these file names: id, affinity mask, priority class, path.
//   proclist --wait PID|NAME --affinity MASK --class VALUE --timeout SECONDS
//       Waits until the process exists and has both. Prints how long after its start that was; exit code 0,
//       or 1 when the time is over.
#include <windows.h>
// Above the product's minimum: this runs on the development machine only.
#include <tlhelp32.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

// Windows Vista's; the headers offer it only to programs that ask for no less.
extern "C" __declspec(dllimport) BOOL WINAPI QueryFullProcessImageNameA(HANDLE, DWORD, LPSTR, PDWORD);

namespace {

struct Entry {
    DWORD id = 0;
    std::string name;
};

struct State {
    DWORD_PTR affinity = 0;
    DWORD priorityClass = 0;
    std::uint64_t creation = 0;  // 100-ns units
    std::string path;
};

std::vector<Entry> ListProcesses() {
    std::vector<Entry> entries;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32First(snapshot, &entry); more; more = Process32Next(snapshot, &entry)) {
        entries.push_back({entry.th32ProcessID, entry.szExeFile});
    }
    CloseHandle(snapshot);
    return entries;
}

std::uint64_t ToNumber(const FILETIME& time) {
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

// False when the process is gone or denied.
bool ReadState(DWORD id, State& state) {
    HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, id);
    if (process == nullptr) return false;
    DWORD_PTR system = 0;
    FILETIME creation{}, exit, kernel, user;
    char path[MAX_PATH] = "";
    DWORD length = sizeof path;
    const bool read = GetProcessAffinityMask(process, &state.affinity, &system) != 0 &&
                      GetProcessTimes(process, &creation, &exit, &kernel, &user) != 0;
    state.priorityClass = GetPriorityClass(process);
    state.creation = ToNumber(creation);
    if (QueryFullProcessImageNameA(process, 0, path, &length)) state.path = path;
    CloseHandle(process);
    return read;
}

const char* ClassName(DWORD value) {
    switch (value) {
        case IDLE_PRIORITY_CLASS:
            return "Low";
        case BELOW_NORMAL_PRIORITY_CLASS:
            return "Below";
        case NORMAL_PRIORITY_CLASS:
            return "Normal";
        case ABOVE_NORMAL_PRIORITY_CLASS:
            return "Above";
        case HIGH_PRIORITY_CLASS:
            return "High";
        case REALTIME_PRIORITY_CLASS:
            return "Real";
        default:
            return "?";
    }
}

void PrintTable(const std::vector<std::string>& names) {
    std::printf("%6s  %8s  %-6s  %s\n", "PID", "Affinity", "Class", "Path");
    for (const Entry& entry : ListProcesses()) {
        bool wanted = names.empty();
        for (const std::string& name : names) wanted = wanted || lstrcmpiA(name.c_str(), entry.name.c_str()) == 0;
        State state;
        if (!wanted) continue;
        if (ReadState(entry.id, state)) {
            std::printf("%6lu  %8llx  %-6s  %s\n", entry.id, static_cast<unsigned long long>(state.affinity),
                        ClassName(state.priorityClass), state.path.c_str());
        } else {
            std::printf("%6lu  %8s  %-6s  %s\n", entry.id, "-", "-", entry.name.c_str());
        }
    }
}

// The process with this id or file name, 0 when there is none.
DWORD Find(const std::string& which) {
    for (const Entry& entry : ListProcesses()) {
        if (std::to_string(entry.id) == which || lstrcmpiA(which.c_str(), entry.name.c_str()) == 0) return entry.id;
    }
    return 0;
}

int WaitForState(const std::string& which, DWORD_PTR affinity, DWORD priorityClass, DWORD timeout) {
    const DWORD start = GetTickCount();
    DWORD id = 0;
    State state;
    do {
        if (id == 0) id = Find(which);
        if (id != 0 && ReadState(id, state) && state.affinity == affinity && state.priorityClass == priorityClass) {
            FILETIME now;
            GetSystemTimeAsFileTime(&now);
            std::printf("%s (%lu): affinity %llx, class %s, %llu ms after its start\n", which.c_str(), id,
                        static_cast<unsigned long long>(affinity), ClassName(priorityClass),
                        static_cast<unsigned long long>((ToNumber(now) - state.creation) / 10000));
            return 0;
        }
        Sleep(5);
    } while (GetTickCount() - start < timeout);
    std::printf("%s (%lu): affinity %llx, class %s and not as it should be\n", which.c_str(), id,
                static_cast<unsigned long long>(state.affinity), ClassName(state.priorityClass));
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> names;
    std::string which;
    unsigned long affinity = 0, priorityClass = 0, seconds = 10;
    for (int i = 1; i < argc; ++i) {
        const char* value = i + 1 < argc ? argv[i + 1] : "";
        if (std::strcmp(argv[i], "--wait") == 0) {
            which = value;
        } else if (std::strcmp(argv[i], "--affinity") == 0) {
            affinity = std::strtoul(value, nullptr, 0);
        } else if (std::strcmp(argv[i], "--class") == 0) {
            priorityClass = std::strtoul(value, nullptr, 0);
        } else if (std::strcmp(argv[i], "--timeout") == 0) {
            seconds = std::strtoul(value, nullptr, 0);
        } else {
            names.push_back(argv[i]);
            continue;
        }
        ++i;
    }
    if (!which.empty()) return WaitForState(which, affinity, priorityClass, 1000 * seconds);
    PrintTable(names);
    return 0;
}
