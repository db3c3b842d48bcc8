// Where the dialog's controls lie in a language: where the table of dialog_model.h puts them while the texts fit, which
// they always do in English; else what has to give way does. The window grows in height, never in width. Pure; design
// pixels, as for a window that reads from left to right.
#pragma once

#include <cstdint>

#include "setup/dialog/dialog_model.h"
#include "tavi/core/geometry.h"

namespace velquin::setup {

// What the texts need at the scale of the window.
struct DialogMeasures {
    int32_t messageBottom = 0;  // the first row below the popup's message and its margin
    int32_t buttonsHeight = 0;  // what the popup needs below the controls that it keeps room for
    tavi::Size label = {};
    tavi::Size browse = {};
    tavi::Size startWithWindows = {};
    tavi::Size desktopShortcut = {};
};

struct DialogPlaces {
    tavi::Rect label = {};
    tavi::Rect pathInput = {};
    // Empty in the layout that does not have them.
    tavi::Rect browse = {};
    tavi::Rect startWithWindows = {};
    tavi::Rect desktopShortcut = {};
    int32_t reserved = 0;      // for these controls, below messageBottom
    int32_t neededHeight = 0;  // of the client area, at least the table's

    bool operator==(const DialogPlaces&) const = default;
};

// Places the controls in a client area `width` wide, at least as wide as the table's.
DialogPlaces placeDialog(bool installed, const DialogMeasures& measures, int32_t width);

}  // namespace velquin::setup
