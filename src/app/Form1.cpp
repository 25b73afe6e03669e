#include "app/Form1.h"

#include "favorites/Profiles.h"
#include "platform/Files.h"
#include "platform/Shell.h"
#include "text/Numbers.h"

namespace app {

using platform::Rect;
using platform::WindowState;

namespace {

// As wide as the area, `height` high, in its middle.
Rect CentredIn(const Rect& area, int height) {
    const int top = area.top + (area.height() - height) / 2;
    return {area.left, top, area.right, top + height};
}

}  // namespace

Form1::Form1()
    : access_(errors_),
      baseFolder_(favorites::BaseFolder()),
      messages_(*this, busy_, msgBoxes_, options_),
      filter_(baseFolder_),
      graphs_({graphOptions_, access_, tips_, settings_}),
      refresh_({*this, processList_, slots_, busy_, access_, enforce_, filter_, options_}),
      favorites_(favoritesControl_, baseFolder_,
                 [this](const std::string& text, const std::string& title, platform::BalloonIcon icon) {
                     trayIcon_.TrayBalloon(text, title, icon);
                 }),
      commands_({*this, toolBar1_, messages_, affinityBoxes_, refresh_, slots_, busy_, favorites_, enforce_,
                 access_, settings_, trayIcon_}),
      filterCommands_(
          {*this, toolBar1_, msgBoxes_, tips_, messages_, refresh_, slots_, busy_, favorites_, filter_, options_}),
      processCommands_({*this, processList_, toolBar1_, toolBar2_, affinityBoxes_, cmboPriority_, messages_,
                        refresh_, slots_, commands_, filterCommands_, favorites_, access_, settings_, options_,
                        graphs_}),
      profileCommands_(
          {*this, messages_, refresh_, slots_, commands_, filterCommands_, favorites_, enforce_, options_}),
      paramEditor_(favoritesControl_, favorites_, refresh_, slots_, messages_, tips_),
      favoriteSettings_({*this, favoritesControl_, favorites_, slots_, messages_, refresh_, access_.HighestCpu()}),
      trayCommands_({*this, trayIcon_, slots_, busy_, msgBoxes_, toolBar1_, commands_, gauges_, graphs_}),
      totalGraph_({graphOptions_, trayCommands_.Totals(), settings_}),
      hotkeys_({[this] { SetFavsNow(); }, [this](int number) { profileCommands_.SwitchTo(number); }}),
      optionsCommands_({*this, settings_, options_, graphOptions_, msgBoxes_, tips_, trayCommands_, hotkeys_,
                        graphs_, totalGraph_, enforce_, baseFolder_},
                       {[this] { ViewHelp(); }, [this] { ResetColumns(); }, [this] { Restart(); },
                        [this] { RestoreDefaults(); }}) {}

// The window goes before the parts that its handlers would reach.
Form1::~Form1() {
    destroy();
}

void Form1::onPaint(platform::Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, platform::systemColor(platform::SysColor::ButtonFace));
    // Lists and gauges have no frame of their own. On the sides of the splitter it is the splitter's part.
    for (const Rect& part :
         {processList_.bounds(), favoritesControl_.bounds(), gauges_.MemoryBounds(), gauges_.CpuBounds()}) {
        canvas.frame(part.inset(-1, -1), FrameColor());
    }
}

void Form1::onSize(platform::Size, WindowState state) {
    if (!started_) return;
    if (state == WindowState::Minimized) {
        // With a dialog of its own open it stays in the task bar: the icon could not bring it back.
        if (enabled()) MinimizeToTray();
        return;
    }
    if (inTray_) RestoreFromTray(Raise::No);  // shown by other means than ours
    if (state == WindowState::Maximized) {
        FrmMax();
    } else {
        FrmRestore();
    }
}

void Form1::UseLayout(bool maximized) {
    if (maximized != maximized_) {
        CaptureColumns(maximized_);
        maximized_ = maximized;
        ApplyColumns(maximized_);
    }
    LayOut();
}

platform::Size Form1::minimumSize() const {
    return SmallestMainWindow(parts_);
}

void Form1::LayOut() {
    const bool wasRunning = slots_.Running(Slot::Process);
    slots_.Pause(Slot::Process);
    const MainLayout layout = LayOutMain(clientSize(), layouts_.For(maximized_).splitter, parts_);
    toolBar1_.setBounds(layout.toolBar1);
    toolBar2_.setBounds(layout.toolBar2);
    affinityBoxes_.Place(layout.affinity);
    cmboPriority_.setBounds(CentredIn(layout.priority, cmboPriority_.PreferredSize().height));
    cmdInvert_.setBounds(CentredIn(layout.invert, cmdInvert_.PreferredSize().height));
    cmdRefresh_.setBounds(CentredIn(layout.refresh, cmdRefresh_.PreferredSize().height));
    processList_.setBounds(layout.processList);
    splitter_.setBounds(layout.splitter);
    favoritesControl_.setBounds(layout.favoritesList);
    status_.setBounds(layout.status);
    gauges_.Place(layout.memoryGauge, layout.cpuGauge);
    UpdateStatusLine();
    invalidate();  // the frames around the lists and gauges are the window's own
    if (wasRunning) slots_.Start(Slot::Process, kRefreshMilliseconds);
}

