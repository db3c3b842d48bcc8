#include "tavi/core/cache_release.h"

namespace tavi {

Signal<CacheRelease>& cachesReleased() {
    // Never destroyed: windows and caches may go after static objects have gone.
    static auto& signal = *new Signal<CacheRelease>;
    return signal;
}

}  // namespace tavi
