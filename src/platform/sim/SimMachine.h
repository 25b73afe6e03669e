// The state of the simulated machine, shared by the seam's functions (one .cpp a header) and the test side of
// Sim.h. Reached through machine(): the machine itself is the one global there can be.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

#include "platform/Instance.h"
#include "platform/Machine.h"
#include "platform/sim/Sim.h"

namespace platform::sim {

// A number that was never given out before, not even before a reset: what names an object by an old number
// finds nothing.
std::uintptr_t nextSerial();

// Open objects of one kind, by the raw value of their handle. Constant time, slots are used again.
template <class T>
class HandleTable {
public:
    std::uintptr_t add(T value) {
        std::size_t index = slots_.size();
        if (free_.empty()) {
            slots_.emplace_back();
        } else {
            index = free_.back();
            free_.pop_back();
        }
        slots_[index].raw = nextSerial() << kIndexBits | index;
        slots_[index].value = std::move(value);
        return slots_[index].raw;
    }
    T* find(std::uintptr_t raw) {
        const std::size_t index = raw & ((std::uintptr_t{1} << kIndexBits) - 1);
        return raw != 0 && index < slots_.size() && slots_[index].raw == raw ? &slots_[index].value : nullptr;
    }
    void remove(std::uintptr_t raw) {
        if (find(raw) == nullptr) return;
        const std::size_t index = raw & ((std::uintptr_t{1} << kIndexBits) - 1);
        slots_[index].raw = 0;
        slots_[index].value = T{};
        free_.push_back(index);
    }
    int count() const { return static_cast<int>(slots_.size() - free_.size()); }

private:
    static constexpr int kIndexBits = 20;
    struct Slot {
        std::uintptr_t raw = 0;
        T value{};
    };
    std::vector<Slot> slots_;
    std::vector<std::size_t> free_;
};

struct ProcessRecord {
    Process data;
    std::uintptr_t serial = 0;  // tells a process from a later one with the same id
};
struct OpenProcess {
    ProcessId id = 0;
    std::uintptr_t serial = 0;
    std::uint32_t access = 0;
};
struct ProcessTable {
    std::vector<std::unique_ptr<ProcessRecord>> inOrder;  // of creation
    std::unordered_map<ProcessId, ProcessRecord*> byId;
    HandleTable<OpenProcess> open;
    HandleTable<std::uint32_t> tokens;  // the access asked for
    std::vector<std::uint32_t> accessesAsked;
    ProcessId nextId = 104;
    int processorCount = 4;
    bool enumerationFails = false;
};

// What the system says about the whole machine.
struct Figures {
    bool refused = false;
    std::int64_t idleTime =
        std::int64_t{4} * 3'600'000 * 10'000;  // idle since it started, as `now` of Machine says
    PhysicalMemory memory{std::uint64_t{8} << 30, std::uint64_t{4} << 30};
    std::map<std::string, std::variant<std::string, std::uint32_t>> registry;  // by lower-case "key\\name"
};

struct NamedMutex {
    int handles = 0;
    bool heldElsewhere = false;  // another program has a handle too
    bool deniesAccess = false;   // to this program
};

struct FileEntry {
    std::string path;  // in its true case
    std::string content;
    std::uint64_t lastWrite = 0;  // 100-ns units since 1601
    bool folder = false;
    bool readOnly = false;  // folders: nothing in or below it can be created, changed or removed
    bool unreadable = false;
    bool held = false;  // files: by another program, which lets it neither be deleted nor replaced
    bool link = false;
};
struct Disk {
    std::map<std::string, FileEntry> entries;  // by pathKey
    std::uint64_t lastWrite = 0;               // of the file written last
    std::optional<std::size_t> space;
    std::optional<int> operationsLeft;
    bool stopped = false;
};

struct StoreValue {
    std::string value;
    bool isText = true;
};

struct TimerRecord {
    std::uintptr_t serial = 0;  // the handle of a process-wide timer
    std::uintptr_t window = 0;  // 0: process-wide
    int id = 0;                 // of a window timer
    std::uint64_t due = 0;
    std::uint32_t period = 0;
    std::shared_ptr<const std::function<void(std::uintptr_t)>> fire;  // kept alive during the call
};

struct IconData {
    std::string source;  // program file, or number of the resource; empty when made from a picture
    Size size;
    std::vector<Color> pixels;  // kUnpainted where transparent; only when made from a picture
};
struct PictureData {
    Size size;
    bool alpha = false;
    std::vector<std::uint32_t> pixels;  // rows from the top, 0xAABBGGRR, premultiplied when there is alpha
};

struct Tooltip {
    std::map<std::uintptr_t, std::string> tools;  // text by the window explained
    std::string title;
    int autoPop = 0;  // milliseconds; 0: never set
    int initial = 0;
};

struct Selection {  // bytes of the text; a caret when it is empty
    std::size_t from = 0;
    std::size_t to = 0;
};

struct WindowRecord {
    Window* object = nullptr;  // nullptr while its destructor runs
    std::uintptr_t native = 0;
    std::uintptr_t parent = 0;
    WindowKind kind = WindowKind::Child;
    std::string className;
    std::string title;
    std::vector<std::uintptr_t> children;  // in order of creation; not the dialogs and popups it owns
    Rect bounds;
    Rect normal;
    WindowState state = WindowState::Normal;
    bool restoreToMaximized = false;
    bool shown = false;
    bool sizeSent = false;
    bool enabled = true;  // as the program has it
    bool tabStop = false;
    bool topmost = false;
    std::uintptr_t height = 0;  // top-level: above those with a lower one, as far as both are topmost or not
    Translucency translucency;
    bool acceptsFiles = false;
    std::set<Request> acceptedFromUnelevated;
    bool destroying = false;
    bool textBox = false;       // its object is a TextBox
    Selection selection;        // of a text box
    bool ownersShadow = false;  // a dialog whose parent had a drop shadow when it was created
    std::map<std::string, std::uintptr_t> properties;  // by lower-case name
    Pointer pointer = Pointer::Arrow;
    std::uintptr_t lastFocus = 0;  // top-level: what gets the focus when it is activated again
    Rect invalid;
    Size bufferSize;
    std::vector<Color> buffer;
    std::vector<Drawn> drawn;  // the last paint only
};

struct Desktop {
    std::map<std::uintptr_t, std::shared_ptr<WindowRecord>> windows;  // ascending: in order of creation
    std::vector<Rect> screens{{0, 0, 1280, 800}};
    std::array<Color, 11> systemColors{rgb(255, 255, 255), rgb(0, 0, 0), rgb(10, 36, 106),   rgb(255, 255, 255),
                                       rgb(212, 208, 200), rgb(0, 0, 0), rgb(128, 128, 128), rgb(255, 255, 255),
                                       rgb(128, 128, 128), rgb(0, 0, 0), rgb(244, 243, 242)};
    bool highContrast = false;
    std::uintptr_t active = 0;  // a top-level window
    std::uintptr_t focus = 0;
    std::uintptr_t capture = 0;
    std::uintptr_t underPointer = 0;
    std::uintptr_t hovered = 0;  // got a move, and no leave since
    Point pointer;               // screen pixels
    bool leftHeld = false;
    bool dragTookButton = false;       // a drag by the caption ended with the left button: nobody sees it go up
    Modifiers modifiers;               // of the event that is being told
    std::set<std::uint16_t> heldKeys;  // virtual key codes
    std::deque<Point> drags;           // how far the user drags a window, one each time
    // The dialogs that are modal; the last one counts. 0 is one of the system's, which is no window here.
    std::vector<std::uintptr_t> modals;
    int busy = 0;
    int quitCode = -1;
    int failingMessages = 0;
    std::optional<int> foreignQuit;
    std::uint64_t drawCount = 0;
    std::deque<std::function<void(Window&)>> modalScripts;
    std::deque<std::optional<std::string>> fileAnswers;
    std::deque<std::function<int(const std::vector<MenuItem>&)>> menuScripts;
    std::deque<std::uintptr_t> showRequests;   // of showNormalAsync, until messages run
    std::deque<std::uintptr_t> closeRequests;  // of postClose, likewise
    std::vector<std::uintptr_t> closesPosted;
    std::set<std::string> shadowClasses;
    std::map<std::uintptr_t, WindowFacts> otherWindows;  // of other programs; ascending: the last one on top
};

struct ShellIcon {
    std::uintptr_t owner = 0;
    TrayIcon icon;
};

struct Machine {
    Machine();

