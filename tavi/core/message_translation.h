// Windows' input messages as event records. Pure: message numbers and parameters in, records out; points stay device
// pixels of the client area.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tavi/core/input.h"

namespace tavi {

// Message numbers of the Windows API that mean input (winuser.h; the window checks them against it).
namespace message {
inline constexpr uint32_t kLeftDown = 0x0201;
inline constexpr uint32_t kLeftUp = 0x0202;
inline constexpr uint32_t kLeftDouble = 0x0203;
inline constexpr uint32_t kRightDown = 0x0204;
inline constexpr uint32_t kRightUp = 0x0205;
inline constexpr uint32_t kRightDouble = 0x0206;
inline constexpr uint32_t kMiddleDown = 0x0207;
inline constexpr uint32_t kMiddleUp = 0x0208;
inline constexpr uint32_t kMiddleDouble = 0x0209;
inline constexpr uint32_t kWheel = 0x020A;
inline constexpr uint32_t kExtraDown = 0x020B;
inline constexpr uint32_t kExtraUp = 0x020C;
inline constexpr uint32_t kExtraDouble = 0x020D;
inline constexpr uint32_t kHorizontalWheel = 0x020E;
inline constexpr uint32_t kMouseMove = 0x0200;
inline constexpr uint32_t kCut = 0x0300;
inline constexpr uint32_t kCopy = 0x0301;
inline constexpr uint32_t kPaste = 0x0302;
inline constexpr uint32_t kClear = 0x0303;
inline constexpr uint32_t kUndo = 0x0304;
}  // namespace message

// The two signed halves of a parameter: x in the low one, negative on a monitor to the left of the first.
Point pointOf(intptr_t parameter);

enum class PointerAction { Move, Press, Release };

struct PointerMessage {
    PointerAction action = PointerAction::Move;
    PointerEvent event;
};

// Shift and Control come with the message, Alt does not.
PointerMessage translatePointer(uint32_t message, uintptr_t wParam, intptr_t lParam, bool alt);

// The message gives its point on the screen; `client` is that point in the client area. A notch is 120 units.
WheelEvent translateWheel(uint32_t message, uintptr_t wParam, Point client, bool alt);

KeyEvent translateKey(uintptr_t wParam, intptr_t lParam, uint32_t modifiers);

// None for messages that are no edit command.
std::optional<EditCommand> translateEditCommand(uint32_t message);

// Puts the units of WM_CHAR together: a surrogate waits for its partner, alone it is dropped, and so are control
// characters other than Backspace, Tab and Return.
class TextAssembler {
public:
    // Empty while the text is not complete or is nothing to type.
    std::wstring add(uintptr_t unit);

private:
    wchar_t high_ = 0;
};

}  // namespace tavi
