#include "settings/FrmOptions.h"

#include <algorithm>
#include <utility>

#include "controls/DialogPlace.h"
#include "text/Numbers.h"

namespace settings {

using platform::Rect;

namespace key = platform::key;

namespace {

constexpr char kCaption[] = "Kestrum Options";
constexpr char kMaker[] = "Morvell Software 2010";
constexpr Rect kLater{0, 0, 1, 1};
constexpr int kLevelPage = 10;  // percent

}  // namespace

FrmOptions::FrmOptions(const Parts& parts) : parts_(parts) {
    for (const OptionInfo& info : OptionTable()) {
        auto& control = At(info.option).control;
        if (info.kind == OptionKind::List) control.emplace<List>();
        if (info.kind == OptionKind::Slider) control.emplace<Slider>();
        if (info.kind == OptionKind::Button) control.emplace<Button>();
    }
}

platform::Window& FrmOptions::ControlOf(Option option) {
    return std::visit([](auto& control) -> platform::Window& { return control; }, At(option).control);
}

// ---- making it ----

void FrmOptions::Show(platform::Window& owner) {
    if (exists()) {
        show(platform::ShowCommand::Show);
        bringToFront();
        return;
    }
    if (!Create(owner)) return;
    Load();
    ShowPage(OptionPage::Misc);
    const platform::Size size = LayOut();
    setBounds(controls::PlacedOver(controls::AreaOfOwner(owner), size));
    show(platform::ShowCommand::Show);
    if (!owner.visible()) bringToFront();  // no window of the program is in front then
    focus_->focus();
}

bool FrmOptions::Create(platform::Window& owner) {
    if (!create(controls::DialogSpec(kCaption, owner))) return false;
    const auto table = OptionTable();
    // In the order of the Tab key: page buttons, what is on the pages, what is below them.
    const bool made =
        CreatePages() &&
        std::all_of(table.begin(), table.end(), [this](const OptionInfo& info) { return CreateControl(info); }) &&
        lblMaker_.Create(*this, "LblMaker", kLater);
    if (made) {
        lblMaker_.SetCaption(kMaker);
    } else {
        destroy();
    }
    return made;
}

bool FrmOptions::CreatePages() {
    for (int i = 0; i < kOptionPages; ++i) {
        const auto page = static_cast<OptionPage>(i);
        OptionsPageButton& button = PageButton(page);
        Attach(button);
        button.Click = [this, page] { ShowPage(page); };
        if (!button.Create(*this, "CmdFrame" + text::Decimal(i), kLater)) return false;
        button.SetCaption(CaptionOf(page));
    }
    for (int i = 0; i < kOptionPages; ++i) {
        if (!PageAt(static_cast<OptionPage>(i)).Create(*this, "Framez" + text::Decimal(i))) return false;
    }
    return true;
}

bool FrmOptions::CreateControl(const OptionInfo& info) {
    platform::Window& parent = info.page == OptionPage::Below ? static_cast<Window&>(*this) : PageAt(info.page);
    switch (info.kind) {
        case OptionKind::Check:
            return CreateCheck(info, parent);
        case OptionKind::List:
            return CreateList(info, parent);
        case OptionKind::Slider:
            return CreateSlider(info, parent);
        case OptionKind::Button:
            return CreateButton(info, parent);
    }
    return false;
}

bool FrmOptions::CreateCheck(const OptionInfo& info, platform::Window& parent) {
    Check& check = CheckAt(info.option);
    Attach(check);
    Explain(check, info);
    check.Click = [this, option = info.option] { Changed(option); };
    if (!check.Create(parent, info.name, kLater)) return false;
    check.SetCaption(info.caption);
    return true;
}

bool FrmOptions::CreateList(const OptionInfo& info, platform::Window& parent) {
    List& list = ListAt(info.option);
    Attach(list);
    Explain(list, info);
    list.Click = [this, option = info.option](std::int16_t) { Changed(option); };
    controls::Label& label = At(info.option).label;
    if (!label.Create(parent, std::string("Lbl") + info.name, kLater)) return false;
    label.SetCaption(info.caption);
    return list.Create(parent, info.name, kLater);
}

bool FrmOptions::CreateSlider(const OptionInfo& info, platform::Window& parent) {
    Slider& slider = LevelSlider();
    Attach(slider);
    slider.Change = [this, option = info.option] { Changed(option); };
    if (!At(info.option).label.Create(parent, "LblTrans", kLater)) return false;
    if (!slider.Create(parent, info.name, kLater)) return false;
    slider.SetRange(kLeastTransLevel, kMostTransLevel, kLevelPage);
    return true;
}

bool FrmOptions::CreateButton(const OptionInfo& info, platform::Window& parent) {
    Button& button = *std::get_if<Button>(&At(info.option).control);
    Attach(button);
    Explain(button, info);
    button.Click = [this, option = info.option] { Changed(option); };
    if (!button.Create(parent, info.name, kLater)) return false;
    button.SetCaption(info.caption);
    return true;
}

template <class AnyControl>
void FrmOptions::Attach(AnyControl& control) {
    control.KeyFirst = [this](const platform::KeyEvent& event) { return TakeKey(event); };
    control.GotFocus = [this, &control] { focus_ = &control; };
}

template <class AnyControl>
void FrmOptions::Explain(AnyControl& control, const OptionInfo& info) {
    control.Hover = [this, &control, &info] { parts_.tips.Show(info.tipText, control, info.tipTitle, false); };
    control.Left = [this] { parts_.tips.Remove(); };
}

// ---- pages and keys ----

// Its button gets the focus: what had it may be on the page that goes.
void FrmOptions::ShowPage(OptionPage page) {
    parts_.tips.Remove();
    page_ = page;
    focus_ = &PageButton(page);
    focus_->focus();
    for (int i = 0; i < kOptionPages; ++i) {
        const auto each = static_cast<OptionPage>(i);
        PageButton(each).SetActive(each == page);
        PageAt(each).show(each == page ? platform::ShowCommand::Show : platform::ShowCommand::Hide);
    }
}

// The frame got the focus (the user comes back from another window): it belongs to a control.
void FrmOptions::onFocus(bool gained) {
    if (gained) focus_->focus();
}

// Keys count when they go down: one that ended a message box is let go over this dialog.
bool FrmOptions::TakeKey(const platform::KeyEvent& event) {
    if (!event.down || event.modifiers.alt || event.modifiers.shift) return false;
    if (PageKey(event.code, event.modifiers.ctrl)) return true;
    if (event.modifiers.ctrl) return false;
    if (event.code == key::kF1) {
        if (!event.repeat) Changed(Option::CmdHelp);
        return true;
    }
    if (event.code != key::kEscape) return false;
    // A dropped list closes first.
    const auto* list = dynamic_cast<const controls::FlatTinyCombo*>(focus_);
    if (list != nullptr && list->Dropped()) return false;
    Close();
    return true;
}

// Ctrl with Page Up and Page Down turns the pages, and so do the arrows on their buttons.
bool FrmOptions::PageKey(std::uint16_t code, bool ctrl) {
    const bool onButton = std::any_of(cmdFrame_.begin(), cmdFrame_.end(),
                                      [](const OptionsPageButton& button) { return button.focused(); });
    int step = 0;
    if (ctrl && code == key::kPageUp) step = -1;
    if (ctrl && code == key::kPageDown) step = 1;
    if (!ctrl && onButton && code == key::kLeft) step = -1;
    if (!ctrl && onButton && code == key::kRight) step = 1;
    if (step == 0) return false;
    ShowPage(static_cast<OptionPage>((static_cast<int>(page_) + step + kOptionPages) % kOptionPages));
    return true;
}

void FrmOptions::Close() {
    parts_.tips.Remove();
    destroy();
}

void FrmOptions::onDestroyed() {
    SaveLevel();
}

}  // namespace settings
