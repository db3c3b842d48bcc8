// What controls are made of, as a table: each part of each control type, what kind of surface it is, and which target
// of a skin's shapes it follows.
#pragma once

#include <span>
#include <string_view>

#include "tavi/theme/shape_set.h"

namespace tavi {

// Kinds of surfaces, from what lies deepest to what stands out.
enum class SurfaceRole : uint8_t {
    kNothing,   // text only
    kWindow,    // the ground of a window
    kPanel,     // large, calm
    kHeader,    // title bars, heads of tables and popups
    kSunken,    // what is filled in: inputs, tracks
    kRaised,    // what is pressed: buttons
    kFloating,  // what lies above the window: popups, tooltips
    kAccent,    // what shows a value: the fill of a progress bar, a tick
    kThumb,     // what is dragged
    kRow,       // one of many in a list, seen only when it is hot or selected
    kLine,      // separators, rails
};

struct StylePart {
    std::wstring_view controlType;  // canonical
    std::wstring_view part;         // "surface" for the control itself
    SurfaceRole role;
    ButtonShape (*shape)(const ShapeSet& shapes);
};
std::span<const StylePart> styleParts();

// The row of a part; that of a type's surface for a part that it does not have, a panel for a type that nobody knows.
const StylePart& stylePart(std::wstring_view controlType, std::wstring_view part);

}  // namespace tavi
