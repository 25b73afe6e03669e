#include "endurance/State.h"

#include <algorithm>

#include "desktop/Session.h"

namespace endurance {

using settings::Key;

namespace {

constexpr Key kEdited[] = {Key::ShowTips,   Key::LaunchFav,  Key::MsgBeep, Key::ChkCPUGraphTop, Key::CpuToolTips,
                           Key::EdgeDetect, Key::SeeThruCPU, Key::AutoSet, Key::ReEnforce,      Key::ShowFileTips};

bool IsKept(const std::string& file) {
    if (file == kFilter) return true;
    for (int number = 1; number <= kProfiles; ++number) {
        if (file == ProfileName(number)) return true;
    }
    return false;
}

std::map<std::string, std::size_t> KeptSizes(const std::string& folder) {
    auto sizes = desktop::FileSizes(folder);
    std::erase_if(sizes, [](const auto& file) { return !IsKept(file.first); });
    return sizes;
}

std::map<std::string, std::string> ReadSettings() {
    std::map<std::string, std::string> values;
    for (const Key key : kEdited) {
        const settings::KeyInfo& info = settings::InfoOf(key);
        values[info.name] = desktop::ReadSetting(info.name).value_or(info.fallback);
    }
    return values;
}

std::string DifferenceOf(const std::map<std::string, std::string>& found,
                         const std::map<std::string, std::string>& expected) {
    std::string text;
    for (const auto& [name, content] : expected) {
        const auto at = found.find(name);
        if (at == found.end()) {
            text += name + " is missing\n";
        } else if (at->second != content) {
            text += name + " is\n" + at->second + "\ninstead of\n" + content + "\n";
        }
    }
    for (const auto& [name, content] : found) {
        if (!expected.contains(name)) text += name + " is there:\n" + content + "\n";
    }
    return text;
}

}  // namespace

std::string ProfileName(int number) {
    return "My Favs " + std::to_string(number);
}

std::vector<std::string> State::Lines(const std::string& file) const {
    std::vector<std::string> lines;
    const auto at = files.find(file);
    if (at == files.end()) return lines;
    std::string_view rest = at->second;
    for (std::size_t end; (end = rest.find("\r\n")) != std::string_view::npos; rest.remove_prefix(end + 2)) {
        lines.emplace_back(rest.substr(0, end));
    }
    if (file != kFilter && !lines.empty()) lines.erase(lines.begin());
    return lines;
}

void State::SetLines(const std::string& file, const std::vector<std::string>& lines) {
    files.erase(file);
    if (lines.empty()) return;
    std::string& content = files[file];
    if (file != kFilter) content = desktop::kProfileHeader;
    for (const std::string& line : lines) content += line + "\r\n";
}

bool State::Has(const std::string& file, const std::string& path) const {
    const auto at = files.find(file);
    return at != files.end() && at->second.find(path) != std::string::npos;
}

std::span<const Key> EditedKeys() {
    return kEdited;
}

std::string Toggled(Key key, const std::string& value) {
    if (settings::InfoOf(key).type == settings::KeyType::Bool) return value == "True" ? "False" : "True";
    return value == "1" ? "0" : "1";
}

State ReadState(const std::string& folder) {
    State state;
    for (const auto& [name, size] : KeptSizes(folder)) state.files[name] = desktop::ReadWholeFile(folder + name);
    state.settings = ReadSettings();
    return state;
}

void WriteState(const std::string& folder, const State& state) {
    for (const auto& [name, size] : KeptSizes(folder)) DeleteFileA((folder + name).c_str());
    for (const auto& [name, content] : state.files) desktop::WriteWholeFile(folder + name, content);
    for (const auto& [name, value] : state.settings) desktop::WriteSetting(name, value);
}

bool StateBecomes(const std::string& folder, const State& state) {
    std::map<std::string, std::size_t> sizes;
    for (const auto& [name, content] : state.files) sizes[name] = content.size();
    const auto looksSo = [&] { return KeptSizes(folder) == sizes && ReadSettings() == state.settings; };
    // A file that is just being replaced cannot be read.
    return desktop::WaitFor([&] { return looksSo() && ReadState(folder) == state; });
}

std::string Difference(const State& found, const State& expected) {
    return DifferenceOf(found.files, expected.files) + DifferenceOf(found.settings, expected.settings);
}

}  // namespace endurance
