// The layout debug overlay: what it shows, its keys, and its picture as flat items. Drawn over the tree by the window.
//
// Ctrl+F12 turns it on and off. While it is on, Ctrl+Alt+F12 goes to its next mode, Shift+F12 shows control ids,
// Ctrl+Shift+F12 content rectangles, Alt+F12 contour lists, and F12 alone puts a description of the control under the
// pointer, the source of what is seen there, on the clipboard.
#pragma once

#include <string>
#include <vector>

#include "tavi/core/panel.h"
#include "tavi/core/window_platform.h"

namespace tavi {

enum class OverlayMode {
    Bounds,  // the bounds of every visible control
    Hot,     // only the control under the pointer and its parents
    Layout,  // what layout has changed: where the application put a control, beside where it lies
};
inline constexpr int kOverlayModes = 3;

struct OverlayState {
    bool on = false;
    OverlayMode mode = OverlayMode::Bounds;
    bool ids = false;
    bool content = false;
    bool contours = false;

    bool operator==(const OverlayState&) const = default;
};

enum class OverlayAction { None, Repaint, CopyContext };

// What a key does to the overlay. None for all keys that are not its own.
OverlayAction pressOverlayKey(OverlayState& state, const KeyEvent& event);

// "Ctrl+F12 UI debug | mode=… | … | hot=…"; `hot` is null when the pointer is over nothing.
std::wstring overlayStatusLine(const OverlayState& state, Point cursor, const Control* hot);

// What is put on the clipboard about a control: its path, bounds, layout and state, one thing a line.
std::wstring debugContext(const Control* hot, Point cursor);

std::vector<OverlayItem> overlayPicture(Panel& root, const OverlayState& state, Point cursor, Control* hot);

}  // namespace tavi
