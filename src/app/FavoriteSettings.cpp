#include "app/FavoriteSettings.h"

#include <algorithm>
#include <string_view>

#include "controls/DialogPlace.h"
#include "favorites/FavoriteEdits.h"
#include "process/PriorityClass.h"
#include "text/Numbers.h"

namespace app {

using platform::Point;
using platform::Rect;
using platform::Size;

namespace {

constexpr std::uint32_t kWatchMilliseconds = 50;

constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr int kBoxesPerRow = 4;
constexpr int kBoxRow = 22;       // pixels from one row of boxes to the next
constexpr int kLeastWidth = 230;  // for the lines above and below few boxes

// The entries of the chooser: the one that leaves priorities alone, then the classes.
std::string_view PriorityEntry(int index) {
    if (index == 0) return favorites::kDefaultPriority;
    return process::kPriorityClasses[static_cast<std::size_t>(index - 1)].name;
}
constexpr int kPriorityEntries = static_cast<int>(process::kPriorityClasses.size()) + 1;

// Of the entry that all of them have; -1 when they differ, or have none that there is.
int CommonPriority(const std::vector<favorites::Favorite>& favorites) {
    const std::string& first = favorites.front().priority;
    for (const favorites::Favorite& favorite : favorites) {
        if (favorite.priority != first) return -1;
    }
    for (int index = 0; index < kPriorityEntries; ++index) {
        if (PriorityEntry(index) == first) return index;
    }
    return -1;
}

}  // namespace

void FavoriteSettings::Open() {
    Close();
    const std::vector<favorites::Favorite> selected = parts_.favorites.SelectedFavorites();
    if (selected.empty() || !Create()) return;
    paths_.clear();
    for (const favorites::Favorite& favorite : selected) paths_.push_back(favorite.path);
    ShowSettings(selected);
    show(platform::ShowCommand::Show);
    affinityBoxes_.FocusFirst();
    parts_.slots.Start(Slot::FavoritesPanel, kWatchMilliseconds);
}

bool FavoriteSettings::Create() {
    if (!create(controls::DialogSpec("Favorite Settings", parts_.owner))) return false;
    if (!CreateControls()) {
        destroy();
        return false;
    }
    Arrange();
    return true;
}

bool FavoriteSettings::CreateControls() {
    const auto keys = [this](const platform::KeyEvent& event) { return Key(event); };
    affinityBoxes_.SetKeyFirst(keys);
    cmboPriority_.KeyFirst = keys;
    cmdClose_.KeyFirst = keys;
    cmdClose_.Click = [this] { Close(); };
    // In the order of the Tab key.
    if (!lblWhich_.Create(*this, "LblWhich", {}) || !affinityBoxes_.Create(*this, parts_.highestCpu) ||
        !lblPriority_.Create(*this, "LblPriority", {}) || !cmboPriority_.Create(*this, "CmboFavPriority", {}) ||
        !cmdClose_.Create(*this, "CmdCloseSettings", {})) {
        return false;
    }
    lblPriority_.SetCaption("Priority");
    cmdClose_.SetCaption("Close");
    cmboPriority_.Clear();
    for (int index = 0; index < kPriorityEntries; ++index) cmboPriority_.AddItem(std::string(PriorityEntry(index)));
    return true;
}

// Whose settings they are; the boxes; the chooser, and the button that closes on the right.
void FavoriteSettings::Arrange() {
    const Size boxes = affinityBoxes_.SizeOf(kBoxesPerRow, kBoxRow);
    const Size label = lblPriority_.PreferredSize();
    const Size combo = cmboPriority_.PreferredSize();
    const Size button = cmdClose_.PreferredSize();
    const int width =
        std::max({boxes.width, kLeastWidth, label.width + combo.width + button.width + kGap + 2 * kMargin});

    Point at{kMargin, kMargin};
    lblWhich_.setBounds(Rect::fromSize(at, {width, label.height}));
    at.y += label.height + kGap;
    affinityBoxes_.Place(at, kBoxesPerRow, kBoxRow);
    at.y += boxes.height + kGap;
    const int height = std::max(combo.height, button.height);
    const auto inRow = [&](int x, Size size) {
        return Rect::fromSize({x, at.y + (height - size.height) / 2}, size);
    };
    lblPriority_.setBounds(inRow(at.x, label));
    cmboPriority_.setBounds(inRow(at.x + label.width + kGap, combo));
    cmdClose_.setBounds(inRow(at.x + width - button.width, button));

    const Size frame = controls::FrameOf(*this);
    const Size whole{width + 2 * kMargin + frame.width, at.y + height + kMargin + frame.height};
    const Rect over = Rect::fromSize(parts_.list.toScreen({0, 0}), parts_.list.clientSize());
    setBounds(controls::PlacedOver(over, whole));
}

void FavoriteSettings::ShowSettings(const std::vector<favorites::Favorite>& favorites) {
    std::vector<std::string> affinities;
    for (const favorites::Favorite& favorite : favorites) affinities.push_back(favorite.affinity);
    affinityBoxes_.ShowAll(affinities);
    cmboPriority_.SelectItem(CommonPriority(favorites));
    lblWhich_.SetCaption(favorites.size() == 1 ? favorites.front().name
                                               : text::Decimal(static_cast<int>(favorites.size())) + " favorites");
}

void FavoriteSettings::onPaint(platform::Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, platform::systemColor(platform::SysColor::ButtonFace));
}

bool FavoriteSettings::Key(const platform::KeyEvent& event) {
    if (!event.down || event.code != platform::key::kEscape || cmboPriority_.Dropped()) return false;
    Leave();
    return true;
}

bool FavoriteSettings::InUse() const {
    return focused() || affinityBoxes_.Focused() || cmboPriority_.focused() || cmdClose_.focused();
}

void FavoriteSettings::Watch() {
    if (!InUse()) Close();
}

void FavoriteSettings::Close() {
    if (Finish().noCpu) parts_.messages.Tell("Please select at least one CPU core for Affinity.");
}

bool FavoriteSettings::Leave() {
    parts_.slots.Stop(Slot::FavoritesPanel);
    const bool inUse = InUse();
    destroy();
    // Where the user has gone instead, maybe to other favourites, focus and selection are as they want them.
    if (inUse) parts_.list.focus();
    return inUse;
}

favorites::SettingsEdit FavoriteSettings::Finish() {
    if (!exists()) return {};
    favorites::SettingsChoice choice{affinityBoxes_.Count(), affinityBoxes_.Choice(), {}};
    if (cmboPriority_.GetIndex() >= 0) choice.priority = PriorityEntry(cmboPriority_.GetIndex());
    const bool inUse = Leave();
    using Select = favorites::FavoritesList::Select;
    const PausedSlot pause(parts_.slots, Slot::Process, kRefreshMilliseconds);
    const favorites::SettingsEdit edit =
        favorites::SetSettings(parts_.favorites, EditedRows(), choice, inUse ? Select::Replaced : Select::AsBefore);
    if (edit.changed) parts_.refresh.ForceRebuild();  // with Auto Set on, the next tick sets them
    return edit;
}

// Those that have not gone meanwhile.
std::vector<int> FavoriteSettings::EditedRows() const {
    std::vector<int> rows;
    for (int row = 0; row < parts_.favorites.Count(); ++row) {
        if (std::find(paths_.begin(), paths_.end(), parts_.favorites.Row(row).path) != paths_.end()) {
            rows.push_back(row);
        }
    }
    return rows;
}

}  // namespace app
