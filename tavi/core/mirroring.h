// Layouts for languages that are written from right to left.
#pragma once

#include "tavi/core/control.h"

namespace tavi {

// Moves the control to the mirror image of its place: the one as far from the right edge of a parent `parentWidth` wide
// as it was from the left edge. Its anchors and constraints change sides with it. Controls inside of it stay where they
// are: a control that lays out its own children knows WindowHost::rightToLeft().
void mirror(Control& control, int32_t parentWidth);

}  // namespace tavi
