// Sheets of materials on tiles of their own dark color.
#include <windows.h>

#include "tavi/theme/material_presets.h"
#include "tavi/theme/surface_cache.h"
#include "tavi/theme/surface_drawing.h"
#include "tools/gallery/labels.h"
#include "tools/gallery/sheet.h"
#include "tools/gallery/sheets.h"

namespace gallery {
namespace {

using tavi::MaterialProfile;
using tavi::SurfaceStyle;

// How much of a material's color its ground has, in 255 parts.
constexpr int kGroundTint = 110;

SurfaceStyle tileOf(const MaterialProfile& material, tavi::MaterialKind kind) {
    const tavi::Color ground = tavi::mixed(tavi::hexColor(0x0A0C0F), material.tint, kGroundTint);
    SurfaceStyle style;
    style.shape = tavi::ButtonShape::kRoundedRect;
    style.fill = ground;
    style.border = tavi::mixed(ground, material.tint, 128);
    style.material = kind;
    style.tuning = material;
    return style;
}

}  // namespace

bool writePresetSheet(const std::wstring& folder) {
    Sheet sheet({.columns = 8, .count = tavi::kMaterialPresetCount, .tile = {160, 100}});
    for (int i = 0; i < tavi::kMaterialPresetCount; ++i) {
        const auto preset = static_cast<tavi::MaterialPreset>(i);
        const MaterialProfile& material = tavi::materialPreset(preset);
        tavi::drawSurface(sheet.target(), sheet.add(labelOf(preset)), tileOf(material, material.surface));
    }
    return sheet.save(folder + L"\\presets.png");
}

bool writeFinishSheet(const std::wstring& folder) {
    Sheet sheet({.columns = tavi::kMaterialFinishCount,
                 .count = tavi::kMaterialFinishCount * (tavi::kMaterialKindCount - 1),
                 .tile = {112, 70},
                 .gap = 10});
    for (int kind = 1; kind < tavi::kMaterialKindCount; ++kind) {
        for (int finish = 0; finish < tavi::kMaterialFinishCount; ++finish) {
            const auto named = static_cast<tavi::MaterialKind>(kind);
            const MaterialProfile material{.strength = 160, .finish = static_cast<tavi::MaterialFinish>(finish)};
            const std::wstring label = finish == 0 ? labelOf(named) : labelOf(material.finish);
            tavi::drawSurface(sheet.target(), sheet.add(label), tileOf(material, named));
        }
    }
    return sheet.save(folder + L"\\finishes.png");
}

}  // namespace gallery
