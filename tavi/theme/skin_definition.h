// One skin of a catalog, read.
#pragma once

#include <string>
#include <vector>

#include "tavi/theme/material_profile.h"
#include "tavi/theme/shape_set.h"
#include "tavi/theme/style_override.h"
#include "tavi/theme/theme.h"

namespace tavi {

struct SkinDefinition {
    std::wstring id;
    std::wstring name;
    std::wstring description;
    std::wstring category = L"custom";
    std::wstring harmony = L"custom";
    std::wstring source;  // the name of its catalog's file
    std::vector<std::wstring> tags;
    Theme theme;
    SurfaceMode surfaceMode = SurfaceMode::kSculpted3d;
    bool useFrameworkDefaults = false;
    MaterialProfile materials;
    ShapeSet shapes;
    std::vector<StyleOverride> styleOverrides;

    bool operator==(const SkinDefinition&) const = default;
};

}  // namespace tavi
