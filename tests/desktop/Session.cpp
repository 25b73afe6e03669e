#include "desktop/Session.h"

#include <cstdio>

#include "controls/ToolBarGeometry.h"

namespace desktop {

namespace {

constexpr int kHeaderHeight = 20;

// ToolBar1: twelve buttons in the groups of the main window.
controls::ToolBarLayout ToolBar1Layout() {
    controls::ToolBarLayout layout;
    layout.separators.assign(12, false);
    for (const std::size_t index : {0, 2, 5, 7, 9}) layout.separators[index] = true;
    return layout;
}

// ToolBar2: seven small ones in a row.
controls::ToolBarLayout ToolBar2Layout() {
    controls::ToolBarLayout layout;
    layout.size24 = false;
    layout.separators.assign(7, false);
    return layout;
}

}  // namespace

Installation::Installation() {
    static int number = 0;
    folder_ = "C:\\kestrum" + std::to_string(++number) + "\\";
    CreateDirectoryA(folder_.c_str(), nullptr);
    CopyFileA((ProductFolder() + "Kestrum2.exe").c_str(), (folder_ + "Kestrum2.exe").c_str(), FALSE);
    AddProgram("Target.exe");
    DeleteSettings();
}

std::string Installation::AddProgram(const std::string& name) const {
    CopyFileA((OwnFolder() + "Target.exe").c_str(), (folder_ + name).c_str(), FALSE);
    return folder_ + name;
}

void Installation::AddJr() const {
    CopyFileA((ProductFolder() + "Kestrum_Jr.exe").c_str(), (folder_ + "Kestrum_Jr.exe").c_str(), FALSE);
}

std::string FavoriteLine(const std::string& affinity, const std::string& priority, const std::string& path,
                         const std::string& param) {
    return path.substr(path.rfind('\\') + 1) + '\t' + affinity + '\t' + priority + '\t' + path + '\t' + param +
           "\r\n";
}

bool BecomesSet(const Process& target, DWORD_PTR affinity, DWORD priorityClass) {
    const DWORD start = GetTickCount();
    const bool set =
        WaitFor([&] { return target.Affinity() == affinity && target.PriorityClass() == priorityClass; }, 10000);
    std::printf("set after %lu ms: affinity %llx, class %lx\n", GetTickCount() - start,
                static_cast<unsigned long long>(target.Affinity()), target.PriorityClass());
    return set;
}

controls::UcListLayout List::Layout() const {
    static constexpr int kWidths[] = {134, 82, 60, 40, 60, 70};
    controls::UcListMetrics metrics;
    metrics.client = ClientRect(window_).size();
    metrics.headerHeight = kHeaderHeight;
    metrics.widths = kWidths;
    metrics.columnCount = metrics.drawnColumns = 6;
    metrics.listCount = 1000;
    controls::UcListLayout layout;
    controls::pvListInit(metrics, layout);
    return layout;
}

// Inside the frame of a list that has the focus.
Rect List::Row(int slot) const {
    const Rect row = Layout().RowRect(slot).inset(1, 1);
    return {row.left, row.top, row.left + 100, row.bottom};
}

int List::VisibleRows() const {
    return Layout().visibleRows;
}

bool List::HasText(int slot) const {
    return !Picture(window_, Row(slot)).Plain();
}

bool List::Selected(int slot) const {
    return Picture(window_, Row(slot)).Background() != Picture(window_, Row(VisibleRows() - 1)).Background();
}

Picture List::Header() const {
    const Rect client = ClientRect(window_);
    return {window_, {0, 0, client.right, kHeaderHeight}};
}

int List::FirstColumnEdge() const {
    constexpr int kAboveText = 3, kRightOfIcon = 60;
    const Picture header = Header();
    int x = kRightOfIcon;
    while (x < header.Width() - 1 && header.At(x, kAboveText) == header.At(kRightOfIcon, kAboveText)) ++x;
    return x;
}

bool List::ClickRow(int slot) const {
    return Repeat([&](int aside) { ClickRowWith(MouseKey::Left, slot, aside); }, [&] { return Selected(slot); });
}

bool List::SelectFirstTwo() const {
    return Repeat(
        [&](int aside) {
            ClickRowWith(MouseKey::Left, 0, aside);
            ClickRowWith(MouseKey::Left, 1, aside, true);
        },
        [&] { return Selected(0) && Selected(1); });
}

void List::ClickRowWith(MouseKey key, int slot, int aside, bool withCtrl) const {
    const Rect row = Row(slot);
    ClickScreen(ToScreen(window_, {row.left + 40 + aside, row.top + 8}), key, withCtrl);
}

std::vector<Picture> List::Rows(int width) const {
    std::vector<Picture> rows;
    for (int slot = 0; slot < VisibleRows() && HasText(slot); ++slot) {
        Rect row = Row(slot);
        row.right = row.left + width;
        rows.emplace_back(window_, row);
    }
    return rows;
}

Session::Session(const Installation& installation)
    : process_(std::make_unique<Process>(installation.Folder() + "Kestrum2.exe")) {
    main_ = WaitForWindow(*process_, "Form1", "Kestrum 2");
    if (main_ == nullptr) return;
    processes_ = List(Child(main_, "UcList1", "UcList11"));
    favorites_ = List(Child(main_, "UcList1", "UcList12"));
    toolBar1_ = Child(main_, "ToolBar", "ToolBar1");
    toolBar2_ = Child(main_, "ToolBar", "ToolBar2");
    splitter_ = Child(main_, nullptr, "SplitBar");
    if (!processes_.Window() || !favorites_.Window() || !toolBar1_ || !splitter_) main_ = nullptr;
    if (main_ == nullptr) return;
    SetForegroundWindow(main_);
    ParkPointer();
    WaitFor([this] { return processes_.HasText(1); });
}

Picture Session::ToolBar1Button(int button) const {
    return {toolBar1_, ToolBar1Layout().Button(button)};
}

bool Session::ToggleToolBar1(int button) const {
    const Rect rect = ToolBar1Layout().Button(button);
    ParkPointer();
    const Picture before = ToolBar1Button(button);
    return Repeat(
        [&](int aside) {
            Click(toolBar1_, {rect.left + 4 + aside, rect.top + 8});
        },
        [&] { return ToolBar1Button(button) != before; });
}

void Session::ClickToolBar1(int button) const {
    const Rect rect = ToolBar1Layout().Button(button);
    Click(toolBar1_, {rect.left + 8, rect.top + 8});
}

void Session::ClickToolBar2(int button, int aside) const {
    const Rect rect = ToolBar2Layout().Button(button);
    Click(toolBar2_, {rect.left + 6 + aside, rect.top + 8});
}

void Session::PressToolBar1(int button) const {
    const Rect rect = ToolBar1Layout().Button(button);
    ClickIn(toolBar1_, {rect.left + 8, rect.top + 8});
}

void Session::PressToolBar2(int button) const {
    const Rect rect = ToolBar2Layout().Button(button);
    ClickIn(toolBar2_, {rect.left + 6, rect.top + 8});
}

bool Session::End() {
    constexpr LPARAM kCloseApplication = 1;
    SendMessageA(main_, WM_QUERYENDSESSION, 0, kCloseApplication);
    SendMessageA(main_, WM_ENDSESSION, TRUE, kCloseApplication);
    return process_->WaitForEnd();
}

void Session::ClickCloseBox() const {
    PostMessageA(main_, WM_SYSCOMMAND, SC_CLOSE, 0);
}

}  // namespace desktop
