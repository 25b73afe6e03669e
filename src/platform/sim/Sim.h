// The simulated machine, seen from tests: a small deterministic computer behind the same headers as Windows.
// Tests set it up, drive it, inject faults and look at what the program did to it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Canvas.h"
#include "platform/Event.h"
#include "platform/Menu.h"
#include "platform/OtherWindows.h"
#include "platform/Process.h"
#include "platform/Store.h"
#include "platform/Tray.h"
#include "platform/Window.h"

namespace platform::sim {

// Everything back to a fresh machine: 4 processors, the idle process (id 0), the system process (id 4), this
// program (id 100, "C:\Kestrum\Kestrum2.exe", whose file exists), Windows directory "C:\WINDOWS", screen 1280 x 800
// with a work area of 1280 x 770, code page UTF-8, no settings. Open windows are forgotten: destroy them first.
void reset();

// ---- processes ----
struct Process {
    ProcessId id = 0;  // 0 in addProcess: the next free multiple of 4
    std::string path;  // as moduleFileName gives it
    std::uint32_t priorityClass = 0x20;
    std::uint32_t affinityMask = 0xF;
    std::uint64_t creation = 0;  // 0 in addProcess: now
    std::uint64_t kernel = 0;    // 100-ns units
    std::uint64_t user = 0;
    std::uint64_t workingSet = 1 << 20;  // bytes
    std::uint32_t deniedRights = 0;      // opening with any of these bits fails
    double load = 0;                     // processors used while the clock advances (1.0 = one whole processor)
    std::uint32_t timesAge = 0;          // milliseconds by which processTimes is behind, as it may be under Wine
    bool vanishAfterListing = false;     // ends as soon as it has been enumerated once
};
ProcessId addProcess(Process process);  // its image file is created too
void endProcess(ProcessId id);
Process* findProcess(ProcessId id);          // nullptr when it is gone; valid until the next add or end
std::vector<std::uint32_t> accessesAsked();  // rights of every openProcess since reset or clearLog, in order
void setProcessorCount(int count);
void failEnumeration(bool fail);
// The processors are idle as far as the processes' loads leave them; systemIdleTime counts it.
void failSystemFigures(bool fail);  // processors, time of day, idle time and memory are refused
void setPhysicalMemory(std::uint64_t total, std::uint64_t available);  // bytes; 8 GB and 4 GB at first
void putMachineText(const std::string& key, const std::string& name, const std::string& value);
void putMachineNumber(const std::string& key, const std::string& name, std::uint32_t value);

void setCommandLine(const std::string& text);  // what commandLine gives; empty at first

// ---- clock ----
void advance(std::uint32_t milliseconds);  // moves the clock without running anything; loads use processor time
void run(std::uint32_t milliseconds);  // moves the clock, firing due timers and painting as the message loop would
std::uint64_t nowMilliseconds();
void refuseTimers(bool refuse);                             // startTimer gives nothing
void setPerformanceFrequency(std::int64_t ticksPerSecond);  // 0: no counter

// ---- files, settings ----
void putFile(const std::string& path, std::string content);
std::optional<std::string> file(const std::string& path);
void putFolder(const std::string& path);
std::vector<std::string> allFiles();
// The file is there, but reading it fails: another program holds it, or the user has no right to it.
void setUnreadable(const std::string& path, bool unreadable);
// Another program holds the file from now on: it can be read, but not deleted, and nothing takes its place.
void holdFile(const std::string& path);
// A file or folder counts as a link from now on. What it holds is its own all the same: nothing is followed.
void setLink(const std::string& path);
void setReadOnlyFolder(const std::string& folder, bool readOnly);
void setDiskSpace(std::optional<std::size_t> bytes);  // writing beyond it fails after writing what fits
// Fails every file operation (write, move, delete) after `count` more of them, as if the program was killed there.
void stopFilesAfter(std::optional<int> count);
void putSetting(const std::string& section, const std::string& key, const std::string& value);
std::optional<std::string> setting(const std::string& section, const std::string& key);
void putBinarySetting(const std::string& section, const std::string& key);  // a value that is not text

// ---- programs that start with the user's session ----
// The bytes of an entry as they are stored: without the NUL that ends every text there.
std::optional<std::string> runEntry(const std::string& name);
void putRunEntry(const std::string& name, const std::string& bytes);
void refuseRunEntries(bool refuse);  // neither writing nor deleting works

// ---- windows and input ----
Window* findWindow(const std::string& title);  // by caption or instance name
std::vector<Window*> topLevelWindows();
// The shown controls directly inside a window, in the order in which Tab visits them.
std::vector<Window*> controlsOf(const Window& window);
bool isTabStop(const Window& control);  // Tab comes to it: it is a stop, and enabled
struct Translucency {
    std::uint8_t alpha = 255;
    std::optional<Color> hole;
};
Translucency translucency(const Window& window);  // as setTranslucency left it
void setPointer(Window& window, Point at);        // moves the pointer and sends the move (and leave) events
void mouseDown(Window& window, Point at, MouseButton button = MouseButton::Left, Modifiers modifiers = {});
void mouseUp(Window& window, Point at, MouseButton button = MouseButton::Left, Modifiers modifiers = {});
void click(Window& window, Point at, MouseButton button = MouseButton::Left, Modifiers modifiers = {});
// The user's hand on the screen: whichever window is uppermost there gets it, or the one that holds the mouse. A
// click makes that window active first.
void movePointer(Point screen);
void clickOnScreen(Point screen);
void doubleClick(Window& window, Point at);  // down, up, double click, up
void wheel(Window& window, Point at, int delta);
void keyDown(std::uint16_t code, Modifiers modifiers = {});  // to the focused window; Tab moves the focus
void keyUp(std::uint16_t code, Modifiers modifiers = {});
void pressKey(std::uint16_t code, Modifiers modifiers = {});  // down and up
// A key is down for keyDown of Keys.h, whichever program has the focus; no window is told. Otherwise a key is down
// from keyDown to keyUp, and modifiers that an event is sent with while it is told. Every event has the modifiers
// that are down.
void holdKey(std::uint16_t code);
void releaseKey(std::uint16_t code);
// The user drags the window of the next dragAsByCaption that far, for half a second, and lets the button go;
// without it the button is let go where it went down, at once.
void whenDragged(Point delta);
void dropFiles(Window& window, const std::vector<std::string>& paths);  // refused unless acceptFiles was called
void loseCapture();                                                     // another window takes it
void closeBox(Window& window);
void endSession();
void restartShell();                                 // the tray forgets its icons; onTaskbarCreated follows
void setSystemColor(SysColor which, Color color);    // onSystemColors follows, for every window
void setHighContrast(bool on);                       // likewise; the colours stay
void dragFrame(Window& window, const Rect& bounds);  // user resize: minimumSize is kept to
Window* focusedWindow();
Pointer pointerShape();                      // what the user sees: busy while a BusyPointer lives
void setScreens(std::vector<Rect> screens);  // work area of each: without its lowest 30 rows
// Runs as soon as a dialog runs modally (once, in order): it clicks or types and must end the dialog.
// A modal dialog without a script fails the process with a message.
void whenModal(std::function<void(Window& dialog)> script);
// Answers the next chooseFile; without one it is cancelled.
void whenChoosingFile(std::optional<std::string> answer);

// Answers the next showMenu with an id (0: dismissed) that the menu must offer enabled; without a script it is
// dismissed.
void whenMenu(std::function<int(const std::vector<MenuItem>& items)> script);
void trayEvent(TrayEvent event);  // the user at the first icon of the notification area; there must be one
bool hasDropShadow(const Window& window);

// ---- other programs ----
enum class Others { Allowed, Denied };
void holdMutex(const std::string& name, Others others = Others::Allowed);  // another program made it, and keeps it
// The program runs as administrator and other programs do not: from now on showNormalAsync, sendText and postClose
// are theirs, and refused by windows that do not accept them.
void setElevated(bool elevated);
// A top-level window of another program, above all others; gives its number. topLevelWindowNumbers lists it.
std::uintptr_t addOtherWindow(const WindowFacts& facts);
void setLocalBias(int minutes);              // 0 at first
std::vector<std::uintptr_t> closesPosted();  // windows handed to postClose; an own window gets its onClose
void typeText(const std::string& text);      // into the text box that has the focus, in place of its selection

void pasteText(const std::string& text);  // likewise; of several lines the box takes the first

// ---- balloon tips ----
struct Tip {
    std::string target;  // title of the window explained
    std::string title, text;
    int autoPop = 0, initial = 0;  // milliseconds
};
std::vector<Tip> tips();       // of the tooltip windows that exist, whether or not the pointer rests there
void failTooltips(bool fail);  // createTooltip gives nothing

// ---- what was drawn ----
struct Drawn {
    std::string what;  // "fill", "frame", "line", "pixel", "gradient", "edge", "focus", "text", "icon", "picture",
                       // "masked", "disabled"
    Rect area;
    Color color = 0;
    std::string text;
    Font font = Font::Normal;
    unsigned format = 0;
    std::uintptr_t object = 0;  // icon or picture
    Point source;
};
// Paints the window's invalid area (or all of it, with `everything`) and gives the operations of that paint;
// operations that lie wholly outside the area painted are dropped.
std::vector<Drawn> paint(Window& window, bool everything = false);
constexpr Color kUnpainted = 0xFFFFFFFF;  // a pixel that the paint should have covered and did not
Color pixelAt(Window& window, Point at);  // what the last paints left; text leaves no pixels
// All that the last paints left, row by row, to compare with one another: text, icons and focus rectangles show
// too.
std::vector<Color> pixels(const Window& window);
Rect invalidArea(const Window& window);  // bounding box; empty when nothing needs painting
std::uint64_t drawCount();               // drawing operations since reset
// Text is 6 pixels a byte (bold 7) and 13 high.

// What loadPictureResource gives for an id: `pixels` row by row, grey when empty. Other ids give 288 x 24 grey.
void setPictureResource(int id, Size size, std::vector<Color> pixels = {});

// ---- tray, sounds, log ----
struct TrayIcon {
    std::uint32_t id = 0;
    std::uintptr_t icon = 0;
    std::string tip;
    // The shell's own copy of the icon, which lives on when the icon is destroyed.
    std::string source;  // "#1" for resource 1, a path for an extracted one, "" for one made from a picture
    Size size;
    std::vector<Color> pixels;  // row by row, kUnpainted where transparent; only of icons made from a picture
};
std::vector<TrayIcon> trayIcons();
struct Balloon {
    std::string title, text;
    BalloonIcon icon = BalloonIcon::None;
};
void failIcons(bool fail);        // iconFromPicture and loadIconResource give nothing
std::vector<Balloon> balloons();  // every balloon since reset
void setShellRunning(bool running);
std::vector<std::string> sounds();
std::vector<std::string> openedDocuments();  // paths handed to openDocument
struct Launch {
    std::string file;
    std::optional<std::string> parameters;
    std::string folder;
};
std::vector<Launch> launches();  // handed to launch; one whose file exists in its folder is no process by that
std::vector<std::string> log();  // operations in order, as "trayAdd", "storeWrite AutoSet", ...
void clearLog();
// Clears the log and forgets all else that was recorded, and answers for menus and dialogs that never came, with
// which a run of days would fill the memory.
void forget();
int quitCode();                  // of postQuit; -1 when it was not called
void failMessages(int count);    // so many messages in a row cannot be got, then others come again
void quitFromOutside(int code);  // the next message that is got tells the program to quit, though nobody here did
// The program is started once more: that the one before was told to quit counts no longer.
void startAgain();

// Handles of every kind that are open: processes, tokens, timers, icons, pictures, windows, mutexes, tooltips.
int openHandles();
int openHandles(const std::string& kind);  // "process", "token", "timer", "icon", "picture", "window", "mutex",
                                           // "tooltip"

}  // namespace platform::sim
