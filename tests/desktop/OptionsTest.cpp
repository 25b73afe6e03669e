// The options dialog worked with keys and mouse, and what the registry says of it; the hotkeys it switches on.
#include <doctest/doctest.h>

#include <algorithm>

#include "desktop/Session.h"
#include "settings/OptionsTable.h"

using namespace desktop;
using settings::Option;
using settings::OptionInfo;
using settings::OptionKind;
using settings::OptionPage;

namespace {

constexpr int kOptionsButton = 2;  // of ToolBar1
constexpr int kListBorder = 1;     // of a dropped list
constexpr int kFaceMargin = 6;     // pixels that the face of a list is higher than its rows
constexpr int kScrollArrow = 9;    // above the rows of a list that scrolls
constexpr int kMostTabs = 40;      // more than there are controls
constexpr const char* kRunList = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

// A value of the list of programs that start with Windows, byte for byte.
std::optional<std::string> RunEntry(const char* name) {
    HKEY list;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kRunList, 0, KEY_READ, &list) != ERROR_SUCCESS) return std::nullopt;
    char bytes[512];
    DWORD size = sizeof bytes;
    const LSTATUS result = RegQueryValueExA(list, name, nullptr, nullptr, reinterpret_cast<BYTE*>(bytes), &size);
    RegCloseKey(list);
    if (result != ERROR_SUCCESS) return std::nullopt;
    return std::string(bytes, size);
}

std::string RunCommand(const std::string& command) {
    return command + std::string(2, '\0');
}

bool HasSettings() {
    HKEY section;
    const std::string path = std::string("Software\\") + settings::kSection;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &section) != ERROR_SUCCESS) return false;
    RegCloseKey(section);
    return true;
}

bool Answer(WORD key) {
    const HWND question = WaitForDialog("Kestrum - Info");
    return question != nullptr &&
           Repeat([&](int) { PressKeyIn(question, key); }, [&] { return !IsWindow(question); });
}

const char* ClassOf(OptionKind kind) {
    switch (kind) {
        case OptionKind::Check:
            return "GradColorChk";
        case OptionKind::List:
            return "FlatTinyCombo";
        case OptionKind::Slider:
            return "HorizSlider";
        case OptionKind::Button:
            break;
    }
    return "XPbutn";
}

HWND DroppedList() {
    const HWND list = FindWindowA("FlatTinyComboList", nullptr);
    return list != nullptr && IsWindowVisible(list) ? list : nullptr;
}

class OptionsDialog {
public:
    explicit OptionsDialog(const Session& session) {
        Repeat([&](int) { session.ClickToolBar1(kOptionsButton); },
               [] { return IsWindowVisible(FindWindowA("#32770", "Kestrum Options")); });
        window_ = FindWindowA("#32770", "Kestrum Options");
    }
    HWND Window() const { return window_; }
    HWND Page(OptionPage page) const {
        const std::string name = "Framez" + std::to_string(static_cast<int>(page));
        return page == OptionPage::Below ? window_ : Child(window_, "Framez", name.c_str());
    }
    HWND ControlOf(Option option) const {
        const OptionInfo& info = settings::InfoOf(option);
        const bool captioned = info.kind == OptionKind::Check || info.kind == OptionKind::Button;
        return Child(Page(info.page), ClassOf(info.kind), captioned ? info.caption : info.name);
    }

