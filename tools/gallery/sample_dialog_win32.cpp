#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "tavi/controls/glyphs.h"
#include "tavi/core/drawing.h"
#include "tavi/core/scale.h"
#include "tavi/theme/skin_styles.h"
#include "tavi/theme/surface_drawing.h"
#include "tools/gallery/sample_dialog.h"
#include "tools/gallery/sample_table.h"

namespace gallery {
namespace {

using tavi::Rect;
using tavi::StyleLook;
using tavi::SurfaceStyle;

constexpr int kTextInset = 10;

int lightness(tavi::Color color) {
    return 2 * tavi::redOf(color) + 5 * tavi::greenOf(color) + tavi::blueOf(color);
}

// Of a skin's text and its ground the one that stands out more from the surface.
tavi::Color standingOut(const SurfaceStyle& surface, const tavi::Theme& theme) {
    const int below = surface.useGradient ? (lightness(surface.gradientStart) + lightness(surface.gradientEnd)) / 2
                                          : lightness(surface.fill);
    const auto contrast = [&](tavi::Color color) { return std::abs(lightness(color) - below); };
    return contrast(theme.text) > contrast(theme.shell) ? theme.text : theme.shell;
}

// A tick in a box is a part of its own; one on a popup's icon has to be seen, whatever the icon looks like.
tavi::Color glyphColor(const tavi::SkinDefinition& skin, const Piece& piece, const StyleLook& look) {
    if (piece.type == std::wstring_view(L"checkbox")) {
        return resolveStyle(skin, piece.type, piece.variant, piece.state, L"mark").surface.fill;
    }
    return piece.part == std::wstring_view(L"icon") ? standingOut(look.surface, skin.theme) : look.text;
}

}  // namespace

struct SampleDialog::Look {
    const Piece* piece;
    Rect area;  // device pixels
    SurfaceStyle surface;
    tavi::Color text;
    tavi::Color glyph;
};

struct SampleDialog::Fonts {
    std::array<HFONT, kFaceCount> handles{};

    Fonts(const tavi::Theme& theme, int percent) {
        for (size_t i = 0; i < handles.size(); ++i) {
            handles[i] = makeFont(theme, static_cast<Face>(i), percent);
        }
    }
    ~Fonts() {
        for (const HFONT font : handles) {
            DeleteObject(font);
        }
    }
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;
    HFONT of(Face face) const { return handles[static_cast<size_t>(face)]; }
};

SampleDialog::SampleDialog(const tavi::SkinDefinition& skin, int percent)
    : percent_(percent), ground_(skin.theme.shell), fonts_(std::make_unique<Fonts>(skin.theme, percent)) {
    const tavi::Scale scale(96 * percent / 100);
    for (const Piece& piece : kPieces) {
        const std::wstring_view part = *piece.part == L'\0' ? L"surface" : piece.part;
        const StyleLook look = resolveStyle(skin, piece.type, piece.variant, piece.state, part);
        Look made{.piece = &piece,
                  .area = scale.device(piece.area),
                  .surface = scaledStyle(look.surface, percent),
                  .text = look.text,
                  .glyph = glyphColor(skin, piece, look)};
        if (piece.isWindow) {
            made.surface.shape = skin.shapes.window;
        }
        looks_.push_back(std::move(made));
    }
}

SampleDialog::~SampleDialog() = default;

tavi::Size SampleDialog::size() const {
    return {kSampleSize.width * percent_ / 100, kSampleSize.height * percent_ / 100};
}

void SampleDialog::paint(HDC target) const {
    tavi::fillRect(target, {0, 0, size().width, size().height}, ground_);
    for (const Look& look : looks_) {
        const Piece& piece = *look.piece;
        if (*piece.part != L'\0') {
            tavi::drawSurface(target, look.area, look.surface);
        }
        tavi::drawGlyph(target, look.area, piece.glyph, look.glyph);
        if (*piece.text != L'\0') {
            const int inset = piece.align == Align::kCentre ? 2 : kTextInset;
            drawText(target, look.area, fonts_->of(piece.face), look.text, piece.text, piece.align,
                     inset * percent_ / 100);
        }
    }
}

}  // namespace gallery
