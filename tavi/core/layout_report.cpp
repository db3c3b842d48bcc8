#include "tavi/core/layout_report.h"

namespace tavi {
namespace {

constexpr std::wstring_view kDiagnostic = L"[Tavi diagnostic] ";
constexpr std::wstring_view kWarning = L"[Tavi layout warning] ";

std::wstring_view axesName(const Axes& axes) {
    return axes.horizontal ? (axes.vertical ? L"width,height" : L"width") : L"height";
}

// A line of fields: "prefix name key=value key=value".
class Line {
public:
    Line(std::wstring_view prefix, std::wstring_view name) { text_.append(prefix).append(name); }
    Line& field(std::wstring_view key, std::wstring_view value) {
        text_.append(L" ").append(key).append(L"=").append(value);
        return *this;
    }
    template <typename Value>
        requires requires(const Value& value) { describe(value); }
    Line& field(std::wstring_view key, const Value& value) {
        return field(key, std::wstring_view(describe(value)));
    }
    std::wstring text() && { return std::move(text_); }

private:
    std::wstring text_;
};

}  // namespace

std::wstring reportFit(std::wstring_view control, const Rect& parentArea, const LayoutResult& result) {
    Line line(kDiagnostic, L"Control::applyParentLayout parent-fit");
    line.field(L"control", control)
        .field(L"parentArea", parentArea)
        .field(L"beforeFit", result.beforeFit.offset(parentArea.position()))
        .field(L"afterFit", result.bounds)
        .field(L"fitted", axesName(result.fitted));
    if (result.minimumCannotFit.any()) {
        line.field(L"minimumCannotFit", axesName(result.minimumCannotFit));
    }
    return std::move(line).text();
}

std::wstring reportClamp(std::wstring_view control, const Rect& parentArea, Size minimum, uint32_t anchors,
                         const LayoutResult& result) {
    return std::move(Line(kDiagnostic, L"Control::applyParentLayout clamp")
                         .field(L"control", control)
                         .field(L"parentArea", parentArea)
                         .field(L"beforeClamp", result.beforeClamp.offset(parentArea.position()))
                         .field(L"minimum", minimum)
                         .field(L"anchors", describeAnchors(anchors))
                         .field(L"clamped", axesName(result.clamped))
                         .field(L"afterClamp", result.beforeFit.offset(parentArea.position())))
        .text();
}

std::wstring reportContourFit(const ContourFitReport& fit) {
    return std::move(Line(kDiagnostic, L"Control::layoutChildren contour-fit")
                         .field(L"parent", fit.parent)
                         .field(L"control", fit.control)
                         .field(L"parentArea", fit.parentArea)
                         .field(L"beforeFit", fit.before)
                         .field(L"afterFit", fit.after)
                         .field(L"minimumCannotFit", axesName(fit.minimumCannotFit)))
        .text();
}

std::wstring reportOverlap(const OverlapReport& overlap) {
    return std::move(Line(kWarning, L"sibling overlap")
                         .field(L"parent", overlap.parent)
                         .field(L"first", overlap.first)
                         .field(L"firstBounds", overlap.firstBounds)
                         .field(L"second", overlap.second)
                         .field(L"secondBounds", overlap.secondBounds)
                         .field(L"overlap", intersection(overlap.firstBounds, overlap.secondBounds)))
               .text() +
           L". Use non-overlapping layout geometry; mark an intentional overlay with "
           L"Control::setLayoutOverlapAllowed(true).";
}

std::wstring reportHint(std::wstring_view panel, std::wstring_view child, bool visible, Size needed, Size hint) {
    return std::move(Line(kDiagnostic, L"Panel::minimumContentSizeHint")
                         .field(L"panel", panel)
                         .field(L"child", child)
                         .field(L"visible", visible ? L"true" : L"false")
                         .field(L"needed", needed)
                         .field(L"hint", hint))
        .text();
}

std::wstring reportUnsettled(std::wstring_view control, const Rect& bounds) {
    return std::move(
               Line(kDiagnostic, L"Control::layout unsettled").field(L"control", control).field(L"bounds", bounds))
        .text();
}

}  // namespace tavi
