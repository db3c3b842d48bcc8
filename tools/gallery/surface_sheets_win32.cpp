// Sheets of single surfaces: shapes in their states, gradients.
#include <windows.h>

#include <array>

#include "tavi/theme/skin_styles.h"
#include "tavi/theme/surface_drawing.h"
#include "tools/gallery/labels.h"
#include "tools/gallery/sheet.h"
#include "tools/gallery/sheets.h"
#include "tools/gallery/text.h"

namespace gallery {
namespace {

using tavi::Rect;
using tavi::SurfaceState;
using tavi::SurfaceStyle;

struct State {
    SurfaceState state;
    const wchar_t* name;
};
constexpr std::array kStates{State{SurfaceState::kNormal, L"normal"}, State{SurfaceState::kHot, L"hot"},
                             State{SurfaceState::kPressed, L"pressed"}, State{SurfaceState::kFocused, L"focused"},
                             State{SurfaceState::kDisabled, L"disabled"}};

void addShapes(Sheet& sheet, const tavi::SkinDefinition& skin) {
    HFONT__* const font = makeFont(skin.theme, Face::kUi, 100);
    for (const State& state : kStates) {
        for (int shape = 0; shape < tavi::kButtonShapeCount; ++shape) {
            tavi::StyleLook look = resolveStyle(skin, L"button", L"primary", state.state);
            look.surface.shape = static_cast<tavi::ButtonShape>(shape);
            const bool isFirst = shape == 0 && state.state == SurfaceState::kNormal;
            const Rect tile = sheet.add(isFirst ? skin.id : labelOf(look.surface.shape));
            tavi::drawSurface(sheet.target(), tile, look.surface);
            drawText(sheet.target(), tile, font, look.text, state.name, Align::kCentre, 4);
        }
    }
    DeleteObject(font);
}

}  // namespace

bool writeShapeSheet(const std::wstring& folder, const Skins& skins) {
    const int columns = tavi::kButtonShapeCount;
    const int rows = static_cast<int>(kStates.size() * skins.size());
    Sheet sheet({.columns = columns, .count = columns * rows, .tile = {116, 40}});
    for (const tavi::SkinDefinition& skin : skins) {
        addShapes(sheet, skin);
    }
    return sheet.save(folder + L"\\shapes.png");
}

bool writeGradientSheet(const std::wstring& folder) {
    SurfaceStyle style;
    style.shape = tavi::ButtonShape::kRoundedRect;
    style.border = tavi::hexColor(0x20242A);
    style.gradientStart = tavi::hexColor(0xF6D365);
    style.gradientMid = tavi::hexColor(0xD9566B);
    style.gradientEnd = tavi::hexColor(0x27306B);
    style.useGradient = true;
    style.useGradientMid = true;
    Sheet sheet({.columns = tavi::kGradientDirectionCount,
                 .count = tavi::kGradientKindCount * tavi::kGradientDirectionCount,
                 .tile = {178, 90}});
    for (int kind = 0; kind < tavi::kGradientKindCount; ++kind) {
        for (int direction = 0; direction < tavi::kGradientDirectionCount; ++direction) {
            style.gradientKind = static_cast<tavi::GradientKind>(kind);
            style.gradientDirection = static_cast<tavi::GradientDirection>(direction);
            const std::wstring label = labelOf(style.gradientKind) + L" " + labelOf(style.gradientDirection);
            tavi::drawSurface(sheet.target(), sheet.add(label), style);
        }
    }
    return sheet.save(folder + L"\\gradients.png");
}

}  // namespace gallery
