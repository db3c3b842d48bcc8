#include "tavi/controls/tooltip_look.h"

#include "tavi/core/tooltip_host.h"
#include "tavi/text/text_layout.h"
#include "tavi/theme/active_skin.h"
#include "tavi/theme/skin_styles.h"
#include "tavi/theme/surface_drawing.h"

namespace tavi {
namespace {

// Design pixels.
constexpr int32_t kWidestText = 360;
constexpr Size kPadding{10, 7};
constexpr int32_t kRailWidth = 3;

constexpr int kTextWeight = 400;  // whatever the skin's captions have: this is for reading

// A surface with a rail along the side where its text begins.
class SkinTooltipPainter final : public TooltipPainter {
public:
    Size measure(HDC /*target*/, const TooltipContent& content) override {
        const Scale scale(content.dpi);
        const Size text = layoutOf(content).size();
        return {text.width + 2 * scale.length(kPadding.width) + scale.length(kRailWidth),
                text.height + 2 * scale.length(kPadding.height)};
    }

    void paint(HDC target, const Rect& client, const TooltipContent& content) override {
        const Scale scale(content.dpi);
        const StyleLook look = part(L"surface", content);
        drawSurface(target, client, look.surface);
        const int32_t border = look.surface.drawBorder ? look.surface.borderWidth : 0;
        const int32_t railWidth = scale.length(kRailWidth);
        Rect rail{border, border, railWidth, client.height - 2 * border};
        Rect text{railWidth + scale.length(kPadding.width), scale.length(kPadding.height),
                  client.width - railWidth - 2 * scale.length(kPadding.width),
                  client.height - 2 * scale.length(kPadding.height)};
        if (content.rightToLeft) {
            rail.x = client.width - rail.right();
            text.x = client.width - text.right();
        }
        drawSurface(target, rail, part(L"rail", content).surface);
        layoutOf(content).draw(target, text, look.text);
    }

private:
    // The window is a rectangle and Windows gives it its shadow: another shape would have bare corners.
    static StyleLook part(std::wstring_view name, const TooltipContent& content) {
        StyleLook look = resolveStyle(activeSkin(), L"tooltip", L"default", SurfaceState::kNormal, name);
        look.surface = scaledStyle(look.surface, content.dpi * 100 / kDesignDpi);
        look.surface.shape = ButtonShape::kRectangle;
        look.surface.showShadow = look.surface.showGlow = look.surface.showOutline = false;
        return look;
    }

    static TextLayout layoutOf(const TooltipContent& content) {
        const Theme& theme = activeTheme();
        return {content.text,
                {.font = {theme.uiFontFamily, theme.uiPointSize, kTextWeight},
                 .dpi = content.dpi,
                 .rightToLeft = content.rightToLeft,
                 .fit = TextFit::kWrap,
                 .width = Scale(content.dpi).length(kWidestText)}};
    }
};

}  // namespace

void useSkinForTooltips() {
    static SkinTooltipPainter painter;
    setTooltipPainter(&painter);
}

}  // namespace tavi
