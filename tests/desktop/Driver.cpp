#include "desktop/Driver.h"

#include <shellapi.h>

#include <algorithm>
#include <cstdio>

namespace desktop {

namespace {

constexpr const char* kSection = "Software\\Morvell\\Kestrum2";

void SendMouse(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

void SendKey(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
    SendInput(1, &input, sizeof input);
}

// The window of the same thread that has the mouse.
HWND CaptureOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndCapture;
}

std::string Describe(HWND window) {
    char className[64] = "", caption[64] = "";
    GetClassNameA(window, className, sizeof className);
    GetWindowTextA(window, caption, sizeof caption);
    return std::string(className) + " \"" + caption + '"';
}

// Why a gesture may have had no effect.
void PrintDesktop() {
    POINT at{};
    GetCursorPos(&at);
    std::printf("pointer at %ld, %ld over %s; in front: %s\n", at.x, at.y, Describe(WindowFromPoint(at)).c_str(),
                Describe(GetForegroundWindow()).c_str());
}

// The window of a process that owns its icon in the notification area.
HWND TrayIconOwner(DWORD process) {
    HWND owner = nullptr;
    for (HWND top = nullptr; (top = FindWindowExA(nullptr, top, nullptr, nullptr)) != nullptr;) {
        DWORD id = 0;
        GetWindowThreadProcessId(top, &id);
        if (id == process) owner = FindWindowExA(top, nullptr, "P2", nullptr);
        if (owner != nullptr) break;
    }
    return owner;
}

// Moves the pointer and waits until it stays there: the display server reports each move once more and late, and a
// report from before can put the pointer back, above all when a window comes or goes under it. Then it is moved
// anew. On a busy machine that can still happen a moment later, so gestures are checked and repeated.
void MovePointer(Point screen) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        SetCursorPos(screen.x, screen.y);
        int inPlace = 0;
        const auto stays = [&] {
            POINT at{};
            GetCursorPos(&at);
            inPlace = at.x == screen.x && at.y == screen.y ? inPlace + 1 : 0;
            return inPlace == 5;
        };
        if (WaitFor(stays, 200)) break;
    }
    SendMouse(MOUSEEVENTF_MOVE);  // SetCursorPos alone tells the window under the pointer nothing
}

}  // namespace

bool WaitFor(const std::function<bool()>& condition, DWORD milliseconds) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > milliseconds) return false;
        Sleep(10);
    }
    return true;
}

std::string& ProductFolder() {
    static std::string folder;
    return folder;
}

std::string OwnFolder() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string text = path;
    return text.substr(0, text.rfind('\\') + 1);
}

std::string ReadWholeFile(const std::string& path) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    HANDLE file = INVALID_HANDLE_VALUE;
    WaitFor([&] {
        file = CreateFileA(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr);
        return file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_SHARING_VIOLATION;
    });
    std::string content;
    if (file == INVALID_HANDLE_VALUE) return content;
    char buffer[4096];
    for (DWORD count = 0; ReadFile(file, buffer, sizeof buffer, &count, nullptr) && count > 0;) {
        content.append(buffer, count);
    }
    CloseHandle(file);
    return content;
}

void WriteWholeFile(const std::string& path, const std::string& content) {
    if (std::FILE* file = std::fopen(path.c_str(), "wb")) {
        std::fwrite(content.data(), 1, content.size(), file);
        std::fclose(file);
    }
}

