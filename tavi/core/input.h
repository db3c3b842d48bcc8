// What a window tells its controls of mouse and keyboard: plain records, translated from messages by
// message_translation.h. Points are design pixels of the control that receives the record. A handler returns whether it
// has handled the event.
#pragma once

#include <cstdint>
#include <string>

#include "tavi/core/geometry.h"

namespace tavi {

// Keys held down with an event; flags.
enum KeyModifier : uint32_t { kNoModifier = 0, kShift = 1, kControlKey = 2, kAlt = 4 };

enum class PointerButton : uint8_t { None, Left, Right, Middle, X1, X2 };

// The flag of a button in a set of held ones.
constexpr uint32_t heldFlag(PointerButton button) {
    return 1U << static_cast<unsigned>(button);
}

struct PointerEvent {
    Point position;
    PointerButton button = PointerButton::None;  // the one that went down or up
    uint32_t held = 0;                           // the buttons that are down now, as flags
    uint32_t modifiers = kNoModifier;
    int32_t clicks = 1;  // 2 for the second press of a double click
};

struct WheelEvent {
    Point position;
    double steps = 0.0;  // notches: positive away from the person, or to the right
    bool horizontal = false;
    uint32_t modifiers = kNoModifier;
};

// Keys that the framework and its controls act on; their values are those of Windows' virtual-key codes. All others
// pass as codes.
namespace key {
inline constexpr uint32_t kBackspace = 0x08;
inline constexpr uint32_t kTab = 0x09;
inline constexpr uint32_t kReturn = 0x0D;
inline constexpr uint32_t kEscape = 0x1B;
inline constexpr uint32_t kSpace = 0x20;
inline constexpr uint32_t kPageUp = 0x21;
inline constexpr uint32_t kPageDown = 0x22;
inline constexpr uint32_t kEnd = 0x23;
inline constexpr uint32_t kHome = 0x24;
inline constexpr uint32_t kLeft = 0x25;
inline constexpr uint32_t kUp = 0x26;
inline constexpr uint32_t kRight = 0x27;
inline constexpr uint32_t kDown = 0x28;
inline constexpr uint32_t kInsert = 0x2D;
inline constexpr uint32_t kDelete = 0x2E;
inline constexpr uint32_t kMenu = 0x5D;
inline constexpr uint32_t kF4 = 0x73;
inline constexpr uint32_t kF10 = 0x79;
inline constexpr uint32_t kF12 = 0x7B;
}  // namespace key

struct KeyEvent {
    uint32_t code = 0;  // virtual-key code
    uint32_t modifiers = kNoModifier;
    int32_t repeats = 1;   // presses that this event stands for while a key is held
    bool wasDown = false;  // a repeat of a held key
};

// Characters as they were typed, whole code points (a surrogate pair where wchar_t has 16 bits), no control characters
// but those of the keys Backspace, Tab and Return.
struct TextInputEvent {
    std::wstring text;
};

// What an input method is composing: shown at the caret, not yet part of the text. An empty text ends it.
struct CompositionEvent {
    std::wstring text;
    int32_t caret = 0;  // position in `text`
};

enum class EditCommand : uint8_t { Cut, Copy, Paste, Clear, Undo };

}  // namespace tavi
