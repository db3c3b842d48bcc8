// Painting of surfaces beside pixman and cairo at the same work, in the size of a button and of a screen. A name is
// "group/ours" or "group/peer".
#include <benchmark/benchmark.h>

#include <cairo.h>
#include <pixman.h>

#include <memory>
#include <string>

#include "tavi/theme/raster_kernels.h"
#include "tavi/theme/surface_painter.h"

namespace {

using tavi::blueOf;
using tavi::ButtonShape;
using tavi::greenOf;
using tavi::PixelBuffer;
using tavi::Rect;
using tavi::redOf;
using tavi::Size;
using tavi::SurfaceStyle;

constexpr tavi::Color kFill = tavi::hexColor(0x2C6A4C);
constexpr tavi::Color kDark = tavi::hexColor(0x0A2118);
constexpr tavi::Color kBorder = tavi::hexColor(0xE2AA58);
constexpr uint8_t kAlpha = 160;
constexpr double kTau = 6.283185307179586;

// What both sides paint on, so that they differ in nothing but the painting.
struct Canvas {
    explicit Canvas(Size size)
        : buffer(size),
          surface(cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(buffer.view().pixels),
                                                      CAIRO_FORMAT_ARGB32, size.width, size.height, size.width * 4),
                  cairo_surface_destroy),
          cairo(cairo_create(surface.get()), cairo_destroy),
          pixman(
              pixman_image_create_bits(PIXMAN_a8r8g8b8, size.width, size.height, buffer.view().pixels, size.width * 4),
              pixman_image_unref) {}

    Rect all() const { return {0, 0, buffer.size().width, buffer.size().height}; }
    double width() const { return buffer.size().width; }
    double height() const { return buffer.size().height; }

    PixelBuffer buffer;
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface;
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> cairo;
    std::unique_ptr<pixman_image_t, decltype(&pixman_image_unref)> pixman;
};

void setColor(cairo_t* cairo, tavi::Color color, double alpha) {
    cairo_set_source_rgba(cairo, redOf(color) / 255.0, greenOf(color) / 255.0, blueOf(color) / 255.0, alpha);
}

// The outline of a rounded rectangle, as far inside of the canvas as `inset` says.
void roundedPath(Canvas& canvas, double inset, double radius) {
    cairo_t* const cairo = canvas.cairo.get();
    const double left = inset + radius;
    const double top = inset + radius;
    const double right = canvas.width() - inset - radius;
    const double bottom = canvas.height() - inset - radius;
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, right, top, radius, -kTau / 4, 0);
    cairo_arc(cairo, right, bottom, radius, 0, kTau / 4);
    cairo_arc(cairo, left, bottom, radius, kTau / 4, kTau / 2);
    cairo_arc(cairo, left, top, radius, kTau / 2, kTau * 3 / 4);
    cairo_close_path(cairo);
}

double cornerRadius(const Canvas& canvas) {
    return canvas.height() < 48 ? canvas.height() / 4 : 12;
}

// One color at full opacity, and translucent.
void fillOurs(Canvas& canvas) {
    SurfaceStyle style;
    style.fill = kFill;
    style.drawBorder = false;
    paintSurface(canvas.buffer.view(), canvas.all(), style, tavi::PerformanceProfile::kBestGraphics);
}

void pixmanFill(Canvas& canvas, uint16_t alpha) {
    const auto part = [alpha](int channel) { return static_cast<uint16_t>(channel * 257 * alpha / 65535); };
    const pixman_color_t color{part(redOf(kFill)), part(greenOf(kFill)), part(blueOf(kFill)), alpha};
    const auto width = static_cast<uint16_t>(canvas.all().width);
    const auto height = static_cast<uint16_t>(canvas.all().height);
    const pixman_rectangle16_t area{0, 0, width, height};
    pixman_image_fill_rectangles(PIXMAN_OP_OVER, canvas.pixman.get(), &color, 1, &area);
}

void fillPeer(Canvas& canvas) {
    pixmanFill(canvas, 0xFFFF);
}

void blendOurs(Canvas& canvas) {
    SurfaceStyle style;
    style.fill = kFill;
    style.opacity = kAlpha;
    style.drawBorder = false;
    paintSurface(canvas.buffer.view(), canvas.all(), style, tavi::PerformanceProfile::kBestGraphics);
}

void blendPeer(Canvas& canvas) {
    pixmanFill(canvas, kAlpha * 257);
}

// The buffer of a translucent shape: the peer clears and fills a path of the same outline.
void alphaShapeOurs(Canvas& canvas) {
    fillAlphaShape(canvas.buffer.view(), ButtonShape::kRoundedRect, kFill, kAlpha);
}

