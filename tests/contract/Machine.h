// What contract tests need of the machine they run on and the seam does not offer: a folder of their own, a
// process to experiment with, and waiting. Implemented for the simulation (MachineSim) and for Windows
// (MachineWin32).
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/Process.h"

namespace contract {

// Begins every test: the simulated machine is reset; on Windows what a test may have left is removed.
void freshMachine();

// The section of the settings store that tests may write to; nothing is in it after freshMachine.
inline const std::string kSection = "Kestrum2 Contract\\Test";

enum class StoredAs { Text, ExpandableText, Binary };
// Puts a value into the store past the seam, its bytes exactly as given (text without a NUL at its end, say).
void putStored(const std::string& key, StoredAs kind, const std::string& bytes);

// The entry of the user's run list that tests may write; there is none after freshMachine.
inline const std::string kRunEntry = "Kestrum2 Contract";
// The bytes of an entry of the user's run list as they are stored there, without the NUL at their end; nullopt when
// there is no such text, or no NUL at its end.
std::optional<std::string> storedRunEntry(const std::string& name);

// An existing folder, with trailing "\", empty after freshMachine.
std::string scratchFolder();
// An existing file with the content "old" that can be read, but not written, replaced or deleted.
std::string sealedFile();
// Makes a link, at a path where nothing is, to an existing file or folder of scratchFolder.
void makeLink(const std::string& path, const std::string& target);

// A named mutex of another program, which denies access to it; there is none after freshMachine.
void holdClosedMutex(const std::string& name);

// The machine of a test that needs no windows.
struct Fresh {
    Fresh() { freshMachine(); }
    const std::string scratch = scratchFolder();
};

enum class Load { Idle, Busy };

// A process of no importance; it ends with this object.
class Victim {
public:
    explicit Victim(Load load = Load::Idle);
    // From a copy of its program file under this path.
    explicit Victim(const std::string& path);
    ~Victim();
    Victim(const Victim&) = delete;
    Victim& operator=(const Victim&) = delete;

    platform::ProcessId id() const { return id_; }
    const std::string& path() const { return path_; }
    void end();  // as if it ended by itself; returns when it is gone

private:
    void start(Load load);

    platform::ProcessId id_ = 0;
    std::string path_;
    std::uintptr_t native_ = 0;
};

// Runs the message loop until `condition` holds, at most `milliseconds` long; whether it holds.
bool waitFor(const std::function<bool()>& condition, std::uint32_t milliseconds = 10000);

}  // namespace contract
