#include "app/ProcessCommands.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <set>

#include "app/MainToolBars.h"
#include "app/ProcessColumns.h"
#include "controls/PictureMenu.h"
#include "controls/Resources.h"
#include "favorites/ApplyFavorites.h"
#include "platform/CodePage.h"
#include "process/ApplyChanges.h"
#include "process/TerminateProcesses.h"
#include "text/Case.h"

namespace app {

namespace {

// Button of ToolBar2 -> command.
constexpr std::array<int, 7> kToolBar2Commands = {
    command::kAddToFavorites, command::kAddToFilter, command::kFilterDialog, command::kFileExtensions,
    command::kFileTips,       command::kOpenGraph,   command::kTerminate};

// Entries of the priority chooser; the first leaves priorities alone.
constexpr std::array<const char*, 7> kPriorities = {"No Set", "Real", "High", "Above", "Normal", "Below", "Low"};

}  // namespace

void ProcessCommands::FillPriorities() {
    for (const char* name : kPriorities) parts_.priority.AddItem(name);
    parts_.priority.SelectItem(0);
}

void ProcessCommands::ShowSettingsOf(int row) {
    parts_.affinityBoxes.Show(parts_.list.CellText(row, kAffinityColumn));
    const auto found =
        std::find(kPriorities.begin(), kPriorities.end(), parts_.list.CellText(row, kPriorityColumn));
    parts_.priority.SelectItem(found == kPriorities.end() ? 0 : static_cast<int>(found - kPriorities.begin()));
}

void ProcessCommands::ApplyChanges() {
    const int choice = parts_.priority.GetIndex();
    const process::WantedChange wanted{parts_.affinityBoxes.Text(),
                                       choice == 0 ? "Default" : kPriorities[static_cast<std::size_t>(choice)]};
    if (wanted.affinity.empty()) {
        parts_.messages.Tell("Please select at least one CPU core for Affinity.");
        return;
    }
    process::ChangeResult result;
    {
        parts_.toolBar1.SetUnavailable(button::kApplyChanges, true);
        parts_.slots.Stop(Slot::Process);
        const platform::BusyPointer pointer;
        platform::pumpMessages();
        if (!parts_.window.exists()) return;
        std::vector<process::TargetProcess> targets;
        for (const int row : parts_.list.SelectedRows()) {
            targets.push_back({parts_.refresh.ProcessOfRow(row), parts_.list.CellText(row, kAffinityColumn),
                               parts_.list.CellText(row, kPriorityColumn)});
        }
        std::vector<favorites::Favorite> leftAlone;
        if (parts_.favoriteCommands.AutoSetPressed()) leftAlone = parts_.favorites.Rows();
        result = process::ApplyChanges(
            targets, wanted,
            [&leftAlone](const std::string& path) { return favorites::SelectFavMatch(path, leftAlone); },
            parts_.access);
    }
    if (result.Failed()) parts_.messages.Tell(result.Summary());
    if (!parts_.window.exists()) return;
    parts_.refresh.FullRebuild();
    parts_.toolBar1.SetUnavailable(button::kApplyChanges, false);
    parts_.list.focus();
}

void ProcessCommands::InvertAffinity() {
    parts_.affinityBoxes.Invert();
    parts_.list.focus();
}

void ProcessCommands::FileListRefresh() {
    parts_.list.focus();
    parts_.slots.Retry();
    parts_.refresh.ForceRebuild();
}

void ProcessCommands::Run(int command) {
    switch (command) {
        case command::kAddToFavorites:
            parts_.favoriteCommands.Add(SelectedPaths());
            break;
        case command::kAddToFilter:
            parts_.filterCommands.Add(SelectedPaths());
            break;
        case command::kFilterDialog:
            parts_.filterCommands.ShowDialog();
            break;
        case command::kFileExtensions:
            ToggleExtensions();
            break;
        case command::kFileTips:
            ToggleFileTips();
            break;
        case command::kOpenGraph:
            OpenGraphs();
            break;
        case command::kTerminate:
            Terminate();
            break;
        default:
            break;
    }
}

void ProcessCommands::ToolBar2Clicked(int button) {
    if (button < 0 || button >= static_cast<int>(kToolBar2Commands.size())) return;
    Run(kToolBar2Commands[static_cast<std::size_t>(button)]);
}

// Each program once, however many of its processes are selected.
std::vector<std::string> ProcessCommands::SelectedPaths() const {
    std::vector<std::string> paths;
    std::set<std::string> seen;
    for (const int row : parts_.list.SelectedRows()) {
        std::string path = parts_.access.ImagePath(parts_.refresh.ProcessOfRow(row));
        if (!path.empty() && seen.insert(platform::lowerCase(path)).second) paths.push_back(std::move(path));
    }
    return paths;
}

void ProcessCommands::OpenGraphs() {
    for (const int row : parts_.list.SelectedRows()) {
        const platform::ProcessId id = parts_.refresh.ProcessOfRow(row);
        // With its extension, which the row may not show.
        std::string file(text::FileNameOf(parts_.access.ImagePath(id)));
        if (file.empty()) file = parts_.list.CellText(row, kFileColumn);
        if (parts_.graphs.Launch(file, id) == graphs::CpuGraphs::Launched::Full) {
            parts_.messages.Tell("CPU graphs limit reached (16 max).");
            return;
        }
    }
}

void ProcessCommands::Terminate() {
    std::vector<process::Victim> victims;
    for (const int row : parts_.list.SelectedRows()) {
        victims.push_back(
            process::MakeVictim(parts_.refresh.ProcessOfRow(row), parts_.list.CellText(row, kFileColumn)));
    }
    if (victims.empty()) return;
    if (!parts_.messages.AskBeforeLoss("Are you sure you want to Terminate the selected files?")) return;
    if (const auto failed = process::TerminateAll(victims, parts_.access)) {
        parts_.messages.Tell("Aborting, Terminate process failed for: " + *failed);
    }
    if (!parts_.window.exists()) return;
    parts_.refresh.ForceRebuild();
    parts_.refresh.ProcTimer();
    parts_.slots.Start(Slot::Process, kRefreshMilliseconds);
}

void ProcessCommands::ToggleExtensions() {
    parts_.options.showExtensions = !parts_.options.showExtensions;
    parts_.settings.WriteNumber(settings::Key::ShowExt, parts_.options.showExtensions ? 1 : 0);
    ShowOptions();
    parts_.refresh.FullRebuild();
}

void ProcessCommands::ToggleFileTips() {
    parts_.options.showFileTips = !parts_.options.showFileTips;
    parts_.settings.WriteNumber(settings::Key::ShowFileTips, parts_.options.showFileTips ? 1 : 0);
    ShowOptions();
}

void ProcessCommands::ShowOptions() {
    parts_.toolBar2.SetChecked(button2::kFileExtensions, parts_.options.showExtensions);
    parts_.toolBar2.SetChecked(button2::kFileTips, parts_.options.showFileTips);
}

void ProcessCommands::ShowMenu(platform::Point at) {
    using controls::MenuEntry;
    const MenuEntry entries[] = {
        // clang-format off
        {command::kAddToFavorites, "Add Selected To Favorites", controls::kMenuAddFavorite},
        {},
        {command::kAddToFilter, "Add Selected To File Filter", controls::kMenuAddFilter},
        {},
        {command::kFilterDialog, "Show File Filter Dialog", controls::kMenuFilterDialog},
        {command::kFileExtensions, "Show File Extensions", controls::kMenuExtensions, true, parts_.options.showExtensions},
        {command::kFileTips, "Show File Info In ToolTip", controls::kMenuFileTips, true, parts_.options.showFileTips},
        {},
        {command::kOpenGraph, "Open Selected in CPU Graph", controls::kMenuCpuGraph},
        {},
        {command::kTerminate, "Terminate Selected (Kill Process)", controls::kMenuEndProcess},
        // clang-format on
    };
    std::span<const MenuEntry> shown = entries;
    if (parts_.list.ListCount() == 0) shown = shown.subspan(4, 1);  // only the dialog needs no row
    int chosen = 0;
    {
        // What is chosen is for the processes that were selected when the menu came up.
        const HeldRows held(parts_.refresh);
        chosen = controls::ShowPictureMenu(parts_.window, at, shown);
    }
    Run(chosen);
}

void ProcessCommands::Key(std::uint16_t code) {
    switch (code) {
        case platform::key::kDelete:
            Terminate();
            break;
        case platform::key::kF5:
            FileListRefresh();
            break;
        case platform::key::kApps:
            ShowMenu(parts_.list.toScreen({40, parts_.list.HeaderHeight() + 20}));
            break;
        default:
            break;
    }
}

}  // namespace app
