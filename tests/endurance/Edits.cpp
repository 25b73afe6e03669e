#include "endurance/Edits.h"

#include <algorithm>

#include "desktop/Menu.h"
#include "settings/OptionsTable.h"

namespace endurance {

using desktop::Child;
using desktop::List;
using desktop::PressKeyIn;
using desktop::WaitFor;
using settings::Key;

namespace {

constexpr int kOptions = 2, kAutoSet = 6, kEnforce = 7;                  // buttons of ToolBar1
constexpr int kAddToFavorites = 0, kAddToFilter = 1, kFilterDialog = 2;  // buttons of ToolBar2
constexpr int kShowFileTips = 4;
constexpr int kCopyTo = 1, kMoveTo = 2;  // items of the favourites menu
constexpr int kParamColumn = 4;
constexpr const char* kOptionsCaption = "Kestrum Options";
constexpr const char* kFilterCaption = "File Filter";
constexpr const char* kQuestion = "Kestrum - Info";

bool Nothing() {
    return true;
}

bool SelectRow(const List& list, int slot) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        const auto row = list.Row(slot);
        desktop::ClickIn(list.Window(), {row.left + 40, row.top + 8});
        if (WaitFor([&] { return list.Selected(slot); }, 1000)) return true;
    }
    return false;
}

// Whoever asks for a dialog again while it is on its way gets the same one.
HWND OpenDialog(const char* caption, const std::function<void()>& ask) {
    ask();
    return desktop::WaitForDialog(caption);
}

bool CloseDialog(const char* caption) {
    const HWND dialog = FindWindowA("#32770", caption);
    PostMessageA(dialog, WM_CLOSE, 0, 0);
    return WaitFor([&] { return !IsWindow(dialog); });
}

HWND BoxOf(const settings::OptionInfo& info) {
    const HWND dialog = FindWindowA("#32770", kOptionsCaption);
    const std::string page = "Framez" + std::to_string(static_cast<int>(info.page));
    return Child(Child(dialog, "Framez", page.c_str()), "GradColorChk", info.caption);
}

std::string PathOf(const std::string& line) {
    std::size_t at = 0;
    for (int column = 0; column < 3; ++column) at = line.find('\t', at) + 1;
    return line.substr(at, line.find('\t', at) - at);
}

// The digits of the processors that a program gets from the system.
std::string UsualAffinity() {
    DWORD_PTR mask = 0, system = 0;
    GetProcessAffinityMask(GetCurrentProcess(), &mask, &system);
    std::string text;
    for (int cpu = 0; cpu < 10; ++cpu) {
        if (mask >> cpu & 1) text += static_cast<char>('0' + cpu);
    }
    return text;
}

}  // namespace

Editor::Editor(const desktop::Installation& installation, const desktop::Session& session, int profile,
               std::vector<std::string> running, const Looks& looks, const State& state, std::mt19937& random)
    : installation_(installation),
      session_(session),
      profile_(ProfileName(profile)),
      running_(std::move(running)),
      looks_(looks),
      state_(state),
      random_(random),
      autoSet_(state.settings.at("AutoSet") == "1"),
      filtering_(state.files.contains(kFilter)) {}

Edit Editor::Next() {
    while (true) {
        std::optional<Edit> edit;
        switch (Random(0, 10)) {
            case 0:
            case 1:
                edit = ChangeParam();
                break;
            case 2:
                edit = RemoveFavorite();
                break;
            case 3:
                edit = AddFavorite();
                break;
            case 4:
                edit = Transfer(false);
                break;
            case 5:
                edit = Transfer(true);
                break;
            case 6:
                edit = AddToFilter();
                break;
            case 7:
                edit = RemoveFromFilter();
                break;
            case 8:
                edit = ToggleOption();
                break;
            case 9:
                edit = ToggleFileTips();
                break;
            default:
                edit = autoSet_ && Random(0, 2) > 0 ? ToggleEnforce() : ToggleAutoSet();
                break;
        }
        if (edit) return *edit;
    }
}

void Editor::Done(const Edit& edit) {
    state_ = edit.steps.back();
    if (edit.what == "Auto Set") autoSet_ = !autoSet_;
    if (!state_.files.contains(kFilter)) filtering_ = false;
}

// ---- favourites ----