std::map<std::string, std::size_t> FileSizes(const std::string& folder) {
    std::map<std::string, std::size_t> sizes;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA((folder + "*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return sizes;
    do {
        sizes[found.cFileName] = found.nFileSizeLow;
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return sizes;
}

bool FileBecomes(const std::string& path, const std::string& content) {
    const std::size_t split = path.rfind('\\') + 1;
    return WaitFor([&] {
        return FileSizes(path.substr(0, split))[path.substr(split)] == content.size() &&
               ReadWholeFile(path) == content;
    });
}

std::optional<std::string> ReadSetting(const std::string& key) {
    HKEY section;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kSection, 0, KEY_READ, &section) != ERROR_SUCCESS) return std::nullopt;
    char text[512] = "";
    DWORD type = 0, size = sizeof text - 1;
    const LSTATUS result =
        RegQueryValueExA(section, key.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
    RegCloseKey(section);
    if (result != ERROR_SUCCESS || type != REG_SZ) return std::nullopt;
    return text;
}

void WriteSetting(const std::string& key, const std::string& value) {
    HKEY section;
    RegCreateKeyExA(HKEY_CURRENT_USER, kSection, 0, nullptr, 0, KEY_WRITE, nullptr, &section, nullptr);
    RegSetValueExA(section, key.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                   static_cast<DWORD>(value.size() + 1));
    RegCloseKey(section);
}

void DeleteSettings() {
    RegDeleteKeyA(HKEY_CURRENT_USER, kSection);
}

Process::Process(const std::string& commandLine) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    std::string text = commandLine;
    if (!CreateProcessA(nullptr, text.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &info_)) {
        std::printf("cannot start %s: error %lu\n", commandLine.c_str(), GetLastError());
    }
}

Process::Process(HWND window) {
    GetWindowThreadProcessId(window, &info_.dwProcessId);
    info_.hProcess = OpenProcess(PROCESS_ALL_ACCESS, FALSE, info_.dwProcessId);
}

Process::~Process() {
    Kill();
    CloseHandle(info_.hThread);
    CloseHandle(info_.hProcess);
}

bool Process::Running() const {
    return WaitForSingleObject(info_.hProcess, 0) == WAIT_TIMEOUT;
}

bool Process::WaitForEnd() const {
    return WaitForSingleObject(info_.hProcess, kBound) == WAIT_OBJECT_0;
}

// The shell may keep the icon of a killed program for long, and shows its balloon, ten seconds each, where the next
// test clicks.
void Process::Kill() {
    const HWND iconOwner = TrayIconOwner(Id());
    TerminateProcess(info_.hProcess, 99);
    WaitForEnd();
    if (iconOwner != nullptr) RemoveTrayIcon(iconOwner);
}

DWORD_PTR Process::Affinity() const {
    DWORD_PTR mask = 0, system = 0;
    return GetProcessAffinityMask(info_.hProcess, &mask, &system) ? mask : 0;
}

DWORD Process::PriorityClass() const {
    return GetPriorityClass(info_.hProcess);
}

Picture::Picture(HWND window, const Rect& area) : width_(area.width()), height_(area.height()) {
    pixels_.resize(static_cast<std::size_t>(width_ * height_));
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width_;
    info.bmiHeader.biHeight = -height_;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    // Another process's child window gives nothing, but its top-level window does.
    HWND top = window != nullptr ? GetAncestor(window, GA_ROOT) : nullptr;
    POINT origin{area.left, area.top};
    if (top != nullptr) MapWindowPoints(window, top, &origin, 1);
    HDC source = GetDC(top);
    HDC memory = CreateCompatibleDC(source);
    HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width_, height_, source, origin.x, origin.y, SRCCOPY);
    GdiFlush();
    const auto* first = static_cast<const std::uint32_t*>(bits);
    std::transform(first, first + pixels_.size(), pixels_.begin(),
                   [](std::uint32_t pixel) { return pixel & 0xFFFFFF; });
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(top, source);
}

std::uint32_t Picture::Background() const {
    std::map<std::uint32_t, int> counts;
    for (const std::uint32_t pixel : pixels_) ++counts[pixel];
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
}

bool Picture::Plain() const {
    return std::all_of(pixels_.begin(), pixels_.end(), [this](std::uint32_t pixel) { return pixel == pixels_[0]; });
}

void RemoveTrayIcon(HWND owner) {
    NOTIFYICONDATAA record{};
    record.cbSize = NOTIFYICONDATAA_V2_SIZE;
    record.hWnd = owner;
    record.uID = 1;
    Shell_NotifyIconA(NIM_DELETE, &record);
}

