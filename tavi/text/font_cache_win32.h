// Fonts of GDI with what was learnt about them, kept while texts use them and until caches are released.
#pragma once

#include <windows.h>

#include <usp10.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tavi/core/text_font.h"

namespace tavi {

// A device without pixels to measure on, with a font selected as long as one is asked for.
class MeasuringDevice {
public:
    MeasuringDevice() : device_(CreateCompatibleDC(nullptr)), before_(GetCurrentObject(device_, OBJ_FONT)) {}
    ~MeasuringDevice() {
        SelectObject(device_, before_);
        DeleteDC(device_);
    }
    MeasuringDevice(const MeasuringDevice&) = delete;
    MeasuringDevice& operator=(const MeasuringDevice&) = delete;

    HDC with(HFONT font) const {
        SelectObject(device_, font);
        return device_;
    }

private:
    HDC device_;
    HGDIOBJ before_;
};

class FontFace {
public:
    FontFace(const std::wstring& family, int height, int weight);
    ~FontFace();
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    HFONT handle() const { return font_; }
    // What Uniscribe keeps about the font.
    SCRIPT_CACHE* scriptCache() const { return &cache_; }
    int32_t ascent() const { return ascent_; }
    int32_t descent() const { return descent_; }
    // Whether the font has this family and is not another one that the system has put in its place.
    bool isGenuine() const { return isGenuine_; }
    // Whether it has pictures for all characters. Invisible ones need none; those beyond U+FFFF are taken for had, see
    // drawsSurrogatePairs.
    bool hasGlyphs(const MeasuringDevice& device, std::wstring_view text) const;
    // Whether it knows how to shape one of the scripts, tags of OpenType of four characters each; true for none.
    bool canShape(std::string_view scriptTags) const;

private:
    void readScripts(HDC device);

    HFONT font_ = nullptr;
    mutable SCRIPT_CACHE cache_ = nullptr;
    int32_t ascent_ = 0;
    int32_t descent_ = 0;
    bool isGenuine_ = false;
    std::vector<std::string> scripts_;
};

// Never null. An empty family is the system's own.
std::shared_ptr<const FontFace> findFontFace(const std::wstring& family, const TextFont& font, int32_t dpi);

}  // namespace tavi