    bool TurnTo(OptionPage page) const {
        const HWND button = Child(window_, "XPbutn", settings::CaptionOf(page));
        return Repeat(
            [&](int aside) {
                Click(button, {20 + aside, 10});
            },
            [&] { return IsWindowVisible(Page(page)) && Focused() == button; });
    }
    // Goes there with the Tab key.
    bool Focus(HWND control) const {
        for (int tabs = 0; tabs < kMostTabs && Focused() != control; ++tabs) {
            const HWND before = Focused();
            PressKey(VK_TAB);
            WaitFor([&] { return Focused() != before; }, 2000);
        }
        return Focused() == control;
    }
    // With the Tab key and `key`, until the condition holds.
    bool Press(Option option, WORD key, const std::function<bool()>& condition) const {
        if (!Focus(ControlOf(option))) return false;
        PressKey(key);
        return WaitFor(condition);
    }
    // Clicks the control, an entry of its list if it is one, until the condition holds.
    bool ClickAt(Option option, int item, const std::function<bool()>& condition) const {
        const HWND control = ControlOf(option);
        const int middle = ClientRect(control).height() / 2;
        return Repeat(
            [&](int aside) {
                if (DroppedList() == nullptr) Click(control, {6 + aside, middle});
                if (settings::InfoOf(option).kind == OptionKind::List) ClickItem(option, item, aside);
            },
            condition);
    }

private:
    HWND Focused() const {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
        return info.hwndFocus;
    }
    // One of the first entries, which are in sight although the list may scroll.
    void ClickItem(Option option, int item, int aside) const {
        if (!WaitFor([] { return DroppedList() != nullptr; }, 2000)) return;
        const int height = ClientRect(ControlOf(option)).height() - kFaceMargin;
        const Rect list = ScreenRect(DroppedList());
        const int rows = settings::ItemCount(settings::InfoOf(option).items) * height;
        const int top = list.top + kListBorder + (list.height() - 2 * kListBorder < rows ? kScrollArrow : 0);
        ClickScreen({list.left + 10 + aside, top + item * height + height / 2}, MouseKey::Left);
    }

    HWND window_ = nullptr;
};

// What is stored for an option at first, and after it was changed.
struct Expected {
    std::optional<std::string> first, changed;
};

std::optional<std::string> Stored(const OptionInfo& info) {
    if (info.option == Option::ChkStart) return RunEntry("Kestrum2");
    if (info.option == Option::ChkStartJr) return RunEntry("Kestrum_Jr");
    return ReadSetting(settings::InfoOf(info.key).name);
}

Expected ExpectedOf(const OptionInfo& info, const std::string& folder) {
    if (info.option == Option::ChkStart) return {std::nullopt, RunCommand(folder + "Kestrum2.exe")};
    if (info.option == Option::ChkStartJr) return {std::nullopt, RunCommand(folder + "Kestrum_Jr.exe /My Favs 1")};
    const settings::KeyInfo& key = settings::InfoOf(info.key);
    const std::string first = key.fallback;
    if (key.type == settings::KeyType::Bool) return {first, first == "True" ? "False" : "True"};
    if (info.kind == OptionKind::Check) return {first, first == "1" ? "0" : "1"};
    const int index = std::stoi(first);
    return {first, std::to_string(index > 0 ? index - 1 : index + 1)};
}

bool Asks(Option option) {
    return option == Option::ChkShadow || option == Option::CmdHdrW;
}

// Changes the option with keys, and back with the mouse.
void ChangeThereAndBack(const OptionsDialog& dialog, const OptionInfo& info, const std::string& folder) {
    const Expected expected = ExpectedOf(info, folder);
    const bool list = info.kind == OptionKind::List;
    const WORD key = !list ? VK_SPACE : expected.first == "0" ? VK_DOWN : VK_UP;
    CHECK(dialog.Press(info.option, key, [&] { return Stored(info) == expected.changed; }));
    if (Asks(info.option)) CHECK(Answer('N'));
    const int item = list ? std::stoi(*expected.first) : 0;
    CHECK(dialog.ClickAt(info.option, item, [&] { return Stored(info) == expected.first; }));
    if (Asks(info.option)) CHECK(Answer('N'));
}

// The level shows at once and is written when the dialog closes.
void MoveSlider(const OptionsDialog& dialog) {
    const auto shows = [&](const char* level) {
        return Child(dialog.Page(OptionPage::CpuGraphs), "Label", level) != nullptr;
    };
    CHECK(dialog.Press(Option::HScrl, VK_LEFT, [&] { return shows("Translucency: 84%"); }));
    CHECK(
        dialog.ClickAt(Option::HScrl, 0, [&] { return shows("Translucency: 20%") || shows("Translucency: 21%"); }));
}

void PressTotal(const OptionsDialog& dialog) {
    const auto total = [] { return FindWindowA("FrmColorMeter", "CPU usage"); };
    CHECK(dialog.Press(Option::CmdShowTtl, VK_SPACE, [&] { return total() != nullptr; }));
    PostMessageA(total(), WM_CLOSE, 0, 0);
    CHECK(WaitFor([&] { return total() == nullptr; }));
    CHECK(dialog.ClickAt(Option::CmdShowTtl, 0, [&] { return total() != nullptr; }));
}

}  // namespace

