// A menu that opens at the pointer: a pop-up window in the look of the skin's menus.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "tavi/core/window_frame.h"

namespace tavi {

struct MenuEntry {
    std::wstring caption;  // empty: a line between groups
    std::wstring shortcut = {};
    bool enabled = true;
};

// Shows the menu at a point of the screen (device pixels) and handles messages until it is closed. The index of the
// entry that was chosen, or nothing. `owner` may be gone when it returns.
std::optional<size_t> showContextMenu(WindowFrame& owner, Point at, std::span<const MenuEntry> entries,
                                      bool rightToLeft);

}  // namespace tavi