HWND WaitForWindow(const Process& process, const char* className, const char* caption) {
    HWND found = nullptr;
    WaitFor([&] {
        found = FindWindowA(className, caption);
        DWORD owner = 0;
        if (found != nullptr) GetWindowThreadProcessId(found, &owner);
        if (owner != process.Id() || !IsWindowVisible(found)) found = nullptr;
        return found != nullptr || !process.Running();
    });
    return found;
}

HWND Child(HWND parent, const char* className, const char* text) {
    HWND child = nullptr;
    while ((child = FindWindowExA(parent, child, className, nullptr)) != nullptr) {
        if (TextOf(child) == text) break;
    }
    return child;
}

Rect ScreenRect(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
            static_cast<int>(rect.bottom)};
}

Rect ClientRect(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    return {0, 0, static_cast<int>(rect.right), static_cast<int>(rect.bottom)};
}

Point ToScreen(HWND window, Point at) {
    POINT point{at.x, at.y};
    ClientToScreen(window, &point);
    return {static_cast<int>(point.x), static_cast<int>(point.y)};
}

void Click(HWND window, Point at) {
    MovePointer(ToScreen(window, at));
    SendMouse(MOUSEEVENTF_LEFTDOWN);
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void ClickScreen(Point at, MouseKey key, bool withCtrl) {
    static constexpr DWORD kDown[] = {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_MIDDLEDOWN};
    static constexpr DWORD kUp[] = {MOUSEEVENTF_LEFTUP, MOUSEEVENTF_RIGHTUP, MOUSEEVENTF_MIDDLEUP};
    MovePointer(at);
    if (withCtrl) SendKey(VK_CONTROL, false);
    SendMouse(kDown[static_cast<int>(key)]);
    SendMouse(kUp[static_cast<int>(key)]);
    if (withCtrl) SendKey(VK_CONTROL, true);
}

bool Drag(HWND window, const std::function<Point()>& grip, Point end, const std::function<bool()>& arrived) {
    for (int attempt = 0; attempt < 5 && !arrived(); ++attempt) {
        MovePointer(grip());
        SendMouse(MOUSEEVENTF_LEFTDOWN);
        WaitFor([&] { return CaptureOf(window) == window; }, 2000);
        MovePointer(end);
        WaitFor(arrived, 2000);
        SendMouse(MOUSEEVENTF_LEFTUP);
        WaitFor([&] { return CaptureOf(window) == nullptr; }, 2000);
        MovePointer({2, 2});
    }
    return arrived();
}

bool Repeat(const std::function<void(int aside)>& click, const std::function<bool()>& condition) {
    for (int attempt = 0; attempt < 6; ++attempt) {
        click(attempt % 2 * 12);
        ParkPointer();
        if (WaitFor(condition, 2000)) return true;
    }
    PrintDesktop();
    return false;
}

void PressKey(WORD key, bool withCtrl) {
    if (withCtrl) SendKey(VK_CONTROL, false);
    SendKey(key, false);
    SendKey(key, true);
    if (withCtrl) SendKey(VK_CONTROL, true);
}

void HoldKey(WORD key, bool down) {
    SendKey(key, !down);
}

void PressKeyIn(HWND window, WORD key) {
    PostMessageA(window, WM_KEYDOWN, key, 0);
    PostMessageA(window, WM_KEYUP, key, 0);
}

void ClickIn(HWND window, Point at) {
    PostMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    PostMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
}

void TypeIn(HWND box, const std::string& text) {
    for (const char c : text) PostMessageA(box, WM_CHAR, static_cast<unsigned char>(c), 0);
}

std::string TextOf(HWND window) {
    char text[256] = "";
    SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));  // GetWindowText can't see it
    return text;
}

HWND WaitForDialog(const char* caption) {
    HWND dialog = nullptr;
    const bool shown = WaitFor([&] {
        dialog = FindWindowA("#32770", caption);
        return dialog != nullptr && IsWindowVisible(dialog);
    });
    return shown ? dialog : nullptr;
}

void ParkPointer() {
    MovePointer({2, 2});
}

}  // namespace desktop
