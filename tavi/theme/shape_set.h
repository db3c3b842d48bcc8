// The "shapes" section of a skin: the outline of everything that is drawn.
#pragma once

#include "tavi/theme/enumerations.h"

namespace tavi {

struct ScrollBarShapes {
    ButtonShape track = ButtonShape::kBeveled;
    ButtonShape thumb = ButtonShape::kBeveled;
    ButtonShape button = ButtonShape::kBeveled;
    // Pixels.
    int buttonExtent = 16;
    int minThumbExtent = 28;
    int trackPadding = 2;
    int trackThickness = 12;
    int thumbThickness = 8;
    bool showButtons = false;

    bool operator==(const ScrollBarShapes&) const = default;
};

// A window is a rectangle and everything else beveled, unless a skin says otherwise.
struct ShapeSet {
    ButtonShape window = ButtonShape::kRectangle;
    ButtonShape panel = ButtonShape::kBeveled;
    ButtonShape chrome = ButtonShape::kBeveled;
    ButtonShape statusChip = ButtonShape::kBeveled;
    ButtonShape statusBadge = ButtonShape::kBeveled;
    ButtonShape checkbox = ButtonShape::kBeveled;
    ButtonShape selectbox = ButtonShape::kBeveled;
    ButtonShape selectboxArrow = ButtonShape::kBeveled;
    ButtonShape selectboxDropdown = ButtonShape::kBeveled;
    ButtonShape listbox = ButtonShape::kBeveled;
    ButtonShape listboxRow = ButtonShape::kBeveled;
    ButtonShape listboxSelectedRow = ButtonShape::kBeveled;
    ButtonShape listboxSelectedRail = ButtonShape::kBeveled;
    ButtonShape tabItem = ButtonShape::kBeveled;
    ButtonShape menuBar = ButtonShape::kBeveled;
    ButtonShape menuItem = ButtonShape::kBeveled;
    ButtonShape menuPopup = ButtonShape::kBeveled;
    ButtonShape menuPopupItem = ButtonShape::kBeveled;
    ButtonShape richText = ButtonShape::kBeveled;
    ButtonShape richTextIcon = ButtonShape::kBeveled;
    ButtonShape textInput = ButtonShape::kBeveled;
    ButtonShape textInputAttachment = ButtonShape::kBeveled;
    ButtonShape selectableText = ButtonShape::kBeveled;
    ButtonShape tooltip = ButtonShape::kBeveled;
    ButtonShape tooltipRail = ButtonShape::kBeveled;
    ButtonShape tooltipIcon = ButtonShape::kBeveled;
    ButtonShape buttonPrimary = ButtonShape::kBeveled;
    ButtonShape buttonSecondary = ButtonShape::kBeveled;
    ButtonShape cardSurface = ButtonShape::kBeveled;
    ButtonShape cardHeader = ButtonShape::kBeveled;
    ButtonShape progressFrame = ButtonShape::kBeveled;
    ButtonShape progressTrack = ButtonShape::kBeveled;
    ButtonShape progressFill = ButtonShape::kBeveled;
    ButtonShape tableSurface = ButtonShape::kBeveled;
    ButtonShape tableHeader = ButtonShape::kBeveled;
    ButtonShape tableSelectedRow = ButtonShape::kBeveled;
    ButtonShape tableSelectedRail = ButtonShape::kBeveled;
    ButtonShape tableListboxSurface = ButtonShape::kBeveled;
    ButtonShape tableListboxSelectedRow = ButtonShape::kBeveled;
    ButtonShape tableListboxSelectedRail = ButtonShape::kBeveled;
    ButtonShape popupSurface = ButtonShape::kBeveled;
    ButtonShape popupHeader = ButtonShape::kBeveled;
    ButtonShape popupIcon = ButtonShape::kBeveled;
    ScrollBarShapes scrollbar;

    bool operator==(const ShapeSet&) const = default;
};

}  // namespace tavi