std::optional<Edit> Editor::ChangeParam() {
    const auto row = RandomFavorite();
    if (!row) return std::nullopt;
    std::vector<std::string> lines = state_.Lines(profile_);
    std::string& line = lines[static_cast<std::size_t>(*row)];
    const std::size_t start = line.rfind('\t') + 1;
    // Of another length than before, so that the file shows by its size that it is new.
    std::string param =
        std::string(static_cast<std::size_t>(Random(0, 24)), static_cast<char>('a' + Random(0, 25)));
    if (start + param.size() == line.size()) param += '!';
    line = line.substr(0, start) + param;

    const List& list = session_.Favorites();
    const HWND box = FindWindowExA(list.Window(), nullptr, "Edit", nullptr);
    Edit edit{"a parameter", {With(profile_, lines)}};
    edit.begin = [&list, box, param, slot = *row] {
        if (!SelectRow(list, slot)) return false;
        PressKeyIn(list.Window(), VK_F2);
        if (!WaitFor([&] { return IsWindowVisible(box) != FALSE; })) return false;
        if (param.empty()) PressKeyIn(box, VK_DELETE);  // all of it is selected
        desktop::TypeIn(box, param);
        return true;
    };
    edit.finish = [box] { PressKeyIn(box, VK_RETURN); };
    edit.leave = [box] { return WaitFor([&] { return !IsWindowVisible(box); }); };
    return edit;
}

std::optional<Edit> Editor::RemoveFavorite() {
    const auto row = RandomFavorite();
    if (!row) return std::nullopt;
    std::vector<std::string> lines = state_.Lines(profile_);
    lines.erase(lines.begin() + *row);
    Edit edit{"a favourite removed", {With(profile_, lines)}};
    edit.begin = [&list = session_.Favorites(), slot = *row] {
        return SelectRow(list, slot) &&
               OpenDialog(kQuestion, [&] { PressKeyIn(list.Window(), VK_DELETE); }) != nullptr;
    };
    edit.finish = [] { PressKeyIn(FindWindowA("#32770", kQuestion), 'Y'); };
    edit.leave = [] { return WaitFor([] { return FindWindowA("#32770", kQuestion) == nullptr; }); };
    return edit;
}

std::optional<Edit> Editor::AddFavorite() {
    const auto isNew = [this](const std::string& name) {
        return !state_.Has(profile_, installation_.Folder() + name);
    };
    const auto name = RandomProcess(isNew);
    if (!name) return std::nullopt;
    std::vector<std::string> lines = state_.Lines(profile_);
    lines.push_back(*name + '\t' + UsualAffinity() + "\tDefault\t" + installation_.Folder() + *name + '\t');
    std::sort(lines.begin(), lines.end());
    Edit edit{"a favourite added", {With(profile_, lines)}};
    edit.begin = SelectProcess(*name);
    edit.finish = [this] { session_.PressToolBar2(kAddToFavorites); };
    edit.leave = Nothing;
    return edit;
}

std::optional<Edit> Editor::Transfer(bool move) {
    const auto row = RandomFavorite();
    if (!row) return std::nullopt;
    std::vector<std::string> lines = state_.Lines(profile_);
    const std::string line = lines[static_cast<std::size_t>(*row)];
    const int target = Random(1, kProfiles);
    if (ProfileName(target) == profile_ || state_.Has(ProfileName(target), PathOf(line))) return std::nullopt;

    Edit edit{move ? "a favourite moved" : "a favourite copied"};
    std::vector<std::string> there = state_.Lines(ProfileName(target));
    there.push_back(line);
    edit.steps.push_back(With(ProfileName(target), there));
    if (move) {
        lines.erase(lines.begin() + *row);
        edit.steps.push_back(edit.steps.back());
        edit.steps.back().SetLines(profile_, lines);
    }
    edit.begin = [&list = session_.Favorites(), slot = *row, target, move] {
        return SelectRow(list, slot) && desktop::SelectInMenu([&](int) { PressKeyIn(list.Window(), VK_APPS); },
                                                              move ? kMoveTo : kCopyTo, target - 1);
    };
    edit.finish = [] { desktop::PressKey(VK_RETURN); };
    edit.leave = Nothing;
    return edit;
}

// ---- filter ----

std::optional<Edit> Editor::AddToFilter() {
    const auto isNew = [this](const std::string& name) { return !state_.Has(kFilter, name); };
    const auto name = RandomProcess(isNew);
    if (!name) return std::nullopt;
    std::vector<std::string> names = state_.Lines(kFilter);
    names.push_back(*name);
    std::sort(names.begin(), names.end());
    Edit edit{"a name filtered", {With(kFilter, names)}};
    edit.begin = SelectProcess(*name);
    edit.finish = [this] { session_.PressToolBar2(kAddToFilter); };
    edit.leave = Nothing;
    return edit;
}

