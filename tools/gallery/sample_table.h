// What stands where in the sample dialog.
#pragma once

#include "tavi/controls/glyphs.h"
#include "tavi/core/geometry.h"
#include "tavi/theme/skin_styles.h"
#include "tools/gallery/text.h"

namespace gallery {

using tavi::Glyph;

struct Piece {
    tavi::Rect area = {};  // design pixels
    const wchar_t* type = L"";
    const wchar_t* variant = L"default";
    const wchar_t* part = L"surface";  // empty: only the text
    tavi::SurfaceState state = tavi::SurfaceState::kNormal;
    const wchar_t* text = L"";
    Face face = Face::kUi;
    Align align = Align::kCentre;
    Glyph glyph = Glyph::kNone;
    bool isWindow = false;  // has the outline of the skin's windows
};

// In the order of painting.
inline constexpr Piece kPieces[] = {
    {.area = {0, 0, 690, 344}, .type = L"popup", .isWindow = true},

    {.area = {0, 0, 690, 34}, .type = L"chrometitlebar", .text = L"Sample dialog", .align = Align::kLeft},
    {.area = {612, 5, 34, 24}, .type = L"chrometitlebar", .part = L"button", .glyph = Glyph::kMinimize},
    {.area = {650, 5, 34, 24},
     .type = L"chrometitlebar",
     .part = L"button",
     .state = tavi::SurfaceState::kHot,
     .glyph = Glyph::kClose},

    {.area = {12, 42, 666, 46}, .type = L"popup", .part = L"header"},
    {.area = {38, 49, 32, 32}, .type = L"popup", .part = L"icon", .glyph = Glyph::kTick},
    {.area = {72, 42, 580, 46},
     .type = L"text",
     .variant = L"title",
     .part = L"",
     .text = L"Everything is ready",
     .face = Face::kTitle,
     .align = Align::kLeft},

    {.area = {12, 96, 330, 92}, .type = L"panel"},
    {.area = {14, 102, 326, 40},
     .type = L"text",
     .part = L"",
     .text = L"The volume is mounted after sign-in. Choose where the program goes.",
     .align = Align::kWrapped},
    {.area = {14, 144, 326, 40},
     .type = L"text",
     .variant = L"muted",
     .part = L"",
     .text = L"Nothing is written outside of this folder. You can change this later.",
     .align = Align::kWrapped},

    {.area = {12, 196, 330, 30},
     .type = L"textinput",
     .text = L"C:\\Program Files\\Sample",
     .face = Face::kMono,
     .align = Align::kLeft},

    {.area = {12, 237, 18, 18}, .type = L"checkbox", .state = tavi::SurfaceState::kChecked, .glyph = Glyph::kTick},
    {.area = {26, 234, 140, 24}, .type = L"text", .part = L"", .text = L"On the desktop", .align = Align::kLeft},
    {.area = {180, 237, 18, 18}, .type = L"checkbox"},
    {.area = {194, 234, 148, 24}, .type = L"text", .part = L"", .text = L"With Windows", .align = Align::kLeft},

    {.area = {12, 267, 330, 16}, .type = L"progressbar"},
    {.area = {14, 269, 326, 12}, .type = L"progressbar", .part = L"track"},
    {.area = {14, 269, 212, 12}, .type = L"progressbar", .part = L"fill"},

    {.area = {12, 296, 78, 28}, .type = L"statuschip", .variant = L"info", .text = L"Info"},
    {.area = {96, 296, 78, 28}, .type = L"statuschip", .variant = L"success", .text = L"Done"},
    {.area = {180, 296, 78, 28}, .type = L"statuschip", .variant = L"warning", .text = L"Careful"},
    {.area = {264, 296, 78, 28}, .type = L"statuschip", .variant = L"danger", .text = L"Failed"},

    {.area = {356, 96, 92, 32}, .type = L"button", .variant = L"primary-action", .text = L"Install"},
    {.area = {456, 96, 92, 32}, .type = L"button", .variant = L"secondary", .text = L"Repair"},
    {.area = {556, 96, 92, 32}, .type = L"button", .variant = L"danger", .text = L"Remove"},

    {.area = {356, 140, 67, 26},
     .type = L"button",
     .variant = L"primary-action",
     .state = tavi::SurfaceState::kHot,
     .text = L"Hot"},
    {.area = {431, 140, 67, 26},
     .type = L"button",
     .variant = L"primary-action",
     .state = tavi::SurfaceState::kPressed,
     .text = L"Down"},
    {.area = {506, 140, 67, 26},
     .type = L"button",
     .variant = L"primary-action",
     .state = tavi::SurfaceState::kFocused,
     .text = L"Focus"},
    {.area = {581, 140, 67, 26},
     .type = L"button",
     .variant = L"primary-action",
     .state = tavi::SurfaceState::kDisabled,
     .text = L"Off"},
    {.area = {356, 176, 67, 26},
     .type = L"button",
     .variant = L"secondary",
     .state = tavi::SurfaceState::kHot,
     .text = L"Hot"},
    {.area = {431, 176, 67, 26},
     .type = L"button",
     .variant = L"secondary",
     .state = tavi::SurfaceState::kPressed,
     .text = L"Down"},
    {.area = {506, 176, 67, 26},
     .type = L"button",
     .variant = L"secondary",
     .state = tavi::SurfaceState::kFocused,
     .text = L"Focus"},
    {.area = {581, 176, 67, 26},
     .type = L"button",
     .variant = L"secondary",
     .state = tavi::SurfaceState::kDisabled,
     .text = L"Off"},
    {.area = {356, 212, 67, 26},
     .type = L"button",
     .variant = L"danger",
     .state = tavi::SurfaceState::kHot,
     .text = L"Hot"},
    {.area = {431, 212, 67, 26},
     .type = L"button",
     .variant = L"danger",
     .state = tavi::SurfaceState::kPressed,
     .text = L"Down"},
    {.area = {506, 212, 67, 26},
     .type = L"button",
     .variant = L"danger",
     .state = tavi::SurfaceState::kFocused,
     .text = L"Focus"},
    {.area = {581, 212, 67, 26},
     .type = L"button",
     .variant = L"danger",
     .state = tavi::SurfaceState::kDisabled,
     .text = L"Off"},

    {.area = {356, 250, 142, 36}, .type = L"tooltip", .text = L"A tooltip explains."},
    {.area = {506, 250, 142, 36}, .type = L"card", .text = L"A card"},

    {.area = {356, 296, 92, 28}, .type = L"button", .variant = L"quiet", .text = L"Quiet"},
    {.area = {456, 296, 92, 28}, .type = L"button", .variant = L"success", .text = L"Success"},
    {.area = {556, 296, 92, 28}, .type = L"button", .variant = L"warning", .text = L"Warning"},

    {.area = {662, 96, 12, 228}, .type = L"scrollbar", .part = L"track"},
    {.area = {664, 132, 8, 72}, .type = L"scrollbar", .part = L"thumb"},
};

}  // namespace gallery
