// The choices that a skin makes by name. The values are fixed: the shader reads them as numbers. Their spellings stand
// in tables, each value with all of its spellings as one row (enumeration_names.cpp).
#pragma once

#include <cstdint>

namespace tavi {

enum class SurfaceMode : uint8_t { kFlat2d, kSculpted3d, kTextured, kBitmapPlates, kWindowsClean, kWindows11Modern };

// The outline of a surface; see shape.h for what is inside each.
enum class ButtonShape : uint8_t {
    kRectangle,
    kRoundedRect,
    kCapsule,
    kDiamond,
    kBeveled,
    kOctagon,
    kHexagon,
    kSlantRight,
    kSlantLeft
};
inline constexpr int kButtonShapeCount = 9;

enum class MaterialKind : uint8_t {
    kNone,
    kGlass,
    kFrostedGlass,
    kGloss,
    kMetal,
    kBrushedMetal,
    kPlastic,
    kRubber,
    kPaper,
    kCarbonFiber,
    kObsidianGlass,
    kBloodGloss,
    kAmberGlass,
    kLuminousGlass,
    kLayeredGlass,
    kGemstone,
    kObsidianRelief,
    kStoneGranite,
    kStoneMarble
};
inline constexpr int kMaterialKindCount = 19;

enum class MaterialFinish : uint8_t {
    kDefault,
    kPolished,
    kBrushed,
    kSatin,
    kMatte,
    kRough,
    kCracked,
    kHammered,
    kEtched,
    kFrosted,
    kWet
};
inline constexpr int kMaterialFinishCount = 11;

// Local maps a texture to each surface's own rectangle, global to the window, where neighbours continue one texture.
enum class MaterialMapping : uint8_t { kLocal, kGlobal };

enum class GradientKind : uint8_t { kLinear, kReflected, kRadial, kDiamond, kConic };
inline constexpr int kGradientKindCount = 5;

// Where a gradient leads: down, up, to the right, to the left, then the diagonals.
enum class GradientDirection : uint8_t {
    kVertical,
    kVerticalUp,
    kHorizontal,
    kHorizontalLeft,
    kDiagonalDown,
    kDiagonalDownReverse,
    kDiagonalUp,
    kDiagonalUpReverse
};
inline constexpr int kGradientDirectionCount = 8;

// How much of the costly painting is done.
enum class PerformanceProfile : uint8_t { kBestGraphics, kBalanced, kMaximumPerformance };

}  // namespace tavi
