// The pointer's side of a text field: caret, selection by dragging, double and triple clicks.
#include <algorithm>
#include <cstdlib>

#include "tavi/controls/text_input.h"

namespace tavi {
namespace {

constexpr std::chrono::milliseconds kTripleClickTime{500};
constexpr int32_t kTripleClickReach = 4;
constexpr int32_t kScrollMilliseconds = 50;

}  // namespace

// Windows counts to two; a press right behind a double click, at its place, is the third.
int32_t TextInput::countClicks(const PointerEvent& event) {
    const auto now = std::chrono::steady_clock::now();
    const Point moved = event.position - pressedAt_;
    const bool third = clicks_ == 2 && event.clicks == 1 && now - pressed_ <= kTripleClickTime &&
                       std::abs(moved.x) <= kTripleClickReach && std::abs(moved.y) <= kTripleClickReach;
    clicks_ = third ? 3 : event.clicks;
    pressed_ = now;
    pressedAt_ = event.position;
    return clicks_;
}

bool TextInput::pointerPress(PointerEvent& event) {
    if (window() == nullptr || (event.button != PointerButton::Left && event.button != PointerButton::Right)) {
        return false;
    }
    if (composing()) {
        return true;
    }
    if (event.button == PointerButton::Left) {
        beginDrag(event);
        return true;
    }
    // The menu is about what is selected, where it opens there.
    const size_t at = positionAt(event.position);
    const TextRange selected = editor_.selection();
    if (at < selected.begin || at > selected.end) {
        editor_.moveTo(at, false);
        caretMoved();
    }
    return true;
}

void TextInput::beginDrag(const PointerEvent& event) {
    const int32_t clicks = countClicks(event);
    const size_t at = positionAt(event.position);
    const bool extend = (event.modifiers & kShift) != 0;
    dragUnit_ = clicks == 1 ? DragUnit::kCluster : clicks == 2 ? DragUnit::kWord : DragUnit::kAll;
    dragFrom_ = dragUnit_ == DragUnit::kWord  ? wordAt(text(), clusterUnder(event.position))
                : dragUnit_ == DragUnit::kAll ? TextRange{0, text().size()}
                : extend                      ? TextRange{editor_.anchor(), editor_.anchor()}
                                              : TextRange{at, at};
    pointer_ = event.position;
    dragging_ = true;
    drag();
    // A pointer that rests beside the field goes on scrolling; the further away, the faster.
    window()->setControlTimer(*this, kScrollMilliseconds, [this] {
        const Rect area = textArea();
        if (pointer_.x < area.x || pointer_.x >= area.right()) {
            drag();
        }
    });
}

bool TextInput::pointerMove(PointerEvent& event) {
    if (dragging_) {
        pointer_ = event.position;
        drag();
    }
    return dragging_;
}

// Selects from what the press selected to what is under the pointer.
void TextInput::drag() {
    TextRange reach = {positionAt(pointer_), positionAt(pointer_)};
    if (dragUnit_ == DragUnit::kWord) {
        reach = wordAt(text(), clusterUnder(pointer_));
    } else if (dragUnit_ == DragUnit::kAll) {
        reach = dragFrom_;
    }
    const bool backwards = reach.begin < dragFrom_.begin;
    const size_t anchor = backwards ? dragFrom_.end : dragFrom_.begin;
    const size_t caret = backwards ? reach.begin : std::max(reach.end, dragFrom_.end);
    editor_.moveTo(anchor, false);
    editor_.moveTo(caret, true);
    caretMoved();
}

void TextInput::endDrag() {
    dragging_ = false;
    if (window() != nullptr && !focused_) {
        window()->setControlTimer(*this, 0);
    }
    showCaret();
}

bool TextInput::pointerRelease(PointerEvent& event) {
    if (event.button == PointerButton::Left && dragging_) {
        endDrag();
        return true;
    }
    if (event.button != PointerButton::Right || composing() || !localBounds().contains(event.position)) {
        return false;
    }
    openMenu(event.position);
    return true;
}

void TextInput::inputCancelled() {
    if (dragging_) {
        endDrag();
    }
}

}  // namespace tavi
