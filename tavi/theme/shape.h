// What is inside the outline of a surface: the one geometric definition that painting and hit tests share. Smooth edges
// come from the distance of a pixel's centre to that same outline.
#pragma once

#include <array>
#include <cstdint>

#include "tavi/theme/enumerations.h"

namespace tavi {

// True when the pixel (x, y) of a width x height surface is inside the shape. Pixels outside of the surface are not.
bool insideShape(ButtonShape shape, int width, int height, int x, int y);

// The pixels [begin, end) of one row; empty when begin == end.
struct Span {
    int begin = 0;
    int end = 0;

    bool operator==(const Span&) const = default;
    bool empty() const { return begin >= end; }
};

// The outline of one surface, prepared for asking about many of its pixels. Sizes are device pixels; a surface without
// area has no pixel inside.
class ShapeOutline {
public:
    ShapeOutline(ButtonShape shape, int width, int height);

    int width() const { return width_; }
    int height() const { return height_; }

    bool inside(int x, int y) const { return insideShape(shape_, width_, height_, x, y); }
    // The pixels of row y that are inside. Every shape is convex along a row, so they are one span.
    Span insideSpan(int y) const;

    // How far the centre of the pixel lies outside of the outline, in pixels; negative inside. Any pixel, also beyond
    // the surface.
    float distance(int x, int y) const;
    // The same for `count` pixels of a row from x on. `soft` is for shadows and glows: the same but for a capsule,
    // whose ends are not half a pixel off their straight part then.
    void distances(int x, int y, int count, float* out, bool soft = false) const;

    // How much of the pixel is covered, 0 to 255: above one half (128 and more) exactly where the pixel is inside.
    uint8_t coverage(int x, int y) const { return coverageAt(distance(x, y), x, y); }
    // The same for a distance that is known already.
    uint8_t coverageAt(float distance, int x, int y) const;

    // The pixels of row y that lie at least `depth` pixels inside of the outline for certain: a span that may leave out
    // some at its ends. Between it and the ends of the surface pixels are to be asked one by one.
    Span deepSpan(int y, float depth) const;

    // The rows whose sides are the surface's own: every pixel of them is inside, and its distance from the sides is
    // that from the outline, as long as it is farther from the ends of these rows.
    Span straightRows() const {
        return {straightFrom_, straightFrom_ < height_ - straightFrom_ ? height_ - straightFrom_ : straightFrom_};
    }

private:
    // A straight edge: the distance of (X, Y), the centre of a pixel, is a X + b Y + c.
    struct Edge {
        float a = 0;
        float b = 0;
        float c = 0;
    };
    enum class Form : uint8_t { kEmpty, kBox, kEdges, kRound, kCapsule };

    void addEdge(float a, float b, float c);
    void addBevels();
    void addSlopes();
    float capsuleDistance(float x, float y) const;

    ButtonShape shape_;
    Form form_ = Form::kEmpty;
    int width_ = 0;
    int height_ = 0;
    int straightFrom_ = 0;  // the first of the straight rows
    float radius_ = 0;      // of round corners
    std::array<Edge, 4> edges_;
    int edgeCount_ = 0;
};

}  // namespace tavi
