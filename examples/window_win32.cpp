// A window, the whole of it: controls that follow its size, a tooltip, a command that opens a dialog. Ctrl+F12 shows
// how the layout sees it.
#include <windows.h>

#include "examples/drawing.h"
#include "examples/push_button.h"
#include "tavi/core/dialog_window.h"
#include "tavi/core/drawing.h"
#include "tavi/core/window_tree.h"

namespace {

using example::PushButton;
using tavi::kAnchorBottom;
using tavi::kAnchorLeft;
using tavi::kAnchorRight;
using tavi::kAnchorTop;

// A panel with a ground and a line of text.
tavi::Panel* addCard(tavi::Panel& parent, const wchar_t* id, const tavi::Rect& bounds, const wchar_t* caption) {
    auto* const card = parent.add<tavi::Panel>(id, bounds);
    card->setText(caption);
    card->setPaintHook([card](HDC target, const tavi::Rect& area) {
        const tavi::Scale& scale = card->window()->scale();
        const int32_t margin = scale.length(12);
        tavi::fillRect(target, area, example::kPanel);
        tavi::frameRect(target, area, example::kLine);
        example::drawText(target, {area.x + margin, area.y + margin, area.width - 2 * margin, area.height - 2 * margin},
                          scale, card->text(), example::kMuted, example::Align::Left);
    });
    return card;
}

void showDialog(HINSTANCE instance, HWND owner, tavi::Control& answer) {
    tavi::DialogWindow dialog(instance);
    dialog.tree().setBackground(example::kGround);
    addCard(dialog.root(), L"question", {16, 16, 308, 84}, L"This dialog is modal: its owner waits until it ends.");
    auto* const yes = dialog.root().add<PushButton>(L"ok", tavi::Rect{126, 116, 94, 32}, L"OK");
    auto* const no = dialog.root().add<PushButton>(L"cancel", tavi::Rect{230, 116, 94, 32}, L"Cancel");
    yes->pressed.connect([&](tavi::CommandEvent&) { dialog.end(tavi::DialogResult::Ok); });
    no->pressed.connect([&](tavi::CommandEvent&) { dialog.end(tavi::DialogResult::Cancel); });
    dialog.setDefaultControl(yes);
    dialog.setCancelControl(no);
    if (dialog.create(
            {.title = L"Dialog", .clientSize = {340, 164}, .style = WS_CAPTION | WS_SYSMENU, .owner = owner})) {
        const int result = static_cast<int>(dialog.runModal());
        answer.setText(L"The dialog ended with result " + std::to_wstring(result) + L".");
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
    tavi::Window window(instance);
    window.tree().setBackground(example::kGround);
    tavi::Panel& root = window.root();

    auto* const header =
        addCard(root, L"header", {16, 16, 608, 64}, L"Anchored left and right: as wide as the window.");
    header->setAnchors(kAnchorLeft | kAnchorTop | kAnchorRight);
    auto* const side = addCard(root, L"side", {16, 92, 180, 196}, L"Anchored at the top and at the bottom.");
    side->setAnchors(kAnchorLeft | kAnchorTop | kAnchorBottom);
    auto* const page = addCard(root, L"page", {208, 92, 416, 196}, L"");
    page->setAnchors(kAnchorLeft | kAnchorTop | kAnchorRight | kAnchorBottom);
    page->setText(L"Anchored on all sides. The box below keeps half of its width, by constraints.");
    auto* const half = addCard(*page, L"half", {108, 116, 200, 56}, L"Half of the page.");
    half->setConstraints({.left = tavi::RelativeLength{0.25, 0}, .right = tavi::RelativeLength{0.75, 0}});
    half->setAnchors(kAnchorBottom);

    auto* const reset = root.add<PushButton>(L"reset", tavi::Rect{376, 304, 118, 36}, L"Reset size");
    auto* const open = root.add<PushButton>(L"open", tavi::Rect{506, 304, 118, 36}, L"Open dialog");
    for (PushButton* const button : {reset, open}) {
        button->setAnchors(kAnchorRight | kAnchorBottom);
    }
    reset->setTooltip(L"Gives the window back the size that it opened with.");
    reset->pressed.connect([&](tavi::CommandEvent&) { window.resetToDefaultSize(); });
    open->pressed.connect([&](tavi::CommandEvent&) { showDialog(instance, window.handle(), *header); });
    window.setDefaultControl(open);

    window.setMinimumClientSize({480, 320});
    window.setDefaultClientSize({640, 356});
    if (!window.create({.title = L"A window of tavi", .clientSize = {640, 356}})) {
        return 1;
    }
    return window.run();
}
