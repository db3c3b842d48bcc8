#include "tests/portable/drawing_stand_in.h"

#include <utility>

#include "tavi/core/drawing.h"
#include "tavi/theme/composition.h"
#include "tavi/theme/surface_drawing.h"
#include "tests/portable/window_stand_in.h"

namespace testing_tavi {
namespace {

Drawing& drawing() {
    static Drawing kept;
    return kept;
}

}  // namespace

Drawing takenDrawing() {
    return std::exchange(drawing(), {});
}

}  // namespace testing_tavi

namespace tavi {

void fillRect(HDC target, const Rect& area, uint32_t color) {
    testing_tavi::Canvas::of(target).blend(area, color, true);
}

void drawSurface(HDC target, const Rect& area, const SurfaceStyle& style) {
    testing_tavi::drawing().surfaces.push_back({area, style});
    testing_tavi::Canvas::of(target).blend(area, style.fill, false);
}

void drawGradientShape(HDC target, const Rect& area, const SurfaceStyle& style) {
    drawSurface(target, area, style);
}

void drawSegmentedSurface(HDC target, const std::vector<Rect>& segments, const SurfaceStyle& style) {
    drawSurface(target, unionOf(segments), style);
}

bool drawSeamlessMaterialTextureOverlay(HDC, const Rect&, const SurfaceStyle&, PerformanceProfile) {
    return false;
}

void drawAlphaShape(HDC target, const Rect& area, ButtonShape shape, Color color, uint8_t) {
    SurfaceStyle style;
    style.shape = shape;
    style.fill = color;
    drawSurface(target, area, style);
}

void compose(HDC target, Point at, const PixelBuffer& picture, const Rect&) {
    const Rect area{at.x, at.y, picture.size().width, picture.size().height};
    testing_tavi::drawing().pictures.push_back(area);
    testing_tavi::Canvas::of(target).blend(area, 1, false);
}

bool isClippedAway(HDC, const Rect& area) {
    return area.empty();
}

}  // namespace tavi
