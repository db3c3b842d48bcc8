// How well one color can be read on another.
#pragma once

#include "tavi/theme/color.h"

namespace tavi {

// The contrast ratio of WCAG 2: 1 for the same color up to 21 for black on white, whichever is the ground. 4.5 is what
// text needs.
double contrast(Color a, Color b);

}  // namespace tavi
