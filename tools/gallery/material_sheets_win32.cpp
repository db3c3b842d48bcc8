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

// The colors in which a kind is usually seen: the material's own, and the second one of veins, flecks and lights.
struct KindColors {
    tavi::Color tint;
    tavi::Color second;
};
constexpr KindColors kKindColors[tavi::kMaterialKindCount - 1] = {
    {tavi::hexColor(0x5C7F8C), tavi::hexColor(0xBFE4EE)},  // glass
    {tavi::hexColor(0x7C919C), tavi::hexColor(0xDCE8EE)},  // frosted glass
    {tavi::hexColor(0x7A2F3C), tavi::hexColor(0xE08A96)},  // gloss
    {tavi::hexColor(0x767F88), tavi::hexColor(0xDCE4EA)},  // metal
    {tavi::hexColor(0x6E747A), tavi::hexColor(0xCBD2D8)},  // brushed metal
    {tavi::hexColor(0x2F6FA0), tavi::hexColor(0x9CCBEF)},  // plastic
    {tavi::hexColor(0x34363A), tavi::hexColor(0x6A6E74)},  // rubber
    {tavi::hexColor(0xB9AC90), tavi::hexColor(0xEFE6CF)},  // paper
    {tavi::hexColor(0x2A2E33), tavi::hexColor(0x7A838C)},  // carbon fiber
    {tavi::hexColor(0x1A1E26), tavi::hexColor(0x5A6A80)},  // obsidian glass
    {tavi::hexColor(0x8A0F22), tavi::hexColor(0xF04A5C)},  // blood gloss
    {tavi::hexColor(0xA8660E), tavi::hexColor(0xFFC860)},  // amber glass
    {tavi::hexColor(0x1C7A96), tavi::hexColor(0x6EF0FF)},  // luminous glass
    {tavi::hexColor(0x3F6A78), tavi::hexColor(0xA8DCE8)},  // layered glass
    {tavi::hexColor(0x0E7A50), tavi::hexColor(0x4EE8A8)},  // gemstone
    {tavi::hexColor(0x23242C), tavi::hexColor(0x6A6E88)},  // obsidian relief
    {tavi::hexColor(0x4A4C50), tavi::hexColor(0xB8B4AA)},  // granite
    {tavi::hexColor(0x3A3C44), tavi::hexColor(0xE4E4E0)},  // marble
};

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
        tavi::drawSurface(sheet.target(), sheet.add(labelOf(preset)), tileOf(material, material.control));
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
            const KindColors& colors = kKindColors[kind - 1];
            const MaterialProfile material{.strength = 140,
                                           .finish = static_cast<tavi::MaterialFinish>(finish),
                                           .tint = colors.tint,
                                           .backlightColor = colors.second};
            const std::wstring label = finish == 0 ? labelOf(named) : labelOf(material.finish);
            tavi::drawSurface(sheet.target(), sheet.add(label), tileOf(material, named));
        }
    }
    return sheet.save(folder + L"\\finishes.png");
}

}  // namespace gallery