TEST_CASE("options: each changed with keys and with the mouse is in the registry at once; all restored at last") {
    const Installation installation;
    installation.AddJr();
    Session session(installation);
    REQUIRE(session.Started());
    OptionsDialog dialog(session);
    REQUIRE(dialog.Window() != nullptr);
    for (const OptionPage page : {OptionPage::Misc, OptionPage::CpuGraphs, OptionPage::StartUp}) {
        REQUIRE(dialog.TurnTo(page));
        for (const OptionInfo& info : settings::OptionTable()) {
            CAPTURE(info.name);
            const bool start = info.option == Option::ChkStart || info.option == Option::ChkStartJr;
            const bool stored = info.key != settings::Key::Count && info.kind != OptionKind::Slider;
            if (info.page == page && (start || stored)) ChangeThereAndBack(dialog, info, installation.Folder());
            if (info.page == page && info.option == Option::HScrl) MoveSlider(dialog);
            if (info.page == page && info.option == Option::CmdShowTtl) PressTotal(dialog);
        }
    }

    // Kestrum Jr. starts with a profile and an interval, and the program itself in place of it.
    CHECK(dialog.ClickAt(Option::CboFavJr, 2, [] { return ReadSetting("FavNameJr") == "2"; }));
    CHECK(dialog.ClickAt(Option::CboEnforceJr, 3, [] { return ReadSetting("JrEnforceInterval") == "3"; }));
    const std::string jr = RunCommand(installation.Folder() + "Kestrum_Jr.exe /My Favs 3 /Enforce 30");
    CHECK(dialog.Press(Option::ChkStartJr, VK_SPACE, [&] { return RunEntry("Kestrum_Jr") == jr; }));
    CHECK(dialog.Press(Option::ChkStart, VK_SPACE, [] { return RunEntry("Kestrum2") && !RunEntry("Kestrum_Jr"); }));

    CHECK(dialog.ClickAt(Option::CmdExit, 0, [&] { return !IsWindow(dialog.Window()); }));
    const std::string level = ReadSetting("TransLevel").value_or("");
    CHECK((level == "20" || level == "21"));

    dialog = OptionsDialog(session);
    REQUIRE(dialog.Window() != nullptr);
    CHECK(dialog.Press(Option::CmdHdrW, VK_SPACE, [] { return WaitForDialog("Kestrum - Info") != nullptr; }));
    CHECK(Answer('N'));
    CHECK(dialog.Press(Option::CmdClean, VK_SPACE, [] { return WaitForDialog("Kestrum - Info") != nullptr; }));
    CHECK(Answer('Y'));
    CHECK(Answer('N'));
    CHECK(session.WaitForEnd());
    CHECK_FALSE(HasSettings());
    CHECK_FALSE(RunEntry("Kestrum2"));
    CHECK_FALSE(RunEntry("Kestrum_Jr"));
}

TEST_CASE("hotkeys: the profile is switched while another program is in front") {
    const Installation installation;
    const std::string line = FavoriteLine("1", "Below", installation.Target());
    WriteWholeFile(installation.ProfilePath(1), kProfileHeader + line);
    WriteWholeFile(installation.ProfilePath(2),
                   kProfileHeader + line + FavoriteLine("2", "High", installation.AddProgram("Other.exe")));
    WriteSetting("Hotkey", "1");
    Session session(installation);
    REQUIRE(session.Started());
    const List& favorites = session.Favorites();
    REQUIRE(WaitFor([&] { return favorites.HasText(0) && !favorites.HasText(1); }));

    const Process target(installation.Target());
    const HWND other = WaitForWindow(target, "KestrumTarget", nullptr);
    REQUIRE(other != nullptr);
    REQUIRE(Repeat(
        [&](int aside) {
            Click(other, {100 + aside, 40});
        },
        [&] { return GetForegroundWindow() == other; }));
    const WORD keys[] = {VK_CONTROL, VK_SHIFT, '2'};
    for (const WORD key : keys) HoldKey(key, true);
    CHECK(WaitFor([&] { return favorites.HasText(1); }));
    for (const WORD key : keys) HoldKey(key, false);
    CHECK(GetForegroundWindow() == other);
    CHECK(session.End());
}
