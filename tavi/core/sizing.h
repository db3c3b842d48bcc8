// The sizes and places of windows on their monitors: pure rules in device pixels of the screen.
#pragma once

#include <string_view>

#include "tavi/core/geometry.h"

namespace tavi {

// The edges that a person can drag, with the numbers that WM_SIZING gives them.
enum class SizingEdge {
    Left = 1,
    Right = 2,
    Top = 3,
    TopLeft = 4,
    TopRight = 5,
    Bottom = 6,
    BottomLeft = 7,
    BottomRight = 8,
};

// Where a point lies on a window, with the numbers that WM_NCHITTEST gives.
enum class HitCode {
    Client = 1,
    Caption = 2,
    Left = 10,
    Right = 11,
    Top = 12,
    TopLeft = 13,
    TopRight = 14,
    Bottom = 15,
    BottomLeft = 16,
    BottomRight = 17,
};

// "WMSZ_LEFT", "HTCLIENT" and so on; the number itself for those that have no name here.
std::wstring describeSizingEdge(int edge);
std::wstring describeHitCode(int code);

// While an edge is dragged: only the dragged edges give way, so the window never slides. It stays between `minimum` and
// the size of its work area (which wins, so that no edge is out of reach), and the top edge, where the title bar is,
// stays within the work area. An edge that is none of the eight changes nothing.
Rect constrainSizingRect(const Rect& proposed, int edge, Size minimum, const Rect& workArea);

// A window at least as large as `minimum`, at most as large as the work area (which wins), and moved inside it.
Rect fitWindowRectToMinimumAndWorkArea(const Rect& window, Size minimum, const Rect& workArea);

// In the middle of `on`, moved inside the work area.
Rect centered(Size window, const Rect& on, const Rect& workArea);

// The frame of a window that draws its own: the outermost `border` pixels can be dragged, the corners twice as far
// along each edge. Client for all else, and for a window that cannot be sized (border 0).
HitCode hitTestFrame(Point inWindow, Size window, int32_t border);

}  // namespace tavi
