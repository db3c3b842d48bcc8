#include "tavi/theme/skin_keys.h"

namespace tavi {
namespace {

constexpr SurfaceKey kSurfaceKeys[] = {
    {"shape", &SurfaceStyle::shape, "Its outline."},
    {"fill", &SurfaceStyle::fill, "Its color where there is no gradient."},
    {"border", &SurfaceStyle::border, "The color of its border."},
    {"shadow", &SurfaceStyle::shadow, "The color of the shadow that it casts."},
    {"glow", &SurfaceStyle::glow, "The color of the glow around it."},
    {"outline", &SurfaceStyle::outline, "The color of the outline around it."},
    {"noise", &SurfaceStyle::noise, "The color of the noise over it."},
    {"gradient_start gradientStart", &SurfaceStyle::gradientStart, "The color that the gradient begins with."},
    {"gradient_mid gradientMid", &SurfaceStyle::gradientMid, "The color in its middle."},
    {"gradient_end gradientEnd", &SurfaceStyle::gradientEnd, "The color that it ends with."},
    {"inner_shadow_color innerShadowColor inset_shadow_color insetShadowColor", &SurfaceStyle::innerShadowColor,
     "The color of the shadow inside the edge."},
    {"draw_fill drawFill", &SurfaceStyle::drawFill, "Whether it is filled."},
    {"draw_border drawBorder", &SurfaceStyle::drawBorder, "Whether it has a border."},
    {"show_shadow showShadow", &SurfaceStyle::showShadow, "Whether it casts a shadow."},
    {"show_inner_shadow showInnerShadow", &SurfaceStyle::showInnerShadow, "Whether there is a shadow inside its edge."},
    {"show_glow showGlow", &SurfaceStyle::showGlow, "Whether it glows."},
    {"show_outline showOutline", &SurfaceStyle::showOutline, "Whether it has an outline."},
    {"use_gradient useGradient", &SurfaceStyle::useGradient, "Whether it is filled with a gradient."},
    {"use_gradient_mid useGradientMid", &SurfaceStyle::useGradientMid,
     "Whether the gradient has a color in its middle."},
    {"use_nine_slice useNineSlice", &SurfaceStyle::useNineSlice, "Whether the borders of its picture keep their size."},
    {"use_noise useNoise", &SurfaceStyle::useNoise, "Whether there is noise over it."},
    {"use_skin_alpha_hit_test useSkinAlphaHitTest", &SurfaceStyle::useSkinAlphaHitTest,
     "Whether the pointer passes through where its picture is transparent."},
    {"opacity", &SurfaceStyle::opacity, "How opaque all of it is."},
    {"alpha_threshold alphaThreshold", &SurfaceStyle::alphaThreshold,
     "How opaque a pixel has to be to count as inside."},
    {"shadow_opacity shadowOpacity", &SurfaceStyle::shadowOpacity, "How opaque the shadow is."},
    {"glow_opacity glowOpacity", &SurfaceStyle::glowOpacity, "How opaque the glow is."},
    {"noise_opacity noiseOpacity", &SurfaceStyle::noiseOpacity, "How opaque the noise is."},
    {"shadow_offset_x shadowOffsetX", &SurfaceStyle::shadowOffsetX, "How far the shadow lies to the right, in pixels."},
    {"shadow_offset_y shadowOffsetY", &SurfaceStyle::shadowOffsetY, "How far the shadow lies below, in pixels."},
    {"glow_radius glowRadius", &SurfaceStyle::glowRadius, "How far the glow reaches, in pixels."},
    {"outline_width outlineWidth", &SurfaceStyle::outlineWidth, "The width of the outline, in pixels."},
    {"nine_slice.left nineSlice.left", &NineSlice::left, "The width of the left border of its picture, in pixels."},
    {"nine_slice.top nineSlice.top", &NineSlice::top, "The width of the upper border of its picture, in pixels."},
    {"nine_slice.right nineSlice.right", &NineSlice::right, "The width of the right border of its picture, in pixels."},
    {"nine_slice.bottom nineSlice.bottom", &NineSlice::bottom,
     "The width of the lower border of its picture, in pixels."},
    {"gradient_kind gradientKind gradient_type gradientType", &SurfaceStyle::gradientKind, "How the gradient runs."},
    {"gradient_direction gradientDirection", &SurfaceStyle::gradientDirection, "Where the gradient leads."},
    {"noise_seed noiseSeed", &SurfaceStyle::noiseSeed, "Equal numbers give equal noise."},
    {"material surface_material surfaceMaterial", &SurfaceStyle::material, "What it is made of."},
    {"preset material_preset materialPreset", PresetFill{},
     "A stone, gem or metal that it is made of, with all of its tuning."},
    {"image bitmap skin", &SurfaceStyle::image, "The file of a picture that it is drawn with."},
    {"geometry", &SurfaceStyle::geometry, "The part of the picture: \"x, y, width, height\" in its pixels."},
};

}  // namespace

std::span<const SurfaceKey> surfaceKeys() {
    return kSurfaceKeys;
}

}  // namespace tavi
