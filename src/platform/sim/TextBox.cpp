// The text box of the simulated desktop: a text, what of it is selected, and the keys that say what becomes of it.
#include "platform/TextBox.h"

#include <algorithm>

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMachine.h"

namespace platform {

using sim::WindowPointer;
using sim::WindowRecord;

namespace {

TextBox& boxOf(const WindowRecord& record) {
    return static_cast<TextBox&>(*record.object);
}

// A copy is called: the box may go with what it does.
void call(std::function<void()> function) {
    if (function) function();
}

}  // namespace

bool TextBox::createBox(Window& parent, const Rect& bounds) {
    if (!create({WindowKind::Child, "EDIT", "", &parent, bounds, true})) return false;
    const WindowPointer record = sim::findRecord(native());
    record->textBox = true;
    record->shown = false;
    return true;
}

void TextBox::selectAll() {
    if (const WindowPointer record = sim::findRecord(native())) record->selection = {0, record->title.size()};
}

namespace sim {

void sendBoxKey(const WindowPointer& box, std::uint16_t code, Modifiers modifiers) {
    if (code == key::kEnter) call(boxOf(*box).Accepted);
    if (code == key::kEscape) call(boxOf(*box).Cancelled);
    if (code == 'A' && modifiers.ctrl) boxOf(*box).selectAll();
}

void sendBoxFocusLost(const WindowPointer& box) {
    call(boxOf(*box).FocusLost);
}

void paintBox(const WindowRecord& box, Canvas& canvas, const Rect& dirty) {
    canvas.fill(dirty, systemColor(SysColor::Window));
    const Rect client = Rect::fromSize({}, clientSizeOf(box));
    canvas.text(client, box.title, systemColor(SysColor::WindowText), Font::Normal,
                kTextSingleLine | kTextNoPrefix);
}

void pasteText(const std::string& text) {
    typeText(text.substr(0, text.find_first_of("\r\n")));
}

void typeText(const std::string& text) {
    const WindowPointer box = findRecord(machine().desktop.focus);
    if (!box || !box->textBox || !takesInput(*box)) fail("typeText: no text box has the focus");
    Selection& selection = box->selection;
    box->title.replace(selection.from, selection.to - selection.from, text);
    selection.from = selection.to = selection.from + text.size();
    invalidateTree(*box);
}

}  // namespace sim

}  // namespace platform
