// The moment at which a window has all that it holds let go of what can be computed anew: its scale, the system's
// colors or the skin have changed. Controls are told by Control::releaseCaches; this is for caches of the process,
// which belong to no control.
#pragma once

#include "tavi/core/signal.h"

namespace tavi {

struct CacheRelease {};

// Emitted on the thread of the window, before its controls are told.
Signal<CacheRelease>& cachesReleased();

}  // namespace tavi
