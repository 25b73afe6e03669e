// One run of Kestrum 2 in a folder of its own, with its windows.
#pragma once

#include <memory>

#include "controls/UcListGeometry.h"
#include "desktop/Driver.h"

namespace desktop {

inline constexpr const char* kProfileHeader = "[Kestrum 2 - Morvell Software 2010]\r\n";

// A folder with a copy of the program and of Target.exe, and settings as at the very first start.
class Installation {
public:
    Installation();
    const std::string& Folder() const { return folder_; }  // with a trailing "\"
    std::string Target() const { return folder_ + "Target.exe"; }
    std::string ProfilePath(int number = 1) const { return folder_ + "My Favs " + std::to_string(number); }
    // Adds Kestrum Jr.
    void AddJr() const;
    // Adds a second program, a copy of Target.exe under another name; gives its path.
    std::string AddProgram(const std::string& name) const;

private:
    std::string folder_;
};

// Two programs that stand first in the list of processes of a program that is started after them.
struct FirstTwo {
    explicit FirstTwo(const Installation& installation)
        : first(installation.AddProgram("Aaa.exe")), second(installation.AddProgram("Aab.exe")) {
        for (const Process* each : {&first, &second}) each->WaitUntilIdle();
    }
    Process first, second;
};

// A line of a profile file.
std::string FavoriteLine(const std::string& affinity, const std::string& priority, const std::string& path,
                         const std::string& param = "");

// The process gets affinity and priority class within what a user would call broken; the time it took is printed.
bool BecomesSet(const Process& target, DWORD_PTR affinity, DWORD priorityClass);

// A list control, looked at from outside.
class List {
public:
    List() = default;
    explicit List(HWND window) : window_(window) {}
    HWND Window() const { return window_; }
    Rect Row(int slot) const;       // client pixels, left part of the visible row
    int VisibleRows() const;        // rows that fit
    bool HasText(int slot) const;   // something is written in the row
    bool Selected(int slot) const;  // its background is not that of the list
    Picture Header() const;
    // The line at the right edge of the first column's header cell, client pixels.
    int FirstColumnEdge() const;
    // Rows that show something, top to bottom, without the columns whose values change by themselves.
    std::vector<Picture> Rows(int width) const;
    // Clicks into the row until it is selected.
    bool ClickRow(int slot) const;
    // Makes the first two rows the selected ones.
    bool SelectFirstTwo() const;
    // One click into the row, so many pixels beside its name.
    void ClickRowWith(MouseKey key, int slot, int aside, bool withCtrl = false) const;
    void ClickHeader(int x) const { Click(window_, {x, 10}); }

private:
    controls::UcListLayout Layout() const;
    HWND window_ = nullptr;
};

// The program, running with its window shown.
class Session {
public:
    explicit Session(const Installation& installation);
    bool Started() const { return main_ != nullptr; }
    HWND Main() const { return main_; }
    const List& Processes() const { return processes_; }
    const List& Favorites() const { return favorites_; }
    HWND Splitter() const { return splitter_; }
    Picture ToolBar1Button(int button) const;
    // Clicks a check button of ToolBar1 until it looks different than before.
    bool ToggleToolBar1(int button) const;
    void ClickToolBar1(int button) const;
    void ClickToolBar2(int button,
                       int aside) const;  // `aside`: pixels beside the first click, against double clicks
    // The same without the pointer.
    void PressToolBar1(int button) const;
    void PressToolBar2(int button) const;
    bool Running() const { return process_->Running(); }
    const Process& Program() const { return *process_; }
    bool End();  // ends the program as log-off does; false when it doesn't end
    // Waits until the program, which was asked to, has ended.
    bool WaitForEnd() const { return process_->WaitForEnd(); }
    void ClickCloseBox() const;
    void Kill() { process_->Kill(); }

private:
    std::unique_ptr<Process> process_;
    HWND main_ = nullptr;  // nullptr when the window or one of its parts is missing
    HWND toolBar1_ = nullptr;
    HWND toolBar2_ = nullptr;
    HWND splitter_ = nullptr;
    List processes_;
    List favorites_;
};

}  // namespace desktop
