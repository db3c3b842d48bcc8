// How much of the costly painting this process does. Painting that is not told a profile follows this one.
#pragma once

#include "tavi/theme/enumerations.h"

namespace tavi {

// Balanced until it is set. Belongs to the UI thread. A change shows in the next paint; windows repaint when their
// owner asks them to.
void setPerformanceProfile(PerformanceProfile profile);
PerformanceProfile performanceProfile();

}  // namespace tavi
