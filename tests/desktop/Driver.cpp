#include "desktop/Driver.h"

#include <algorithm>
#include <cstdio>
#include <map>

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

void MovePointer(HWND window, Point at) {
    POINT point{at.x, at.y};
    ClientToScreen(window, &point);
    SetCursorPos(point.x, point.y);
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
    std::string content;
    if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
        char buffer[4096];
        while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file)) content.append(buffer, count);
        std::fclose(file);
    }
    return content;
}

void WriteWholeFile(const std::string& path, const std::string& content) {
    if (std::FILE* file = std::fopen(path.c_str(), "wb")) {
        std::fwrite(content.data(), 1, content.size(), file);
        std::fclose(file);
    }
}

std::vector<std::string> FileNames(const std::string& folder) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA((folder + "*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        names.push_back(found.cFileName);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
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

void Process::Kill() {
    TerminateProcess(info_.hProcess, 99);
    WaitForEnd();
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
    HDC source = GetDC(window);
    HDC memory = CreateCompatibleDC(source);
    HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width_, height_, source, area.left, area.top, SRCCOPY);
    GdiFlush();
    const auto* first = static_cast<const std::uint32_t*>(bits);
    std::transform(first, first + pixels_.size(), pixels_.begin(),
                   [](std::uint32_t pixel) { return pixel & 0xFFFFFF; });
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, source);
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
    return FindWindowExA(parent, nullptr, className, text);
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

void Click(HWND window, Point at) {
    MovePointer(window, at);
    SendMouse(MOUSEEVENTF_LEFTDOWN);
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void Drag(HWND window, Point from, Point to) {
    MovePointer(window, {(from.x + 2 * to.x) / 3, from.y});  // the way there shows the pointer shape in between
    MovePointer(window, from);
    SendMouse(MOUSEEVENTF_LEFTDOWN);
    constexpr int kSteps = 6;
    for (int step = 1; step <= kSteps; ++step) {
        MovePointer(window, {from.x + (to.x - from.x) * step / kSteps, from.y + (to.y - from.y) * step / kSteps});
    }
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void PressKey(WORD key, bool withCtrl) {
    if (withCtrl) SendKey(VK_CONTROL, false);
    SendKey(key, false);
    SendKey(key, true);
    if (withCtrl) SendKey(VK_CONTROL, true);
}

void ParkPointer() {
    SetCursorPos(2, 2);
    SendMouse(MOUSEEVENTF_MOVE);
}

}  // namespace desktop
