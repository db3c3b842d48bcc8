// The colors and fonts of every control. The defaults are the framework's own look, which a skin's "theme" section
// overwrites key by key.
#pragma once

#include <string>

#include "tavi/theme/color.h"

namespace tavi {

// Font sizes in points, weights as GDI counts them (400 normal, 700 bold).
struct Theme {
    Color frame = hexColor(0xA47A45);
    Color shell = hexColor(0x050A0F);
    Color panel = hexColor(0x07161D);
    Color header = hexColor(0x0C3A36);
    Color control = hexColor(0x08161C);
    Color controlHot = hexColor(0x1F5252);
    Color controlPressed = hexColor(0x124641);
    Color border = hexColor(0x224244);
    Color accent = hexColor(0xC49452);
    Color accentHot = hexColor(0xE2AA58);
    Color text = hexColor(0xD3E4DD);
    Color textHot = hexColor(0xF6EECF);
    Color mutedText = hexColor(0xB0CCC4);
    Color disabledText = hexColor(0x7A928C);
    Color disabledFill = hexColor(0x060B0D);
    std::wstring uiFontFamily = L"Bahnschrift";
    int uiPointSize = 10;
    int uiWeight = 600;
    std::wstring monoFontFamily = L"Cascadia Mono";
    int monoPointSize = 10;
    int monoWeight = 400;

    bool operator==(const Theme&) const = default;
};

}  // namespace tavi
