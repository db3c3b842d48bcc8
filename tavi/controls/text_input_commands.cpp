// The keyboard's side of a text field: moves, deletions, shortcuts, the context menu.
#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "tavi/controls/context_menu.h"
#include "tavi/controls/edit_menu_texts.h"
#include "tavi/controls/text_input.h"

namespace tavi {
namespace {

struct Erasure {
    uint32_t code;
    uint32_t modifiers;
    TextStep step;
    bool forward;
};
constexpr Erasure kErasures[] = {{key::kBackspace, kNoModifier, TextStep::kCluster, false},
                                 {key::kBackspace, kShift, TextStep::kCluster, false},
                                 {key::kBackspace, kControlKey, TextStep::kWord, false},
                                 {key::kDelete, kNoModifier, TextStep::kCluster, true},
                                 {key::kDelete, kControlKey, TextStep::kWord, true}};

}  // namespace

bool TextInput::applies(Action action) const {
    const bool selected = !editor_.selection().empty();
    switch (action) {
        case Action::kUndo:
            return editable() && editor_.canUndo();
        case Action::kRedo:
            return editable() && editor_.canRedo();
        case Action::kCut:
        case Action::kErase:
            return editable() && selected;
        case Action::kCopy:
            return selected;
        case Action::kPaste:
            return editable() && window() != nullptr && !window()->clipboardText().empty();
        case Action::kSelectAll:
            return editor_.selection() != TextRange{0, text().size()};
    }
    return false;
}

// The field may be gone afterwards.
void TextInput::perform(Action action) {
    if (window() == nullptr || !applies(action)) {
        return;
    }
    switch (action) {
        case Action::kUndo:
            editor_.undo();
            return changed();
        case Action::kRedo:
            editor_.redo();
            return changed();
        case Action::kCut:
            window()->copyText(editor_.selectedText());
            editor_.remove(TextStep::kCluster, true);
            return changed();
        case Action::kCopy:
            return window()->copyText(editor_.selectedText());
        case Action::kPaste:
            return paste();
        case Action::kErase:
            editor_.remove(TextStep::kCluster, true);
            return changed();
        case Action::kSelectAll:
            return selectAll();
    }
}

void TextInput::paste() {
    editor_.endTyping();
    editor_.insert(window()->clipboardText());
    editor_.endTyping();
    changed();
}

bool TextInput::editCommand(EditCommand command) {
    constexpr std::pair<EditCommand, Action> kActions[] = {{EditCommand::Cut, Action::kCut},
                                                           {EditCommand::Copy, Action::kCopy},
                                                           {EditCommand::Paste, Action::kPaste},
                                                           {EditCommand::Clear, Action::kErase},
                                                           {EditCommand::Undo, Action::kUndo}};
    const auto* const row = std::ranges::find(kActions, command, &std::pair<EditCommand, Action>::first);
    if (row == std::end(kActions) || composing() || !applies(row->second)) {
        return false;
    }
    perform(row->second);
    return true;
}

bool TextInput::keyPress(KeyEvent& event) {
    // While an input method is at work the keys are its own.
    if (composing() || window() == nullptr) {
        return false;
    }
    if (event.code == key::kReturn && (event.modifiers & (kControlKey | kAlt)) == 0) {
        editor_.endTyping();
        return !commit();
    }
    return moveByKey(event) || eraseByKey(event) || commandByKey(event) || menuByKey(event);
}

// One cluster to the side, as the eye sees it; off a selection, to its edge on that side.
void TextInput::moveAcross(bool toTheRight, bool extend) {
    const TextRange selected = editor_.selection();
    if (extend || selected.empty()) {
        editor_.moveTo(line().visualNeighbor(editor_.caret(), toTheRight), extend);
        return;
    }
    const bool endIsRight = line().caretX(selected.begin) <= line().caretX(selected.end);
    editor_.moveTo(endIsRight == toTheRight ? selected.end : selected.begin, false);
}

bool TextInput::moveByKey(const KeyEvent& event) {
    const bool extend = (event.modifiers & kShift) != 0;
    const bool byWords = (event.modifiers & kControlKey) != 0;
    const bool toTheRight = event.code == key::kRight;
    if ((event.modifiers & kAlt) != 0) {
        return false;
    }
    if (event.code == key::kHome || event.code == key::kEnd) {
        editor_.move(TextStep::kEnd, event.code == key::kEnd, extend);
    } else if (event.code != key::kLeft && event.code != key::kRight) {
        return false;
    } else if (byWords) {
        editor_.move(TextStep::kWord, toTheRight != line().format().rightToLeft, extend);
    } else {
        moveAcross(toTheRight, extend);
    }
    caretMoved();
    return true;
}

bool TextInput::eraseByKey(const KeyEvent& event) {
    for (const Erasure& row : kErasures) {
        if (row.code == event.code && row.modifiers == event.modifiers) {
            if (editable()) {
                editor_.remove(row.step, row.forward);
                changed();
            }
            return true;
        }
    }
    return false;
}

bool TextInput::commandByKey(const KeyEvent& event) {
    struct Shortcut {
        uint32_t code;
        uint32_t modifiers;
        Action action;
    };
    // Exactly these modifiers: Ctrl and Alt together write characters on many keyboards.
    constexpr Shortcut kShortcuts[] = {
        {'A', kControlKey, Action::kSelectAll},     {'C', kControlKey, Action::kCopy},
        {'X', kControlKey, Action::kCut},           {'V', kControlKey, Action::kPaste},
        {'Z', kControlKey, Action::kUndo},          {'Y', kControlKey, Action::kRedo},
        {'Z', kControlKey | kShift, Action::kRedo}, {key::kInsert, kShift, Action::kPaste},
        {key::kInsert, kControlKey, Action::kCopy}, {key::kDelete, kShift, Action::kCut},
        {key::kBackspace, kAlt, Action::kUndo}};
    for (const Shortcut& row : kShortcuts) {
        if (row.code == event.code && row.modifiers == event.modifiers) {
            perform(row.action);
            return true;
        }
    }
    return false;
}

bool TextInput::menuByKey(const KeyEvent& event) {
    if ((event.code != key::kMenu || event.modifiers != kNoModifier) &&
        (event.code != key::kF10 || event.modifiers != kShift)) {
        return false;
    }
    if (const std::optional<Rect> caret = caretRectangle()) {
        openMenu({caret->x, caret->bottom()});
    }
    return true;
}

// Handles messages until it is closed. The field may be gone afterwards.
void TextInput::openMenu(Point at) {
    WindowFrame* const frame = window() != nullptr ? window()->frame() : nullptr;
    if (frame == nullptr) {
        return;
    }
    constexpr struct {
        std::wstring EditMenuTexts::* caption;  // null: a line between groups
        Action action;
    } kRows[] = {{&EditMenuTexts::undo, Action::kUndo},
                 {nullptr, Action::kUndo},
                 {&EditMenuTexts::cut, Action::kCut},
                 {&EditMenuTexts::copy, Action::kCopy},
                 {&EditMenuTexts::paste, Action::kPaste},
                 {&EditMenuTexts::erase, Action::kErase},
                 {nullptr, Action::kUndo},
                 {&EditMenuTexts::selectAll, Action::kSelectAll}};
    const EditMenuTexts texts = editMenuTexts();
    std::vector<MenuEntry> entries;
    for (const auto& row : kRows) {
        entries.push_back({.caption = row.caption != nullptr ? texts.*row.caption : std::wstring(),
                           .enabled = row.caption != nullptr && applies(row.action)});
    }
    // The menu takes the pointer itself.
    const WeakControl self(*this);
    window()->releasePointer();
    const Rect onScreen = frame->onScreen(Rect{at.x, at.y, 1, 1}.offset(clientOrigin()));
    const std::optional<size_t> chosen = showContextMenu(*frame, onScreen.position(), entries, window()->rightToLeft());
    if (self && chosen && *chosen < std::size(kRows)) {
        perform(kRows[*chosen].action);
    }
}

}  // namespace tavi
