// Where a window's tooltips go.
#include <windows.h>

#include "tavi/core/drawing.h"
#include "tavi/core/window_native.h"

namespace tavi {

void WindowNative::showTooltip(const std::wstring& text, const Rect& anchor) {
    POINT corner{anchor.x, anchor.y};
    ClientToScreen(handle_, &corner);
    const Rect onScreen{corner.x, corner.y, anchor.width, anchor.height};
    const RECT onWhich = toWindows(onScreen);
    const Rect area = workAreaOf(MonitorFromRect(&onWhich, MONITOR_DEFAULTTONEAREST));
    const std::optional<TooltipPlace> place =
        tooltip_.show({.owner = handle_,
                       .content = {.text = text, .dpi = dpi_, .rightToLeft = tree_->rightToLeft()},
                       .anchor = onScreen,
                       .workArea = area});
    if (place && place->clamped() && tree_->diagnostics()) {
        tree_->writeDiagnostic(reportTooltipClamp(onScreen, place->bounds.size(), *place, area));
    }
}

void WindowNative::hideTooltip() {
    tooltip_.hide();
}

}  // namespace tavi
