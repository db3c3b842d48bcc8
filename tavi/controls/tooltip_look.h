// Tooltips in the look of the active skin.
#pragma once

namespace tavi {

// From now on all tooltips of the process are painted so. Harmless when it is called again.
void useSkinForTooltips();

}  // namespace tavi
