// The diagnostic lines of layout, composed only when somebody reads them.
#pragma once

#include <string>
#include <string_view>

#include "tavi/core/layout.h"

namespace tavi {

std::wstring reportFit(std::wstring_view control, const Rect& parentArea, const LayoutResult& result);
std::wstring reportClamp(std::wstring_view control, const Rect& parentArea, Size minimum, uint32_t anchors,
                         const LayoutResult& result);

// A child that cannot keep its minimum inside its parent's contour.
struct ContourFitReport {
    std::wstring_view parent;
    std::wstring_view control;
    Rect parentArea;
    Rect before;
    Rect after;
    Axes minimumCannotFit;
};
std::wstring reportContourFit(const ContourFitReport& fit);

struct OverlapReport {
    std::wstring_view parent;
    std::wstring_view first;
    Rect firstBounds;
    std::wstring_view second;
    Rect secondBounds;
};
std::wstring reportOverlap(const OverlapReport& overlap);

// `needed` is the child's extent that raised the hint to `hint`.
std::wstring reportHint(std::wstring_view panel, std::wstring_view child, bool visible, Size needed, Size hint);

// A control whose bounds had not settled after the rounds that layout grants.
std::wstring reportUnsettled(std::wstring_view control, const Rect& bounds);

}  // namespace tavi
