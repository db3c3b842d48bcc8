#include "tavi/theme/skin_keys.h"

namespace tavi {
namespace {

constexpr MaterialKey kMaterialKeys[] = {
    {"preset material_preset materialPreset", PresetFill{},
     "A stone, gem or metal that fills all of the profile, before the other keys change it."},
    {"surface material main", &MaterialProfile::surface, "The material of large surfaces: windows and panels."},
    {"control controls", &MaterialProfile::control, "The material of controls."},
    {"accent accented highlight", &MaterialProfile::accent, "The material of accented parts."},
    {"strength material_strength materialStrength", &MaterialProfile::strength, "How strongly the material shows."},
    {"flame_response flameResponse animated_flame_response animatedFlameResponse", &MaterialProfile::flameResponse,
     "How much the surface answers to a flickering flame."},
    {"flame_glint flameGlint flame_specular flameSpecular animated_flame_glint animatedFlameGlint",
     &MaterialProfile::flameGlint, "How bright the highlights of the flame are."},
    {"flame_wind_strength flameWindStrength flame_gust flameGust flame_airflow flameAirflow",
     &MaterialProfile::flameWindStrength, "How far the flame sways."},
    {"flame_surface_blend flameSurfaceBlend flame_control_blend flameControlBlend", &MaterialProfile::flameSurfaceBlend,
     "How much of the flame shows on surfaces."},
    {"flame_resolution flameResolution animated_flame_resolution animatedFlameResolution flame_render_resolution "
     "flameRenderResolution",
     &MaterialProfile::flameResolution, "How finely the flame is computed."},
    {"highlight_opacity highlightOpacity", &MaterialProfile::highlightOpacity, "How opaque highlights are."},
    {"reflection_opacity reflectionOpacity", &MaterialProfile::reflectionOpacity, "How opaque reflections are."},
    {"grain_opacity grainOpacity", &MaterialProfile::grainOpacity, "How opaque the grain is."},
    {"depth material_depth materialDepth relief bump_depth bumpDepth", &MaterialProfile::depth,
     "How deep the relief is."},
    {"backlight_opacity backlightOpacity", &MaterialProfile::backlightOpacity,
     "How much light shines through from behind."},
    {"inner_glow innerGlow", &MaterialProfile::innerGlow, "How much the material glows from inside."},
    {"rim_light rimLight", &MaterialProfile::rimLight, "How bright the rim is lit."},
    {"roughness material_roughness materialRoughness", &MaterialProfile::roughness,
     "How rough the material is: rough ones have wide, soft highlights."},
    {"specular material_specular materialSpecular shine shininess", &MaterialProfile::specular,
     "How strongly it mirrors the light."},
    {"ambient_occlusion ambientOcclusion occlusion contact_shadow contactShadow", &MaterialProfile::ambientOcclusion,
     "How dark corners and hollows are."},
    {"edge_wear edgeWear edge_highlight edgeHighlight", &MaterialProfile::edgeWear,
     "How worn and bright the edges are."},
    {"inner_shadow innerShadow inner_shadow_opacity innerShadowOpacity inset_shadow insetShadow",
     &MaterialProfile::innerShadow, "How dark the shadow inside the edge is."},
    {"inner_shadow_size innerShadowSize inner_shadow_radius innerShadowRadius inset_shadow_size insetShadowSize",
     &MaterialProfile::innerShadowSize, "How far the shadow inside the edge reaches, in pixels."},
    {"texture_opacity textureOpacity texture_strength textureStrength texture_mix textureMix",
     &MaterialProfile::textureOpacity, "How opaque the texture is."},
    {"light_angle lightAngle material_light_angle materialLightAngle", &MaterialProfile::lightAngle,
     "Where the light comes from, in degrees clockwise from the right: -90 is above."},
    {"light_elevation lightElevation material_light_elevation materialLightElevation", &MaterialProfile::lightElevation,
     "How high the light stands: 0 grazing, 255 upright."},
    {"scale material_scale materialScale", &MaterialProfile::scale,
     "The size of the features of the texture, in pixels."},
    {"angle material_angle materialAngle", &MaterialProfile::angle, "How far the texture is turned, in degrees."},
    {"light_blob_scale lightBlobScale", &MaterialProfile::lightBlobScale, "The size of the pools of light, in pixels."},
    {"light_blob_angle lightBlobAngle", &MaterialProfile::lightBlobAngle,
     "How far the pools of light are turned, in degrees."},
    {"animation_speed animationSpeed", &MaterialProfile::animationSpeed, "How fast what moves moves; 0 stands still."},
    {"finish surface_finish surfaceFinish material_finish materialFinish", &MaterialProfile::finish,
     "How the material is worked."},
    {"uv_mapping uvMapping mapping material_mapping materialMapping", &MaterialProfile::uvMapping,
     "Whether each surface has a texture of its own or all of a window continue one."},
    {"uv_scale uvScale mapping_scale mappingScale", &MaterialProfile::uvScale,
     "After how many pixels a texture that is continued repeats."},
    {"uv_offset_x uvOffsetX mapping_offset_x mappingOffsetX", &MaterialProfile::uvOffsetX,
     "How far a texture that is continued is moved to the right, in pixels."},
    {"uv_offset_y uvOffsetY mapping_offset_y mappingOffsetY", &MaterialProfile::uvOffsetY,
     "How far a texture that is continued is moved down, in pixels."},
    {"tint material_tint materialTint", &MaterialProfile::tint, "The color of the material."},
    {"backlight_color backlightColor", &MaterialProfile::backlightColor, "The color of the light from behind."},
    {"flame_color flameColor animated_flame_color animatedFlameColor", &MaterialProfile::flameColor,
     "The color of the flame."},
    {"gradient_kind gradientKind gradient_type gradientType", &MaterialProfile::gradientKind,
     "How colors run across the material."},
    {"gradient_direction gradientDirection", &MaterialProfile::gradientDirection, "Where the colors lead."},
    {"enabled", &MaterialProfile::enabled, "Whether surfaces show their material at all."},
};

}  // namespace

std::span<const MaterialKey> materialKeys() {
    return kMaterialKeys;
}

const SpellingIndex& materialKeyIndex() {
    static const SpellingIndex kIndex(materialKeys());
    return kIndex;
}

}  // namespace tavi
