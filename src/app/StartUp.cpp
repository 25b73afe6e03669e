// The main window's way up, in its fixed order, and what it writes on its way down.
#include "app/Form1.h"
#include "controls/Resources.h"
#include "favorites/Profiles.h"
#include "process/PriorityClass.h"
#include "settings/WindowPosition.h"

namespace app {

using platform::Rect;
using settings::Key;

namespace {

constexpr int kTwipsPerPixel = 15;
constexpr platform::Size kFirstSize{13245 / kTwipsPerPixel, 6675 / kTwipsPerPixel};

constexpr const char* kProcessHeader =
    "File,0,True,0,2,False,0,134|Affinity,2,False,0,2,False,0,82|Priority,2,False,0,2,False,0,60|"
    "PID,2,False,0,2,False,0,40|CPU %,2,False,0,2,False,0,60|Mem(KB),1,False,0,2,False,0,70|"
    ",2,False,0,2,False,16777215,0";
constexpr int kProcessColumns = 7;

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

bool Form1::Start() {
    access_.EnableDebugPrivilege(true);
    access_.SetPriorityClass(platform::currentProcessId(), process::kAboveNormalPriority);

    if (!CreateWindows()) return false;
    WireEvents();

    favorites::CreateFolders(baseFolder_);
    favorites_.SetFavName(favorites::ProfileNameFromIndex(settings_.Number(Key::FavName)));
    trayIcon_.Add_Tray();
    LoadFavorites();

    refresh_.ProcTimer();
    slots_.Stop(Slot::Process);

    RestorePlacement();
    commands_.StartAutoSet();
    ShowFirstTime();
    slots_.Start(Slot::Process, kRefreshMilliseconds);
    return true;
}

bool Form1::CreateWindows() {
    platform::WindowSpec spec;
    spec.kind = platform::WindowKind::Main;
    spec.className = "Form1";
    spec.title = "Kestrum 2";
    spec.bounds = CentredOnScreen(kFirstSize);
    spec.iconResource = controls::kProgramIcon;
    return create(spec) && CreateToolBars() && affinityBoxes_.Create(*this, access_.HighestCpu()) &&
           CreateLists() && status_.Create(*this, "Status", {0, 0, 1, 1});
}

bool Form1::CreateToolBars() {
    if (!toolBar1_.Create(*this, "ToolBar1", {0, 0, 1, 1}) || !toolBar2_.Create(*this, "ToolBar2", {0, 0, 1, 1})) {
        return false;
    }
    toolBar1_.SetImages(platform::loadPictureResource(controls::kToolBarPictures), kToolBar1Tips.size());
    for (const int index : {button::kAutoSet, button::kEnforce, button::kAlwaysOnTop}) {
        toolBar1_.SetCurrentImage(index);
        toolBar1_.SetCheckBox(true);
    }
    for (const int index : {button::kApplyChanges, button::kSetOptions, button::kSetFavoritesNow, button::kEnforce,
                            button::kKestrumJr}) {
        toolBar1_.SetCurrentImage(index);
        toolBar1_.SetSeperator(true);
    }
    // What this build cannot do yet.
    for (const int index : {button::kApplyChanges, button::kFileFilter, button::kSetOptions,
                            button::kFavoriteProfiles, button::kKestrumJr}) {
        toolBar1_.SetUnavailable(index, true);
    }

    toolBar2_.SetSize24(false);
    toolBar2_.SetImages(platform::loadPictureResource(controls::kToolBar2Pictures), kToolBar2Tips.size());
    for (int index = 0; index < toolBar2_.ImageCount(); ++index) toolBar2_.SetUnavailable(index, true);

    // Nothing on it can be used yet, so the keyboard need not stop there.
    toolBar2_.enable(false);

    parts_.toolBar1Width = toolBar1_.PreferredWidth();
    parts_.toolBar1Height = toolBar1_.PreferredHeight();
    parts_.toolBar2Width = toolBar2_.PreferredWidth();
    parts_.toolBar2Height = toolBar2_.PreferredHeight();
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
    favoritesControl_.acceptFiles(true);
    parts_.affinityWidth = affinityBoxes_.Width();
    return true;
}

void Form1::WireEvents() {
    slots_.SetWork(Slot::Process, [this] { refresh_.ProcTimer(); });
    toolBar1_.Click = [this](int index) { ToolBar1Clicked(index); };
    splitter_.Moved = [this](int left) { MoveSplitter(left); };
    processList_.HeaderClick = [this](int column) { refresh_.SetSort(column, processList_.HeaderSortDir()); };
    processList_.DrawIcon = [this](platform::Canvas& canvas, platform::Point at, int row) {
        canvas.icon(at, refresh_.IconOfRow(row), 16);
    };
    favoritesControl_.HeaderClick = [this](int column) {
        favorites_.SetSort(column, favoritesControl_.HeaderSortDir());
    };
    favoritesControl_.FilesDropped = [this](const std::vector<std::string>& paths) { commands_.AddDropped(paths); };
    favoritesControl_.KeyClick = [this](std::uint16_t code) { FavoritesKey(code); };
}

void Form1::LoadFavorites() {
    favorites_.LoadFavorites();
    favorites_.SetSort(settings_.Number(Key::FavColSort), settings_.Bool(Key::FavSortDir));
    favorites_.SortFavs();
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

void Form1::ShowFirstTime() {
    show(platform::ShowCommand::Show);
    processList_.focus();
    platform::pumpMessages();
}

void Form1::SaveSettings() {
    if (!started_) return;
    favorites_.SavePending();
    CaptureColumns(maximized_);
    settings_.WriteNumber(Key::FavColSort, favorites_.SortColumn());
    settings_.WriteBool(Key::FavSortDir, favorites_.SortAscending());
    settings::SaveWindowPosition(*this, "Form1", settings_);
    settings_.WriteNumber(Key::TransLevel, settings_.Number(Key::TransLevel));
    layouts_.Save(settings_);
}

// Ends the program: what it remembers first, then what it holds, then the window.
void Form1::Unload() {
    SaveSettings();
    started_ = false;
    for (const Slot slot : {Slot::Process, Slot::Tray, Slot::Memory, Slot::FavoritesPanel, Slot::TotalGraph}) {
        slots_.Stop(slot);
    }
    trayIcon_.Remove();
    destroy();
}

}  // namespace app
