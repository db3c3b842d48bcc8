#include "tavi/core/message_translation.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tavi {
namespace {

// Bits of the key state that a pointer message carries (MK_LBUTTON to MK_XBUTTON2) and of a key message (the previous
// state).
constexpr std::pair<uintptr_t, PointerButton> kHeldButtons[] = {{0x0001, PointerButton::Left},
                                                                {0x0002, PointerButton::Right},
                                                                {0x0010, PointerButton::Middle},
                                                                {0x0020, PointerButton::X1},
                                                                {0x0040, PointerButton::X2}};
constexpr uintptr_t kShiftHeld = 0x0004;
constexpr uintptr_t kControlHeld = 0x0008;
constexpr intptr_t kWasDown = intptr_t{1} << 30;
constexpr double kWheelNotch = 120.0;

int16_t lowHalf(uintptr_t parameter) {
    return static_cast<int16_t>(parameter & 0xFFFF);
}
int16_t highHalf(uintptr_t parameter) {
    return static_cast<int16_t>((parameter >> 16) & 0xFFFF);
}

struct PointerRow {
    uint32_t message;
    PointerAction action;
    PointerButton button;
    int32_t clicks;
};
constexpr PointerRow kPointerRows[] = {
    {message::kMouseMove, PointerAction::Move, PointerButton::None, 0},
    {message::kLeftDown, PointerAction::Press, PointerButton::Left, 1},
    {message::kLeftUp, PointerAction::Release, PointerButton::Left, 1},
    {message::kLeftDouble, PointerAction::Press, PointerButton::Left, 2},
    {message::kRightDown, PointerAction::Press, PointerButton::Right, 1},
    {message::kRightUp, PointerAction::Release, PointerButton::Right, 1},
    {message::kRightDouble, PointerAction::Press, PointerButton::Right, 2},
    {message::kMiddleDown, PointerAction::Press, PointerButton::Middle, 1},
    {message::kMiddleUp, PointerAction::Release, PointerButton::Middle, 1},
    {message::kMiddleDouble, PointerAction::Press, PointerButton::Middle, 2},
    // Which of the two extra buttons it is stands in the parameter.
    {message::kExtraDown, PointerAction::Press, PointerButton::X1, 1},
    {message::kExtraUp, PointerAction::Release, PointerButton::X1, 1},
    {message::kExtraDouble, PointerAction::Press, PointerButton::X1, 2},
};

uint32_t modifiersOf(uintptr_t wParam, bool alt) {
    return (wParam & kShiftHeld ? kShift : kNoModifier) | (wParam & kControlHeld ? kControlKey : kNoModifier) |
           (alt ? kAlt : kNoModifier);
}

}  // namespace

Point pointOf(intptr_t parameter) {
    const auto bits = static_cast<uintptr_t>(parameter);
    return {lowHalf(bits), highHalf(bits)};
}

PointerMessage translatePointer(uint32_t message, uintptr_t wParam, intptr_t lParam, bool alt) {
    const auto row = std::ranges::find(kPointerRows, message, &PointerRow::message);
    PointerMessage translated;
    translated.event.position = pointOf(lParam);
    translated.event.modifiers = modifiersOf(wParam, alt);
    for (const auto& [bit, button] : kHeldButtons) {
        translated.event.held |= wParam & bit ? heldFlag(button) : 0;
    }
    if (row != std::end(kPointerRows)) {
        translated.action = row->action;
        translated.event.button =
            row->button == PointerButton::X1 && highHalf(wParam) == 2 ? PointerButton::X2 : row->button;
        translated.event.clicks = row->clicks;
    }
    return translated;
}

WheelEvent translateWheel(uint32_t message, uintptr_t wParam, Point client, bool alt) {
    return {.position = client,
            .steps = highHalf(wParam) / kWheelNotch,
            .horizontal = message == message::kHorizontalWheel,
            .modifiers = modifiersOf(wParam, alt)};
}

KeyEvent translateKey(uintptr_t wParam, intptr_t lParam, uint32_t modifiers) {
    return {.code = static_cast<uint32_t>(wParam),
            .modifiers = modifiers,
            .repeats = static_cast<int32_t>(lParam & 0xFFFF),
            .wasDown = (lParam & kWasDown) != 0};
}

std::optional<EditCommand> translateEditCommand(uint32_t message) {
    constexpr std::pair<uint32_t, EditCommand> kCommands[] = {{message::kCut, EditCommand::Cut},
                                                              {message::kCopy, EditCommand::Copy},
                                                              {message::kPaste, EditCommand::Paste},
                                                              {message::kClear, EditCommand::Clear},
                                                              {message::kUndo, EditCommand::Undo}};
    for (const auto& [number, command] : kCommands) {
        if (number == message) {
            return command;
        }
    }
    return std::nullopt;
}

std::wstring TextAssembler::add(uintptr_t unit) {
    const auto c = static_cast<wchar_t>(unit & 0xFFFF);
    const wchar_t high = std::exchange(high_, L'\0');
    if (c >= 0xD800 && c <= 0xDBFF) {
        high_ = c;
        return {};
    }
    if (c >= 0xDC00 && c <= 0xDFFF) {
        if (high == 0) {
            return {};
        }
        if constexpr (sizeof(wchar_t) == 2) {
            return {high, c};
        } else {
            return {static_cast<wchar_t>(0x10000 + ((high - 0xD800) << 10) + (c - 0xDC00))};
        }
    }
    const bool typed = (c >= L' ' && c != 0x7F) || c == L'\b' || c == L'\t' || c == L'\r';
    return typed ? std::wstring(1, c) : std::wstring();
}

}  // namespace tavi
