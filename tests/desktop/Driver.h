// What the journeys need to drive a program from outside: its process, its windows, input, pixels, settings.
// Everything waits for a condition with a bound, nothing for a time.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Geometry.h"

namespace desktop {

using platform::Point;
using platform::Rect;

inline constexpr DWORD kBound = 20000;  // milliseconds nothing should ever take

// Polls until the condition holds; false when `milliseconds` are over.
bool WaitFor(const std::function<bool()>& condition, DWORD milliseconds = kBound);

// The folder with the product under test; given on the command line, with a trailing "\".
std::string& ProductFolder();
// The folder of this program, with a trailing "\".
std::string OwnFolder();

// Empty when there is no such file. Tried again while that is just being replaced.
std::string ReadWholeFile(const std::string& path);
void WriteWholeFile(const std::string& path, const std::string& content);
// Names and sizes of a folder's files. Opens none of them: an open file can't be replaced.
std::map<std::string, std::size_t> FileSizes(const std::string& folder);

// Waits until the file has that content; it is read when its size is right: see FileSizes.
bool FileBecomes(const std::string& path, const std::string& content);

// The program's settings section. Read gives nullopt for a missing value.
std::optional<std::string> ReadSetting(const std::string& key);
void WriteSetting(const std::string& key, const std::string& value);
void DeleteSettings();

// A started process; ended with its object.
class Process {
public:
    explicit Process(const std::string& commandLine);
    explicit Process(HWND window);  // the one that made the window
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    DWORD Id() const { return info_.dwProcessId; }
    bool Running() const;
    // Waits until it has nothing to do: by then it is listed by whoever looks at its path.
    void WaitUntilIdle() const { WaitForInputIdle(info_.hProcess, kBound); }
    bool WaitForEnd() const;  // false when it goes on past the bound
    void Kill();              // and its icon in the notification area
    DWORD_PTR Affinity() const;
    DWORD PriorityClass() const;

private:
    PROCESS_INFORMATION info_{};
};

// Pixels of a window, or of the screen for nullptr, 0x00RRGGBB.
class Picture {
public:
    Picture(HWND window, const Rect& area);
    int Width() const { return width_; }
    int Height() const { return height_; }
    std::uint32_t At(int x, int y) const { return pixels_[static_cast<std::size_t>(y * width_ + x)]; }
    // The colour most of the pixels have.
    std::uint32_t Background() const;
    bool Plain() const;  // one colour only
    friend bool operator==(const Picture&, const Picture&) = default;

private:
    int width_, height_;
    std::vector<std::uint32_t> pixels_;
};

// A window that belongs to the process; nullptr when it doesn't come.
HWND WaitForWindow(const Process& process, const char* className, const char* caption);
HWND Child(HWND parent, const char* className, const char* text);
// The icon that the window owns in the notification area goes; the program hears nothing of it.
void RemoveTrayIcon(HWND owner);
Rect ScreenRect(HWND window);
Rect ClientRect(HWND window);
Point ToScreen(HWND window, Point at);

// Real input at a point of the window's client area. Two clicks at the same place within the double-click time are
// a double click, as for a user.
void Click(HWND window, Point at);
enum class MouseKey { Left, Right, Middle };
// Ctrl is held for the click alone: when the pointer moves Wine asks the real keyboard, which has it up.
void ClickScreen(Point at, MouseKey key, bool withCtrl = false);
// Drags what `window` shows at `grip` to `end` (screen pixels), again from where it is then until it has arrived.
bool Drag(HWND window, const std::function<Point()>& grip, Point end, const std::function<bool()>& arrived);
// Makes a click, with the pointer out of the way afterwards, and again until the condition holds. The clicks are
// told how far beside the first they have to be so that no two are a double click. When none helped, what the
// desktop looks like is printed.
bool Repeat(const std::function<void(int aside)>& click, const std::function<bool()>& condition);
void PressKey(WORD key, bool withCtrl = false);
void HoldKey(WORD key, bool down);
// Gives a key to one window, whichever has the focus.
void PressKeyIn(HWND window, WORD key);
// Gives a click to one window, wherever the pointer is.
void ClickIn(HWND window, Point at);
// Writes into a text box.
void TypeIn(HWND box, const std::string& text);
std::string TextOf(HWND window);
// A message box or dialog that is shown.
// Null when none is shown within the bound.
HWND WaitForDialog(const char* caption);
// Puts the pointer where it hovers over nothing.
void ParkPointer();

}  // namespace desktop
