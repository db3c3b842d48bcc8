// A contact sheet: labelled tiles of one size in rows, on a ground that neither flatters light nor dark ones.
#pragma once

#include <string>
#include <string_view>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"
#include "tavi/theme/pixel_buffer.h"

struct HFONT__;

namespace gallery {

// An opaque picture that GDI draws on.
class Canvas {
public:
    explicit Canvas(tavi::Size size);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC target() const { return target_; }
    tavi::PixelBuffer picture() const;

private:
    tavi::Size size_;
    HDC target_ = nullptr;
    void* bitmap_ = nullptr;
    void* before_ = nullptr;
    const tavi::Pixel* pixels_ = nullptr;
};

// Half as wide and half as high, each pixel the mean of four.
tavi::PixelBuffer halved(const tavi::PixelBuffer& picture);

// Writes a PNG file without its alpha. False when it cannot be written.
bool savePng(const std::wstring& path, const tavi::PixelBuffer& picture);

inline constexpr int kLabelHeight = 20;  // below each tile

struct SheetLayout {
    int columns = 1;
    int count = 1;
    tavi::Size tile = {};  // pixels, as all here
    int gap = 16;
};

class Sheet {
public:
    explicit Sheet(const SheetLayout& layout);
    ~Sheet();
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    HDC target() const { return canvas_.target(); }
    // Where the next tile lies, its label written below it. Asked for as often as the layout counts.
    tavi::Rect add(std::wstring_view label);
    // The same at a place of one's own, as large as the picture that it shows.
    void addAt(tavi::Point place, std::wstring_view label, const tavi::PixelBuffer& picture);
    // The next tile shows the picture.
    void add(std::wstring_view label, const tavi::PixelBuffer& picture);
    bool save(const std::wstring& path) const { return savePng(path, canvas_.picture()); }

private:
    void write(const tavi::Rect& tile, std::wstring_view label);

    SheetLayout layout_;
    Canvas canvas_;
    HFONT__* font_;
    int used_ = 0;
};

}  // namespace gallery
