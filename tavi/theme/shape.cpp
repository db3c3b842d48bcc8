#include "tavi/theme/shape.h"

#include <algorithm>
#include <cmath>

namespace tavi {
namespace {

int cornerDiameter(int width, int height) {
    const int shorter = std::max(1, std::min(width, height));
    return std::max(1, std::min(2 * std::clamp(shorter / 4, 4, 12), shorter));
}

// How much of each corner a beveled or octagonal surface loses along its sides.
int cornerCut(ButtonShape shape, int width, int height) {
    const int shorter = std::max(1, std::min(width, height));
    const int part = shape == ButtonShape::kBeveled ? 5 : 3;
    return std::clamp(shorter / part, 1, std::max(1, shorter / 2));
}

// How far the sides of a hexagon or a slanted surface lean.
int sideInset(int width, int height) {
    return std::clamp(std::min(height / 2, width / 4), 1, std::max(1, width / 2));
}

bool insideRounded(int width, int height, int x, int y) {
    const double radius = cornerDiameter(width, height) / 2.0;
    const double centreX = x + 0.5;
    const double centreY = y + 0.5;
    if ((centreX >= radius && centreX <= width - radius) || (centreY >= radius && centreY <= height - radius)) {
        return true;
    }
    const double dx = centreX - (centreX < radius ? radius : width - radius);
    const double dy = centreY - (centreY < radius ? radius : height - radius);
    return dx * dx + dy * dy <= radius * radius;
}

// A capsule that lies; one that stands is asked with its axes swapped.
bool insideLyingCapsule(int width, int height, int x, int y) {
    const double radius = std::max(1.0, std::min(width, height) / 2.0);
    if (x >= radius && x <= width - radius) {
        return true;
    }
    const double dx = x - (std::abs(x - radius) <= std::abs(x - (width - radius)) ? radius : width - radius);
    const double dy = y - height / 2.0;
    return dx * dx + dy * dy <= radius * radius;
}

// Twice the distance of a pixel from the middle of an extent, and twice the largest there is, at least 1: the shares of
// the leaning shapes are fractions of these, compared in whole numbers, so that a pixel on the line is on it.
int64_t fromMiddle(int at, int extent) {
    return std::abs(2 * int64_t{at} - (extent - 1));
}
int64_t reachOf(int extent) {
    return std::max(extent - 1, 2);
}

bool insideDiamond(int width, int height, int x, int y) {
    const int64_t across = reachOf(width);
    const int64_t down = reachOf(height);
    return fromMiddle(x, width) * down + fromMiddle(y, height) * across <= across * down;
}

bool insideCut(ButtonShape shape, int width, int height, int x, int y) {
    const int cut = cornerCut(shape, width, height);
    const int fromSide = std::min(x, width - 1 - x);
    const int fromEnd = std::min(y, height - 1 - y);
    return fromSide + fromEnd >= cut;
}

// Between a left and a right edge that lean by the inset: `left` and `right` are the parts of it at this row, of
// `whole`.
bool betweenSides(int width, int height, int x, int64_t left, int64_t right, int64_t whole) {
    const int64_t inset = sideInset(width, height);
    const int64_t centre = 2 * int64_t{x} + 1;
    return centre * whole >= 2 * inset * left && (2 * int64_t{width} - centre) * whole >= 2 * inset * right;
}

bool insideHexagon(int width, int height, int x, int y) {
    const int64_t part = fromMiddle(y, height);
    return betweenSides(width, height, x, part, part, reachOf(height));
}

// Leaning from the full inset at the first row, on the left side, to none at the last; the right side the other way.
bool insideSlant(int width, int height, int x, int y, bool toTheRight) {
    const int64_t whole = std::max(height - 1, 1);
    const int64_t up = whole - y;
    return toTheRight ? betweenSides(width, height, x, up, y, whole) : betweenSides(width, height, x, y, up, whole);
}

}  // namespace

bool insideShape(ButtonShape shape, int width, int height, int x, int y) {
    if (x < 0 || y < 0 || x >= width || y >= height) {
        return false;
    }
    switch (shape) {
        case ButtonShape::kRoundedRect:
            return insideRounded(width, height, x, y);
        case ButtonShape::kCapsule:
            return height > width ? insideLyingCapsule(height, width, y, x) : insideLyingCapsule(width, height, x, y);
        case ButtonShape::kDiamond:
            return insideDiamond(width, height, x, y);
        case ButtonShape::kBeveled:
        case ButtonShape::kOctagon:
            return insideCut(shape, width, height, x, y);
        case ButtonShape::kHexagon:
            return insideHexagon(width, height, x, y);
        case ButtonShape::kSlantRight:
            return insideSlant(width, height, x, y, true);
        case ButtonShape::kSlantLeft:
            return insideSlant(width, height, x, y, false);
        case ButtonShape::kRectangle:
            break;
    }
    return true;
}

ShapeOutline::ShapeOutline(ButtonShape shape, int width, int height) : shape_(shape), width_(width), height_(height) {
    if (width < 1 || height < 1) {
        width_ = height_ = 0;
        return;
    }
    switch (shape) {
        case ButtonShape::kRoundedRect:
            form_ = Form::kRound;
            straightFrom_ = (cornerDiameter(width, height) + 1) / 2;
            radius_ = static_cast<float>(cornerDiameter(width, height)) / 2;
            break;
        case ButtonShape::kCapsule:
            form_ = Form::kCapsule;
            straightFrom_ = height;
            radius_ = std::max(1.0F, static_cast<float>(std::min(width, height)) / 2);
            break;
        case ButtonShape::kBeveled:
        case ButtonShape::kOctagon:
            form_ = Form::kEdges;
            straightFrom_ = cornerCut(shape, width, height) + 1;
            addBevels();
            break;
        case ButtonShape::kDiamond:
        case ButtonShape::kHexagon:
        case ButtonShape::kSlantRight:
        case ButtonShape::kSlantLeft:
            form_ = Form::kEdges;
            straightFrom_ = height;
            addSlopes();
            break;
        default:
            shape_ = ButtonShape::kRectangle;
            form_ = Form::kBox;
    }
}

void ShapeOutline::addEdge(float a, float b, float c) {
    const float length = std::sqrt(a * a + b * b);
    edges_[static_cast<size_t>(edgeCount_++)] = {a / length, b / length, c / length};
}

// The outline runs half-way between the last pixels outside and the first inside: x + y = cut - 1/2 as pixels are
// counted, which is cut + 1/2 at their centres.
void ShapeOutline::addBevels() {
    const float at = static_cast<float>(cornerCut(shape_, width_, height_)) + 0.5F;
    const auto width = static_cast<float>(width_);
    const auto height = static_cast<float>(height_);
    addEdge(-1, -1, at);
    addEdge(1, -1, at - width);
    addEdge(1, 1, at - width - height);
    addEdge(-1, 1, at - height);
}

void ShapeOutline::addSlopes() {
    const auto width = static_cast<float>(width_);
    const auto height = static_cast<float>(height_);
    const auto inset = static_cast<float>(sideInset(width_, height_));
    if (shape_ == ButtonShape::kDiamond) {
        const float a = 1 / std::max((width - 1) / 2, 1.0F);
        const float b = 1 / std::max((height - 1) / 2, 1.0F);
        for (const float x : {-a, a}) {
            for (const float y : {-b, b}) {
                addEdge(x, y, -(x * width + y * height) / 2 - 1);
            }
        }
    } else if (shape_ == ButtonShape::kHexagon) {
        const float slope = inset / std::max((height - 1) / 2, 1.0F);
        for (const float down : {-slope, slope}) {
            addEdge(-1, down, -down * height / 2);
            addEdge(1, down, -width - down * height / 2);
        }
    } else {
        // The left edge of one that leans to the right starts at the inset and ends at 0; the right edge likewise.
        const float down = height_ > 1 ? inset / (height - 1) : 0;
        if (shape_ == ButtonShape::kSlantRight) {
            addEdge(-1, -down, inset + down / 2);
            addEdge(1, down, -width - down / 2);
        } else {
            addEdge(-1, down, -down / 2);
            addEdge(1, -down, inset - width + down / 2);
        }
    }
}

// The pixels of a capsule's ends are asked at their upper left corners, which puts its ends half a pixel to the right
// and down of where its straight part is.
float ShapeOutline::capsuleDistance(float x, float y) const {
    const bool stands = height_ > width_;
    const float along = (stands ? y : x) - 0.5F;
    const float across = (stands ? x : y) - 0.5F;
    const auto length = static_cast<float>(std::max(width_, height_));
    const auto thickness = static_cast<float>(std::min(width_, height_));
    if (along >= radius_ && along <= length - radius_) {
        return -radius_;
    }
    const bool first = std::abs(along - radius_) <= std::abs(along - (length - radius_));
    return std::hypot(along - (first ? radius_ : length - radius_), across - thickness / 2) - radius_;
}

float ShapeOutline::distance(int x, int y) const {
    float result = 0;
    distances(x, y, 1, &result);
    return result;
}

void ShapeOutline::distances(int x, int y, int count, float* out, bool soft) const {
    const float halfWidth = static_cast<float>(width_) / 2;
    const float halfHeight = static_cast<float>(height_) / 2;
    const float centreY = static_cast<float>(y) + 0.5F;
    // A box with round corners; a box without them is one of radius 0.
    const bool round = form_ == Form::kRound || (form_ == Form::kCapsule && soft);
    const float radius = round ? std::min({radius_, halfWidth, halfHeight}) : 0;
    const float overY = std::abs(centreY - halfHeight) - halfHeight + radius;
    const float outY = std::max(overY, 0.0F);
    for (int i = 0; i < count; ++i) {
        const float overX = std::abs(static_cast<float>(x + i) + 0.5F - halfWidth) - halfWidth + radius;
        const float outX = std::max(overX, 0.0F);
        out[i] = std::sqrt(outX * outX + outY * outY) + std::min(std::max(overX, overY), 0.0F) - radius;
    }
    for (int edge = 0; edge < edgeCount_; ++edge) {
        const auto [a, b, c] = edges_[static_cast<size_t>(edge)];
        const float atRow = b * centreY + c;
        for (int i = 0; i < count; ++i) {
            out[i] = std::max(out[i], a * (static_cast<float>(x + i) + 0.5F) + atRow);
        }
    }
    if (form_ == Form::kCapsule && !soft) {
        for (int i = 0; i < count; ++i) {
            out[i] = std::max(out[i], capsuleDistance(static_cast<float>(x + i) + 0.5F, centreY));
        }
    }
}

uint8_t ShapeOutline::coverageAt(float distance, int x, int y) const {
    const int covered = static_cast<int>(std::clamp(127.5F - distance * 255, 0.0F, 255.0F) + 0.5F);
    // Where rounding could decide, the outline itself does.
    if (std::abs(distance) < 0.01F) {
        return static_cast<uint8_t>(inside(x, y) ? std::max(covered, 128) : std::min(covered, 127));
    }
    return static_cast<uint8_t>(covered);
}

Span ShapeOutline::deepSpan(int y, float depth) const {
    const float centreY = static_cast<float>(y) + 0.5F;
    const auto width = static_cast<float>(width_);
    const auto height = static_cast<float>(height_);
    if (std::min(centreY, height - centreY) < depth || form_ == Form::kEmpty) {
        return {};
    }
    float left = depth;
    float right = width - depth;
    bool straight = edgeCount_ == 0;
    for (int i = 0; i < edgeCount_; ++i) {
        const auto [a, b, c] = edges_[static_cast<size_t>(i)];
        // a X <= -depth - b Y - c
        const float bound = -depth - b * centreY - c;
        if (a < 0) {
            left = std::max(left, bound / a);
        } else if (a > 0) {
            right = std::min(right, bound / a);
        }
    }
    if (form_ == Form::kRound || form_ == Form::kCapsule) {
        const bool lies = form_ == Form::kCapsule && height_ <= width_;
        const bool stands = form_ == Form::kCapsule && !lies;
        const float shift = form_ == Form::kCapsule ? 0.5F : 0;
        const float reach = radius_ - depth;
        // How far this row is from the centres of the round corners.
        const float row = centreY - shift;
        const float off = lies ? std::abs(row - height / 2) : std::max({radius_ - row, row - (height - radius_), 0.0F});
        if (off > reach) {
            left = radius_ + 1;  // between the ends of a capsule, or nothing
            right = lies ? width - radius_ - 1 : 0;
        } else if (off > 0 || lies) {
            const float half = std::sqrt(reach * reach - off * off);
            const float inset = stands ? width / 2 - half : radius_ - half;
            left = std::max(left, inset + shift);
            right = std::min(right, width - inset + (stands ? shift : -shift));
        }
        straight = off == 0 && !lies;
    }
    // One pixel less on each side than computed, but at straight sides: rounding must not break the promise.
    const int lost = straight ? 0 : 1;
    const Span span{static_cast<int>(std::ceil(left - 0.5F)) + lost, static_cast<int>(std::floor(right + 0.5F)) - lost};
    return span.empty() ? Span{} : span;
}

Span ShapeOutline::insideSpan(int y) const {
    if (y < 0 || y >= height_) {
        return {};
    }
    Span span = deepSpan(y, 0);
    if (span.empty()) {
        // Too narrow to be sure of: look from both ends.
        span = {0, width_};
        while (span.begin < span.end && !inside(span.begin, y)) {
            ++span.begin;
        }
        while (span.end > span.begin && !inside(span.end - 1, y)) {
            --span.end;
        }
        return span.empty() ? Span{} : span;
    }
    while (span.begin > 0 && inside(span.begin - 1, y)) {
        --span.begin;
    }
    while (span.end < width_ && inside(span.end, y)) {
        ++span.end;
    }
    return span;
}

}  // namespace tavi