std::optional<Edit> Editor::RemoveFromFilter() {
    std::vector<std::string> names = state_.Lines(kFilter);
    if (names.empty()) return std::nullopt;
    const int slot = Random(0, static_cast<int>(names.size()) - 1);
    names.erase(names.begin() + slot);
    const auto list = [] { return List(Child(FindWindowA("#32770", kFilterCaption), "UcList1", "UcFilter")); };
    Edit edit{"a name filtered no more", {With(kFilter, names)}};
    edit.begin = [this, list, slot] {
        return OpenDialog(kFilterCaption, [&] { session_.PressToolBar2(kFilterDialog); }) != nullptr &&
               SelectRow(list(), slot);
    };
    edit.finish = [list] { PressKeyIn(list().Window(), VK_DELETE); };
    edit.leave = [] { return CloseDialog(kFilterCaption); };
    return edit;
}

// ---- settings ----

std::optional<Edit> Editor::Toggle(Key key, const std::function<bool()>& begin,
                                   const std::function<void()>& finish) const {
    State after = state_;
    std::string& value = after.settings[settings::InfoOf(key).name];
    value = Toggled(key, value);
    return Edit{settings::InfoOf(key).name, {after}, begin, finish, Nothing};
}

std::optional<Edit> Editor::ToggleOption() {
    std::vector<const settings::OptionInfo*> boxes;
    for (const settings::OptionInfo& info : settings::OptionTable()) {
        const bool edited = std::ranges::find(EditedKeys(), info.key) != EditedKeys().end();
        if (edited && info.kind == settings::OptionKind::Check) boxes.push_back(&info);
    }
    const auto& info = *boxes[static_cast<std::size_t>(Random(0, static_cast<int>(boxes.size()) - 1))];
    auto edit = Toggle(
        info.key,
        [this] { return OpenDialog(kOptionsCaption, [&] { session_.PressToolBar1(kOptions); }) != nullptr; },
        [&info] { PressKeyIn(BoxOf(info), VK_SPACE); });
    edit->leave = [] { return CloseDialog(kOptionsCaption); };
    return edit;
}

// Not the other such button, for the extensions: names are known by their looks.
std::optional<Edit> Editor::ToggleFileTips() {
    return Toggle(Key::ShowFileTips, Nothing, [this] { session_.PressToolBar2(kShowFileTips); });
}

// Kept by nobody; what it is for is the next edit.
std::optional<Edit> Editor::ToggleAutoSet() {
    return Edit{"Auto Set", {state_}, Nothing, [this] { session_.PressToolBar1(kAutoSet); }, Nothing};
}

std::optional<Edit> Editor::ToggleEnforce() {
    return Toggle(Key::ReEnforce, Nothing, [this] { session_.PressToolBar1(kEnforce); });
}

// ---- choosing ----

std::optional<int> Editor::RandomFavorite() {
    const int count = static_cast<int>(state_.Lines(profile_).size());
    if (count == 0) return std::nullopt;
    return Random(0, count - 1);
}

std::vector<std::string> Editor::ShownProcesses() const {
    std::vector<std::string> shown;
    for (const std::string& name : running_) {
        if (!filtering_ || !state_.Has(kFilter, name)) shown.push_back(name);
    }
    return shown;
}

std::optional<std::string> Editor::RandomProcess(const std::function<bool(const std::string& name)>& suits) {
    const std::vector<std::string> shown = ShownProcesses();
    if (shown.empty()) return std::nullopt;
    const std::string& name = shown[static_cast<std::size_t>(Random(0, static_cast<int>(shown.size()) - 1))];
    return suits(name) ? std::optional(name) : std::nullopt;
}

// When its row is where it belongs: a program that has just been started may come into the list a little later.
std::function<bool()> Editor::SelectProcess(const std::string& name) const {
    const std::vector<std::string> shown = ShownProcesses();
    const int slot = static_cast<int>(std::find(shown.begin(), shown.end(), name) - shown.begin());
    return [this, name, slot] {
        const List& list = session_.Processes();
        return WaitFor([&] { return looks_.Shows(list, slot, name); }) && SelectRow(list, slot) &&
               looks_.Shows(list, slot, name);
    };
}

State Editor::With(const std::string& file, const std::vector<std::string>& lines) const {
    State state = state_;
    state.SetLines(file, lines);
    return state;
}

}  // namespace endurance
