// The main window's way up, in its fixed order.
#include "app/Form1.h"
#include "app/ProcessColumns.h"
#include "app/Tips.h"
#include "controls/Resources.h"
#include "favorites/Profiles.h"
#include "platform/Menu.h"
#include "process/PriorityClass.h"
#include "process/ProcessDetails.h"
#include "settings/WindowPosition.h"

namespace app {

using platform::Rect;
using settings::Key;

namespace {

constexpr int kTwipsPerPixel = 15;
constexpr platform::Size kFirstSize{13245 / kTwipsPerPixel, 6675 / kTwipsPerPixel};

constexpr int kRightButton = 2, kMiddleButton = 4;  // codes of clicks in a list

// The last column is the filler, which is never shown.
controls::UcListProperties ListProperties(const char* header, int columns, int shown) {
    controls::UcListProperties properties;
    properties.columnCount = columns;
    properties.columnMaxSeen = shown;
    properties.headerProperties = header;
    return properties;
}

// The rectangle of the first start: in the middle of the screen.
Rect CentredOnScreen(platform::Size size) {
    const platform::Size screen = platform::screenSize();
    return Rect::fromSize({(screen.width - size.width) / 2, (screen.height - size.height) / 2}, size);
}

}  // namespace

Form1::StartResult Form1::Start() {
    if (!CreateFrame()) return StartResult::Failed;
    if (instance_.AlreadyRunning(*this)) {
        destroy();
        return StartResult::Duplicate;
    }
    CloseJr();
    access_.EnableDebugPrivilege(true);
    access_.SetPriorityClass(platform::currentProcessId(), process::kAboveNormalPriority);
    if (settings_.Number(Key::Shadow) == 1) addDropShadow();

    if (!CreateParts()) return StartResult::Failed;
    WireEvents();

    favorites::CreateFolders(baseFolder_);
    favorites::CleanUpProfiles(baseFolder_);
    filterCommands_.Load();
    favorites_.SetFavName(favorites::ProfileNameFromIndex(settings_.Number(Key::FavName)));
    trayIcon_.Add_Tray();
    LoadFavorites();

    LoadOptions();
    refresh_.ProcTimer();
    slots_.Stop(Slot::Process);

    RestorePlacement();
    commands_.StartAutoSet();
    ShowFirstTime();
    if (!exists()) return StartResult::Running;  // ended already, while its first messages were dealt with
    slots_.Start(Slot::Process, kRefreshMilliseconds);
    if (settings_.Number(Key::Hotkey) == 1) hotkeys_.Start();
    if (settings_.Number(Key::TtlOnStart) == 1) {
        totalGraph_.Open();
        if (visible()) bringToFront();  // the graph comes with the window, not before it
    }
    slots_.Start(Slot::Tray, kTrayMilliseconds);
    return StartResult::Running;
}

// What another copy needs to find this one, and the shell to reach it; nothing of it is seen.
bool Form1::CreateFrame() {
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Main;
    spec.className = "Form1";
    spec.title = "Kestrum 2";
    spec.bounds = CentredOnScreen(kFirstSize);
    spec.iconResource = controls::kProgramIcon;
    return create(spec) && instance_.CreateMailbox(*this) && trayIcon_.Create(*this);
}

bool Form1::CreateParts() {
    parts_.gaugeWidth = Gauges::Width();
    parts_.statusWidth = StatusStrip::UsualWidth();
    return CreateToolBars() && CreateChoosers() && CreateLists() && status_.Create(*this, "Status", {0, 0, 1, 1}) &&
           gauges_.Create(*this, tips_);
}

bool Form1::CreateToolBars() {
    if (!toolBar1_.Create(*this, "ToolBar1", {0, 0, 1, 1}) || !toolBar2_.Create(*this, "ToolBar2", {0, 0, 1, 1})) {
        return false;
    }
    toolBar1_.SetImages(platform::loadPictureResource(controls::kToolBarPictures), kToolBar1Tips.size());
    for (const int index : {button::kFileFilter, button::kAutoSet, button::kEnforce, button::kAlwaysOnTop}) {
        toolBar1_.SetCurrentImage(index);
        toolBar1_.SetCheckBox(true);
    }
    for (const int index : {button::kApplyChanges, button::kSetOptions, button::kSetFavoritesNow, button::kEnforce,
                            button::kKestrumJr}) {
        toolBar1_.SetCurrentImage(index);
        toolBar1_.SetSeperator(true);
    }

    toolBar2_.SetSize24(false);
    toolBar2_.SetImages(platform::loadPictureResource(controls::kToolBar2Pictures), kToolBar2Tips.size());
    for (const int index : {button2::kFileExtensions, button2::kFileTips}) {
        toolBar2_.SetCurrentImage(index);
        toolBar2_.SetCheckBox(true);
    }

    parts_.toolBar1Width = toolBar1_.PreferredWidth();
    parts_.toolBar1Height = toolBar1_.PreferredHeight();
    parts_.toolBar2Width = toolBar2_.PreferredWidth();
    parts_.toolBar2Height = toolBar2_.PreferredHeight();
    return true;
}

// What is to be applied to the selected processes.
bool Form1::CreateChoosers() {
    const Rect later{0, 0, 1, 1};
    if (!affinityBoxes_.Create(*this, access_.HighestCpu()) ||
        !cmboPriority_.Create(*this, "CmboPriority", later) || !cmdInvert_.Create(*this, "CmdInvert", later) ||
        !cmdRefresh_.Create(*this, "CmdRefresh", later)) {
        return false;
    }
    processCommands_.FillPriorities();
    cmdInvert_.SetCaption("Invert Affinity");
    cmdRefresh_.SetCaption("File List Refresh");
    parts_.affinityWidth = affinityBoxes_.Width();
    parts_.priorityWidth = cmboPriority_.PreferredSize().width;
    parts_.invertWidth = cmdInvert_.PreferredSize().width;
    parts_.refreshWidth = cmdRefresh_.PreferredSize().width;
    return true;
}

bool Form1::CreateLists() {
    const Rect later{0, 0, 100, 100};
    if (!processList_.Create(*this, "UcList11", later) || !splitter_.Create(*this, "SplitBar", later) ||
        !favoritesControl_.Create(*this, "UcList12", later)) {
        return false;
    }
    processList_.ReadProperties(ListProperties(kProcessHeader, kProcessColumns, kProcessColumns - 1));
    favoritesControl_.ReadProperties(ListProperties(favorites::kFavoritesHeader, favorites::kFavoritesColumnCount,
                                                    favorites::kFavoritesColumnMaxSeen));
    processList_.SetKeyColumn(kPidColumn);
    favoritesControl_.SetKeyColumn(favorites::kColPath);
    favoritesControl_.acceptFiles(true);
    return paramEditor_.Create();
}

void Form1::WireEvents() {
    slots_.SetWork(Slot::Process, [this] {
        ReadUnread();
        refresh_.ProcTimer();
    });
    slots_.SetWork(Slot::Tray, [this] { trayCommands_.TrayTimer(); });
    slots_.SetWork(Slot::Memory, [this] { gauges_.UpdateMemory(); });
    slots_.SetWork(Slot::FavoritesPanel, [this] { favoriteSettings_.Watch(); });
    instance_.WakenUp = [this] { WakenUp(); };
    trayIcon_.Notified = [this](platform::TrayEvent event) { trayCommands_.Notified(event); };
    trayCommands_.ShowOptions = [this] { optionsCommands_.Show(); };
    trayCommands_.Restore = [this] { RestoreFromTray(Raise::Yes); };
    trayCommands_.Exit = [this] { Exit(); };
    toolBar1_.Click = [this](int index) { ToolBar1Clicked(index); };
    splitter_.Moved = [this](int left) { MoveSplitter(left); };
    WireProcessCommands();
    WireFavorites();
    WireLists();
    WireGraphs();
    WireTips();
}

void Form1::WireProcessCommands() {
    toolBar2_.Click = [this](int index) { processCommands_.ToolBar2Clicked(index); };
    cmdInvert_.Click = [this] { processCommands_.InvertAffinity(); };
    cmdRefresh_.Click = [this] { processCommands_.FileListRefresh(); };
    processList_.Click = [this](int button) {
        if (button == kRightButton) processCommands_.ShowMenu(platform::pointerPosition());
    };
    processList_.KeyClick = [this](std::uint16_t code) { processCommands_.Key(code); };
    processList_.DragOver = [this](platform::Point) { return DragOver(); };
    processList_.DragReleased = [this](platform::Point) {
        if (favoritesControl_.underPointer()) processCommands_.Run(command::kAddToFavorites);
    };
}

void Form1::WireFavorites() {
    favoritesControl_.FilesDropped = [this](const std::vector<std::string>& paths) { commands_.Add(paths); };
    favoritesControl_.KeyClick = [this](std::uint16_t code) { FavoritesKey(code); };
    favoritesControl_.DblClick = [this](int) { profileCommands_.Launch(); };
    favoritesControl_.Click = [this](int button) {
        if (button == kRightButton) profileCommands_.ShowFavoritesMenu(platform::pointerPosition());
        if (button == kMiddleButton) paramEditor_.Edit();
    };
    profileCommands_.ChangeSettings = [this] { favoriteSettings_.Open(); };
    commands_.ProfilesChanged = profileCommands_.ProfilesChanged = [this] { optionsCommands_.ProfilesChanged(); };
    profileCommands_.FinishEdits = [this] { FinishEdits(); };
    profileCommands_.Exit = [this] { Exit(); };
}

void Form1::WireLists() {
    processList_.HeaderClick = [this](int column) { refresh_.SetSort(column, processList_.HeaderSortDir()); };
    processList_.DrawIcon = [this](platform::Canvas& canvas, platform::Point at, int row) {
        canvas.icon(at, refresh_.IconOfRow(row), 16);
    };
    favoritesControl_.HeaderClick = [this](int column) {
        favorites_.SetSort(column, favoritesControl_.HeaderSortDir());
    };
}

void Form1::WireGraphs() {
    slots_.SetWork(Slot::TotalGraph, [this] { totalGraph_.GraphTimer(); });
    totalGraph_.StartGraphTimer = [this] { slots_.Start(Slot::TotalGraph, graphs::kMeterMilliseconds); };
    totalGraph_.StopGraphTimer = [this] { slots_.Stop(Slot::TotalGraph); };
    totalGraph_.StartReadings = [this] { slots_.Start(Slot::Tray, kTrayMilliseconds); };
    totalGraph_.StopReadings = [this] { slots_.Stop(Slot::Tray); };
    // It may be opened any time.
    graphs_.AlsoTaken = [this](std::vector<Rect>& taken) { taken.push_back(totalGraph_.Place()); };
}

void Form1::WireTips() {
    ExplainButtons(toolBar1_, kToolBar1Tips, tips_);
    ExplainButtons(toolBar2_, kToolBar2Tips, tips_);
    affinityBoxes_.Explain(tips_, "CPU Affinity", "Select CPU Affinity to apply");
    ExplainControl(cmboPriority_, tips_, "Priority", "Select Priority to apply");
    ExplainControl(cmdInvert_, tips_, "Invert Affinity", "Invert CPU affinity selection.");
    ExplainControl(cmdRefresh_, tips_, "File List Refresh", "Manually update the file listing.");
    ExplainRows(
        processList_, [this](int row) { return TipOfProcess(row); }, tips_);
    ExplainRows(
        favoritesControl_, [this](int row) { return TipOfFavorite(row); }, tips_);
}

process::TipText Form1::TipOfProcess(int row) {
    if (!options_.showFileTips) return {};
    const platform::ProcessId id = refresh_.ProcessOfRow(row);
    return process::RowTip(processList_.CellText(row, kFileColumn), id, access_.ImagePath(id));
}

process::TipText Form1::TipOfFavorite(int row) {
    const favorites::Favorite favorite = favorites_.Row(row);
    return {favorite.name, favorite.path + (favorite.param.empty() ? "" : "\r\n" + favorite.param)};
}

void Form1::LoadFavorites() {
    favorites_.LoadFavorites();
    const int column = settings_.Number(Key::FavColSort);
    favorites_.SetSort(column, settings_.Bool(Key::FavSortDir));
    favorites_.SortFavs();
}

// Files that something else kept shut when the program started, at log-on for instance.
void Form1::ReadUnread() {
    if (busy_.Raised()) return;
    const bool favorites = favorites_.ReadUnread();
    const bool names = filterCommands_.ReadUnread();
    if (favorites || names) refresh_.ForceRebuild();
}

void Form1::RestorePlacement() {
    if (!settings::RestoreWindowPosition(*this, "Form1", settings_)) setBounds(CentredOnScreen(kFirstSize));
    layouts_.Load(settings_);
    ApplyColumns(false);
    CaptureColumns(false);  // as they really are: the built-in ones where nothing usable was stored
    layouts_.CompleteMaximized();
    started_ = true;
    LayOut();
}

// How the program shows itself, before anything is shown.
void Form1::LoadOptions() {
    options_ = settings::LoadDisplayOptions(settings_);
    graphOptions_ = graphs::LoadGraphOptions(settings_);
    tips_.SetEnabled(options_.showTips);
    processCommands_.ShowOptions();
    trayCommands_.Show(options_);
    trayCommands_.TrayTimer();
}

void Form1::ShowFirstTime() {
    if (settings_.Number(Key::MiniMe) == 1) {
        show(platform::ShowCommand::Minimize);
        return;
    }
    ShowMemory();
    show(platform::ShowCommand::Show);
    processList_.focus();
    platform::pumpMessages();
}

}  // namespace app
