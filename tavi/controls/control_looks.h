// The looks of one control: each of its parts in each state, resolved from the active skin when they are first needed
// and kept until the skin, the control's appearance or the scale changes. A control has one as a member.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "tavi/core/control.h"
#include "tavi/theme/skin_styles.h"

namespace tavi {

// Controls paint their surface so far inside of their bounds, on each side: the mark of the focus lies around it, and
// nothing is painted outside of the bounds. Design pixels.
inline constexpr int32_t kSurfaceInset = 2;

// What a control is at a moment, from the strongest: disabled, pressed, hot, focused, normal.
struct Interaction {
    bool enabled = true;
    bool pressed = false;
    bool hot = false;
    bool focused = false;
};
SurfaceState stateOf(const Interaction& interaction);

// The same rectangle without so much of it on each side.
Rect insetBy(const Rect& area, int32_t horizontal, int32_t vertical);

// What the surface of a control painted at `origin` covers on the device: its bounds without kSurfaceInset.
Rect surfaceArea(const Control& control, Point origin);

// Keeps what lies around a surface, shadow, glow and outline, within so many device pixels: beyond the bounds of a
// control it would be cut off.
void fitAround(SurfaceStyle& style, int32_t room);

class ControlLooks {
public:
    explicit ControlLooks(std::wstring_view controlType) : type_(controlType) {}

    // At the scale of the control's window; what the control's appearance says counts above the skin: its colors of
    // the surface for the control itself, not for the parts on it. What is disabled keeps the skin's color of the text.
    const StyleLook& look(const Control& control, SurfaceState state, std::wstring_view part = L"surface") const;
    Color focusColor(const Control& control) const;
    // The appearance's font, else the theme's, that for code where the variant is "mono".
    TextFont font(const Control& control) const;
    // Dots an inch of the control's window.
    static int32_t dpi(const Control& control);

    // Paints a part of a control that is painted at `origin` into `local` (its own coordinates, design pixels), with
    // the mark of the focus around it where it is `focused`. Nothing of it reaches beyond the control's bounds.
    void paint(HDC target, const Control& control, Point origin, const Rect& local, SurfaceState state,
               std::wstring_view part = L"surface", bool focused = false) const;
    // The same into an area of device pixels.
    void paintArea(HDC target, const Control& control, Point origin, const Rect& area, SurfaceState state,
                   std::wstring_view part = L"surface", bool focused = false) const;

    // Paints the ground of a list or a menu that fills its pop-up window. Without its shadow, which would fall on
    // nothing but the corners of that window.
    void paintDropDown(HDC target, const Control& control, Point origin) const;

    // Lets go of all of them.
    void forget() const { looks_.clear(); }

private:
    void refresh(const Control& control) const;
    static const std::wstring& variantOf(const Appearance& appearance);

    std::wstring type_;
    mutable std::map<std::pair<SurfaceState, std::wstring>, StyleLook, std::less<>> looks_;
    mutable uint64_t generation_ = 0;
    mutable int32_t dpi_ = 0;
    mutable Appearance appearance_;
};

}  // namespace tavi
