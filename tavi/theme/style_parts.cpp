#include "tavi/theme/style_parts.h"

#include <algorithm>

namespace tavi {
namespace {

template <auto kTarget>
ButtonShape of(const ShapeSet& shapes) {
    return shapes.*kTarget;
}

template <auto kTarget>
ButtonShape ofScrollBar(const ShapeSet& shapes) {
    return shapes.scrollbar.*kTarget;
}

ButtonShape rectangle(const ShapeSet&) {
    return ButtonShape::kRectangle;
}

using enum SurfaceRole;
using Set = ShapeSet;

constexpr StylePart kParts[] = {
    {L"text", L"surface", kNothing, rectangle},
    {L"button", L"surface", kRaised, of<&Set::buttonSecondary>},
    {L"bitmapbutton", L"surface", kRaised, of<&Set::buttonSecondary>},
    {L"panel", L"surface", kPanel, of<&Set::panel>},
    {L"card", L"surface", kPanel, of<&Set::cardSurface>},
    {L"card", L"header", kHeader, of<&Set::cardHeader>},
    {L"chrometitlebar", L"surface", kHeader, of<&Set::chrome>},
    {L"chrometitlebar", L"button", kRow, of<&Set::buttonSecondary>},
    {L"statuschip", L"surface", kRaised, of<&Set::statusChip>},
    {L"statuschip", L"icon", kAccent, of<&Set::statusBadge>},
    {L"progressbar", L"surface", kSunken, of<&Set::progressFrame>},
    {L"progressbar", L"track", kSunken, of<&Set::progressTrack>},
    {L"progressbar", L"fill", kAccent, of<&Set::progressFill>},
    {L"chart", L"surface", kPanel, of<&Set::panel>},
    {L"activitymetriccard", L"surface", kPanel, of<&Set::cardSurface>},
    {L"activitymetriccard", L"header", kHeader, of<&Set::cardHeader>},
    {L"media", L"surface", kPanel, of<&Set::panel>},
    {L"scrollbar", L"surface", kSunken, ofScrollBar<&ScrollBarShapes::track>},
    {L"scrollbar", L"track", kSunken, ofScrollBar<&ScrollBarShapes::track>},
    {L"scrollbar", L"thumb", kThumb, ofScrollBar<&ScrollBarShapes::thumb>},
    {L"scrollbar", L"button", kRaised, ofScrollBar<&ScrollBarShapes::button>},
    {L"separator", L"surface", kLine, rectangle},
    {L"checkbox", L"surface", kSunken, of<&Set::checkbox>},
    {L"checkbox", L"mark", kAccent, of<&Set::checkbox>},
    {L"selectbox", L"surface", kSunken, of<&Set::selectbox>},
    {L"selectbox", L"arrow", kRaised, of<&Set::selectboxArrow>},
    {L"selectbox", L"dropdown", kFloating, of<&Set::selectboxDropdown>},
    {L"selectbox", L"row", kRow, of<&Set::listboxSelectedRow>},
    {L"listbox", L"surface", kSunken, of<&Set::listbox>},
    {L"listbox", L"row", kRow, of<&Set::listboxSelectedRow>},
    {L"listbox", L"rail", kLine, of<&Set::listboxSelectedRail>},
    {L"dateinput", L"surface", kSunken, of<&Set::textInput>},
    {L"tabstrip", L"surface", kNothing, rectangle},
    {L"tabstrip", L"row", kRow, of<&Set::tabItem>},
    {L"menubar", L"surface", kHeader, of<&Set::menuBar>},
    {L"menubar", L"row", kRow, of<&Set::menuItem>},
    {L"menubar", L"dropdown", kFloating, of<&Set::menuPopup>},
    {L"tablelist", L"surface", kSunken, of<&Set::tableSurface>},
    {L"tablelist", L"header", kHeader, of<&Set::tableHeader>},
    {L"tablelist", L"row", kRow, of<&Set::tableSelectedRow>},
    {L"tablelist", L"rail", kLine, of<&Set::tableSelectedRail>},
    {L"richtext", L"surface", kPanel, of<&Set::richText>},
    {L"richtext", L"icon", kAccent, of<&Set::richTextIcon>},
    {L"textinput", L"surface", kSunken, of<&Set::textInput>},
    {L"textinput", L"button", kRaised, of<&Set::textInputAttachment>},
    {L"selectabletext", L"surface", kSunken, of<&Set::selectableText>},
    {L"popup", L"surface", kFloating, of<&Set::popupSurface>},
    {L"popup", L"header", kHeader, of<&Set::popupHeader>},
    {L"popup", L"icon", kAccent, of<&Set::popupIcon>},
    {L"tooltip", L"surface", kFloating, of<&Set::tooltip>},
    {L"tooltip", L"rail", kLine, of<&Set::tooltipRail>},
    {L"tooltip", L"icon", kAccent, of<&Set::tooltipIcon>},
    {L"window", L"surface", kWindow, of<&Set::window>},
};

constexpr StylePart kUnknown{L"", L"surface", kPanel, of<&Set::panel>};

const StylePart* find(std::wstring_view controlType, std::wstring_view part) {
    const auto found = std::ranges::find_if(
        kParts, [&](const StylePart& row) { return row.controlType == controlType && row.part == part; });
    return found != std::end(kParts) ? &*found : nullptr;
}

}  // namespace

std::span<const StylePart> styleParts() {
    return kParts;
}

const StylePart& stylePart(std::wstring_view controlType, std::wstring_view part) {
    const StylePart* row = find(controlType, part);
    if (row == nullptr) {
        row = find(controlType, L"surface");
    }
    return row != nullptr ? *row : kUnknown;
}

}  // namespace tavi
