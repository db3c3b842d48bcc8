// Pictures of materials for tests: an ordinary profile, and how bright or how different pictures are over a dark base.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

#include "tavi/theme/material_texture.h"

namespace material_pictures {

inline tavi::MaterialRequest requestFor(tavi::MaterialKind kind, tavi::Size size) {
    tavi::MaterialRequest request;
    request.kind = kind;
    request.size = size;
    request.surfaceBase = tavi::rgb(16, 20, 24);
    request.performance = tavi::PerformanceProfile::kBalanced;
    tavi::MaterialProfile& profile = request.profile;
    profile.strength = 112;
    profile.highlightOpacity = 60;
    profile.reflectionOpacity = 44;
    profile.backlightOpacity = 50;
    profile.innerGlow = 50;
    profile.textureOpacity = 110;
    profile.lightAngle = -60;
    profile.tint = tavi::rgb(58, 106, 122);
    profile.backlightColor = tavi::rgb(138, 208, 224);
    return request;
}

inline tavi::PixelBuffer rendered(const tavi::MaterialRequest& request) {
    tavi::PixelBuffer buffer(request.size);
    EXPECT_TRUE(tavi::renderMaterialTexture(request, buffer.view()));
    return buffer;
}

// One channel of the pixel over the base, 0 to 255.
inline double over(tavi::Pixel pixel, int shift, int base) {
    return static_cast<double>(pixel >> shift & 0xFF) + base * (255.0 - static_cast<double>(pixel >> 24)) / 255;
}

// The mean of what differs per channel, over a dark base.
inline double difference(const tavi::PixelBuffer& a, const tavi::PixelBuffer& b) {
    double sum = 0;
    for (size_t i = 0; i < a.pixels().size(); ++i) {
        for (const int shift : {0, 8, 16}) {
            sum += std::abs(over(a.pixels()[i], shift, 20) - over(b.pixels()[i], shift, 20));
        }
    }
    return sum / static_cast<double>(a.pixels().size()) / 3;
}

// The mean brightness of a part over a dark base, 0 to 255.
inline double brightness(const tavi::PixelBuffer& picture, const tavi::Rect& part) {
    double sum = 0;
    for (int y = part.y; y < part.bottom(); ++y) {
        for (int x = part.x; x < part.right(); ++x) {
            const tavi::Pixel pixel = picture.row(y)[x];
            sum += over(pixel, 0, 24) * 0.07 + over(pixel, 8, 20) * 0.72 + over(pixel, 16, 16) * 0.21;
        }
    }
    return sum / part.width / part.height;
}

}  // namespace material_pictures