    std::uint64_t now = 3'600'000;  // milliseconds since the machine started
    std::int64_t performanceFrequency = 10'000'000;
    int localBias = 0;  // minutes
    ProcessTable processes;
    Figures figures;
    std::string commandLine;
    bool elevated = false;  // the program's windows refuse what other programs ask
    std::map<std::string, NamedMutex> mutexes;
    HandleTable<std::string> mutexHandles;  // the mutex's name
    Disk disk;
    std::map<std::string, std::map<std::string, StoreValue>> store;  // lower-case section, lower-case key
    std::map<std::string, std::string> runList;                      // bytes by lower-case name
    bool runListRefused = false;                                     // nothing can be written to it
    std::vector<TimerRecord> timers;
    bool timersRefused = false;
    HandleTable<IconData> icons;
    HandleTable<PictureData> pictures;
    bool iconsFail = false;
    std::map<int, PictureData> pictureResources;
    std::map<std::uintptr_t, Tooltip> tooltips;  // ascending: in order of creation
    bool tooltipsFail = false;
    Desktop desktop;
    std::vector<ShellIcon> trayIcons;
    std::vector<Balloon> balloons;
    bool shellRunning = true;
    std::vector<std::string> sounds;
    std::vector<std::string> openedDocuments;
    std::vector<Launch> launches;
    std::vector<std::string> log;
};

Machine& machine();

// Recordings stop growing here, so that a soak test can run for days of simulated time.
inline constexpr std::size_t kMostRecorded = 100'000;

// Adds "what argument" to the log.
void note(std::string_view what, std::string_view argument = {});
// What no test may do: says so and ends the program.
[[noreturn]] void fail(const char* message);

// The clock at `now` milliseconds as 100-ns units since 1601.
std::uint64_t fileTime(std::uint64_t milliseconds);
// Moves the clock forward to `milliseconds`; processes with a load use processor time.
void moveClock(std::uint64_t milliseconds);

// The longest beginning of so many UTF-16 units, of which Windows counts its limits; no character is cut.
std::string_view firstUnits(std::string_view text, std::size_t units);

// Key of an absolute path in Disk::entries; empty when the path names nothing.
std::string pathKey(std::string_view path);
// When the next file is written: now, and later than the one before, so that any two states of a file differ.
std::uint64_t nextWrite(Machine& state);
void putEntry(Machine& state, const std::string& path, std::string content, bool folder);

}  // namespace platform::sim