void alphaShapePeer(Canvas& canvas) {
    cairo_t* const cairo = canvas.cairo.get();
    cairo_set_operator(cairo, CAIRO_OPERATOR_CLEAR);
    cairo_paint(cairo);
    cairo_set_operator(cairo, CAIRO_OPERATOR_OVER);
    cairo_set_antialias(cairo, CAIRO_ANTIALIAS_NONE);
    setColor(cairo, kFill, kAlpha / 255.0);
    roundedPath(canvas, 0, cornerRadius(canvas));
    cairo_fill(cairo);
    cairo_set_antialias(cairo, CAIRO_ANTIALIAS_DEFAULT);
}

SurfaceStyle gradientStyle(tavi::GradientKind kind, tavi::GradientDirection direction) {
    SurfaceStyle style;
    style.useGradient = true;
    style.gradientKind = kind;
    style.gradientDirection = direction;
    style.gradientStart = kFill;
    style.gradientEnd = kDark;
    style.drawBorder = false;
    return style;
}

void gradientOurs(Canvas& canvas, tavi::GradientKind kind, tavi::GradientDirection direction) {
    paintSurface(canvas.buffer.view(), canvas.all(), gradientStyle(kind, direction),
                 tavi::PerformanceProfile::kBestGraphics);
}

void gradientPeer(Canvas& canvas, cairo_pattern_t* pattern) {
    cairo_pattern_add_color_stop_rgb(pattern, 0, redOf(kFill) / 255.0, greenOf(kFill) / 255.0, blueOf(kFill) / 255.0);
    cairo_pattern_add_color_stop_rgb(pattern, 1, redOf(kDark) / 255.0, greenOf(kDark) / 255.0, blueOf(kDark) / 255.0);
    cairo_set_source(canvas.cairo.get(), pattern);
    cairo_pattern_destroy(pattern);
    cairo_paint(canvas.cairo.get());
}

void downOurs(Canvas& canvas) {
    gradientOurs(canvas, tavi::GradientKind::kLinear, tavi::GradientDirection::kVertical);
}
void downPeer(Canvas& canvas) {
    gradientPeer(canvas, cairo_pattern_create_linear(0, 0, 0, canvas.height()));
}
void diagonalOurs(Canvas& canvas) {
    gradientOurs(canvas, tavi::GradientKind::kLinear, tavi::GradientDirection::kDiagonalDown);
}
void diagonalPeer(Canvas& canvas) {
    gradientPeer(canvas, cairo_pattern_create_linear(0, 0, canvas.width(), canvas.height()));
}
void radialOurs(Canvas& canvas) {
    gradientOurs(canvas, tavi::GradientKind::kRadial, tavi::GradientDirection::kVertical);
}
void radialPeer(Canvas& canvas) {
    const double x = canvas.width() / 2;
    const double y = canvas.height() / 4;
    gradientPeer(canvas, cairo_pattern_create_radial(x, y, 0, x, y, canvas.width()));
}

// A rounded rectangle with smooth edges and a border of one pixel.
void roundedOurs(Canvas& canvas) {
    SurfaceStyle style;
    style.shape = ButtonShape::kRoundedRect;
    style.fill = kFill;
    style.border = kBorder;
    paintSurface(canvas.buffer.view(), canvas.all(), style, tavi::PerformanceProfile::kBestGraphics);
}

void roundedPeer(Canvas& canvas) {
    cairo_t* const cairo = canvas.cairo.get();
    roundedPath(canvas, 0.5, cornerRadius(canvas));
    setColor(cairo, kFill, 1);
    cairo_fill_preserve(cairo);
    setColor(cairo, kBorder, 1);
    cairo_set_line_width(cairo, 1);
    cairo_stroke(cairo);
}

using Painter = void (*)(Canvas&);
struct Group {
    const char* name;
    Painter ours;
    Painter peer;
};
constexpr Group kGroups[] = {
    {"solid_fill", fillOurs, fillPeer},
    {"translucent_fill", blendOurs, blendPeer},
    {"alpha_shape", alphaShapeOurs, alphaShapePeer},
    {"gradient_down", downOurs, downPeer},
    {"gradient_diagonal", diagonalOurs, diagonalPeer},
    {"gradient_radial", radialOurs, radialPeer},
    {"rounded_with_border", roundedOurs, roundedPeer},
};
constexpr Size kSizes[] = {{160, 40}, {1920, 1080}};

void run(benchmark::State& state, Painter paint, Size size) {
    Canvas canvas(size);
    for (auto _ : state) {
        paint(canvas);
        benchmark::ClobberMemory();
    }
}

[[maybe_unused]] const bool kRegistered = [] {
    for (const Group& group : kGroups) {
        for (const Size size : kSizes) {
            const std::string name =
                std::string(group.name) + "_" + std::to_string(size.width) + "x" + std::to_string(size.height);
            benchmark::RegisterBenchmark((name + "/ours").c_str(), run, group.ours, size);
            benchmark::RegisterBenchmark((name + "/peer").c_str(), run, group.peer, size);
        }
    }
    return true;
}();

}  // namespace