void Form1::MoveSplitter(int left) {
    if (inTray_) return;  // it was held while the window went
    const int wanted = EffectiveSplitter(clientSize().width, left);
    int& splitter = layouts_.For(maximized_).splitter;
    if (wanted == splitter) return;
    splitter = wanted;
    LayOut();
    update();
}

void Form1::ApplyColumns(bool maximized) {
    const ListLayout& layout = layouts_.For(maximized);
    processList_.SetColumnWidths(layout.fileWidths);
    favoritesControl_.SetColumnWidths(layout.favoriteWidths);
}

void Form1::CaptureColumns(bool maximized) {
    ListLayout& layout = layouts_.For(maximized);
    layout.fileWidths = processList_.ColumnWidthsText();
    layout.favoriteWidths = favoritesControl_.ColumnWidthsText();
}

// Of the processes there are now: while a dialog is open nobody looks for new ones.
void Form1::SetFavsNow() {
    refresh_.TakeSnapshot();
    commands_.SetFavs();
}

void Form1::ResetColumns() {
    layouts_.Reset();
    ApplyColumns(maximized_);
    if (!inTray_) LayOut();  // else when it is back
    layouts_.Save(settings_);
}

void Form1::SelectionReplaced() {
    if (processList_.ListCount() > 0) processCommands_.ShowSettingsOf(0);
}

void Form1::UpdateStatusLine() {
    // Two entries of every snapshot are the system's own and never listed.
    const int listed = refresh_.Snapshot().Count() - 2;
    status_.Print(
        "Processes: " + text::Decimal(processList_.ListCount()) + " of " + text::Decimal(listed > 0 ? listed : 0),
        "  |    Favorites: " + text::Decimal(favoritesControl_.ListCount()), favoritesControl_.bounds().left);
}

void Form1::ToolBar1Clicked(int index) {
    switch (index) {
        case button::kApplyChanges:
            processCommands_.ApplyChanges();
            break;
        case button::kFileFilter:
            filterCommands_.Toggled();
            break;
        case button::kSetOptions:
            optionsCommands_.Show();
            break;
        case button::kBrowseForFavorite:
            commands_.BrowseForFavorite();
            break;
        case button::kRemoveFavorites:
            commands_.RemoveFavorites();
            break;
        case button::kSetFavoritesNow:
            commands_.SetFavs();
            break;
        case button::kAutoSet:
            commands_.AutoSetToggled();
            break;
        case button::kEnforce:
            commands_.EnforceToggled();
            break;
        case button::kFavoriteProfiles:
            profileCommands_.ShowProfileMenu(BelowButton(index));
            break;
        case button::kKestrumJr:
            profileCommands_.ShowJrMenu(BelowButton(index));
            break;
        case button::kViewHelp:
            ViewHelp();
            break;
        case button::kAlwaysOnTop:
            setTopmost(toolBar1_.IsChecked(button::kAlwaysOnTop));
            break;
        default:
            break;
    }
}

// Where the menu of a button comes up, on the screen.
platform::Point Form1::BelowButton(int index) const {
    const Rect area = toolBar1_.ButtonRect(index);
    return toolBar1_.toScreen({area.left, area.bottom});
}

void Form1::FavoritesKey(std::uint16_t code) {
    if (code == platform::key::kDelete && favorites_.AnySelected()) commands_.RemoveFavorites();
    if (code == platform::key::kEnter) profileCommands_.Launch();
    if (code == platform::key::kF2 && favorites_.AnySelected()) paramEditor_.Edit();
    if (code == platform::key::kApps) {
        profileCommands_.ShowFavoritesMenu(favoritesControl_.toScreen({40, favoritesControl_.HeaderHeight() + 20}));
    }
}

// What the user is changing about favourites is taken over: they are about to go out of sight.
void Form1::FinishEdits() {
    paramEditor_.Accept();
    favoriteSettings_.Finish();
}

void Form1::ViewHelp() {
    const std::string path = baseFolder_ + "Help.htm";
    if (!platform::fileExists(path)) {
        messages_.Tell("Help file (Help.htm) is missing.");
    } else if (!platform::openDocument(*this, path)) {
        messages_.Tell("Help file (Help.htm) could not be opened.\r\nIt needs a program that opens .htm files.");
    }
}

// Rows of the process list can be dropped on the favourites.
platform::Pointer Form1::DragOver() const {
    return favoritesControl_.underPointer() ? platform::Pointer::Drop : platform::Pointer::NoDrop;
}

void Form1::onTaskbarCreated() {
    trayIcon_.Add_Tray();
}

// The program goes on in the notification area; only its "Exit" ends it.
void Form1::onClose() {
    if (!enabled()) return;  // a question of ours is open and comes first
    CaptureColumns(maximized_);
    show(platform::ShowCommand::Minimize);
}

void Form1::onEndSession() {
    Unload();
}

void Form1::onDestroyed() {
    if (!instance_.Duplicate()) platform::postQuit(0);
}

}  // namespace app
