// The records that controls hand to the callbacks of application code (signal.h). A handler gets its record by
// reference and may write into it: where a record has `consumed`, setting it stops what the control would do next.
#pragma once

#include <cstdint>
#include <string>

namespace tavi {

class Control;

// A command was invoked: a button was pressed, a title-bar button, a menu entry.
struct CommandEvent {
    Control* source = nullptr;
    std::wstring command;   // its id, "ok" or "setup.chrome.minimize"
    bool consumed = false;  // the control's own action does not follow
};

// An item or a control was activated: a double click, Enter on a list's item.
struct ActivationEvent {
    Control* source = nullptr;
    std::wstring item;      // the item's id, empty for the control itself
    bool consumed = false;  // the item's own action does not follow
};

// An edit was committed: Enter, or the focus left the field.
struct CommitEvent {
    Control* source = nullptr;
    std::wstring text;
    bool consumed = false;  // refused: the control goes back to the text it had
};

// A value changed: a check box (0 or 1), a scroll bar, a progress bar.
struct ValueChangedEvent {
    Control* source = nullptr;
    double oldValue = 0.0;
    double newValue = 0.0;
};

// Another item was selected. Positions count from 0, -1 stands for none.
struct SelectionChangedEvent {
    Control* source = nullptr;
    int32_t oldIndex = -1;
    int32_t newIndex = -1;
};

// An item or a section was opened or closed.
struct ExpandedChangedEvent {
    Control* source = nullptr;
    std::wstring item;  // the item's id, empty for the control itself
    bool expanded = false;
};

// A control's pop-up has opened or closed.
struct PopupEvent {
    Control* source = nullptr;
    bool open = false;
    bool dismissed = false;  // closed without a choice
};

}  // namespace tavi
