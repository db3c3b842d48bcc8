#include <algorithm>

#include "tavi/controls/text_input.h"
#include "tavi/core/drawing.h"
#include "tavi/theme/active_skin.h"
#include "tavi/theme/contrast.h"

namespace tavi {
namespace {

constexpr double kReadableContrast = 4.5;

// The first of the theme's colors that can be read on `ground`, else the one that can be read best.
Color readableOn(Color ground) {
    const Theme& theme = activeTheme();
    const Color candidates[] = {theme.text, theme.shell, theme.textHot};
    const auto* const readable =
        std::ranges::find_if(candidates, [&](Color color) { return contrast(color, ground) >= kReadableContrast; });
    return readable != std::end(candidates)
               ? *readable
               : std::ranges::max(candidates, {}, [&](Color color) { return contrast(color, ground); });
}

// As weak as it can be read.
Color weakened(Color text, Color ground) {
    for (const int share : {110, 80, 50, 25}) {
        const Color weak = mixed(text, ground, share);
        if (contrast(weak, ground) >= kReadableContrast) {
            return weak;
        }
    }
    return text;
}

// The color that a surface has where its text lies.
Color groundOf(const SurfaceStyle& surface) {
    return surface.useGradient ? mixed(surface.gradientStart, surface.gradientEnd, 127) : surface.fill;
}

}  // namespace

// What one paint of the text goes by.
struct TextInput::Paper {
    HDC target;
    Point origin;
    Rect room;     // for the text; device pixels, as
    Rect line;     // where it lies and
    Rect letters;  // where letters of the field's own font would
    Color text;
    Color ground;
};

SurfaceState TextInput::surfaceState() const {
    if (!usable()) {
        return SurfaceState::kDisabled;
    }
    return readOnly_ ? SurfaceState::kReadOnly : stateOf({.hot = hot_, .focused = focused_});
}

void TextInput::paint(HDC target, Point origin) {
    const SurfaceState state = surfaceState();
    const Rect bounds = localBounds();
    const Rect surface = rectBetween(kSurfaceInset, kSurfaceInset, int64_t{bounds.width} - kSurfaceInset,
                                     int64_t{bounds.height} - kSurfaceInset);
    looks_.paint(target, *this, origin, surface, state, L"surface", focused_);
    if (window() == nullptr || textArea().empty()) {
        return;
    }
    const StyleLook& look = looks_.look(*this, state);
    const Rect room = deviceRect(textArea(), origin);
    const Paper paper{.target = target,
                      .origin = origin,
                      .room = room,
                      .line = lineRectangle(room),
                      .letters = lettersIn(room),
                      .text = look.text,
                      .ground = groundOf(look.surface)};
    // Letters may hang over a little.
    constexpr int32_t kOverhang = 2;
    const Rect area = textArea();
    window()->pushClip(target,
                       Rect{area.x - kOverhang, area.y, area.width + 2 * kOverhang, area.height}.offset(origin));
    if (lineText_.empty()) {
        paintPlaceholder(paper);
    } else {
        line().draw(target, paper.line, paper.text);
    }
    if (composing()) {
        paintComposition(paper);
    } else {
        paintSelection(paper);
    }
    if (focused_ && caretOn_) {
        fillRect(target,
                 {paper.line.x + line().caretX(shownCaret()), paper.letters.y, caretWidth(), paper.letters.height},
                 paper.text);
    }
    window()->popClip(target);
}

void TextInput::paintPlaceholder(const Paper& paper) {
    if (placeholder_.empty()) {
        return;
    }
    TextFormat wanted = format(placeholder_);
    wanted.fit = TextFit::kEllipsis;
    wanted.width = paper.room.width;
    if (placeholderLine_.format() != wanted) {
        placeholderLine_ = TextLayout(placeholder_, wanted);
    }
    placeholderLine_.draw(paper.target, onBaseline(paper.room, placeholderLine_), weakened(paper.text, paper.ground));
}

// The selected text is drawn a second time, in another color on another ground. Both end on the same design pixel, as
// clips do. It stays in sight while the window is inactive, and goes with the focus.
void TextInput::paintSelection(const Paper& paper) const {
    const TextRange selected = focused_ || paused_ ? editor_.selection() : TextRange{};
    const Color accent = activeTheme().accent;
    const Color fill = focused_ ? accent : mixed(paper.ground, accent, 110);
    const Color text = readableOn(fill);
    // As high as the line, but never over the field's edges.
    constexpr int32_t kFromEdge = 3;
    const int32_t inset = window()->scale().length(kFromEdge);
    const int32_t top = std::min(paper.letters.y, std::max(paper.line.y, paper.room.y + inset));
    const int32_t bottom = std::max(paper.letters.bottom(), std::min(paper.line.bottom(), paper.room.bottom() - inset));
    const Scale& scale = window()->scale();
    const auto nearest = [&](int32_t device) {
        const int32_t design = scale.design(Point{device, 0}).x;
        const int32_t before = device - scale.device(Point{design, 0}).x;
        const int32_t after = scale.device(Point{design + 1, 0}).x - device;
        return before <= after ? design : design + 1;
    };
    for (const TextLayout::Span& span : line().spans(selected.begin, selected.end)) {
        const int32_t left = nearest(paper.line.x + span.left);
        const Rect area = rectBetween(left, paper.origin.y, nearest(paper.line.x + span.right),
                                      int64_t{paper.origin.y} + localBounds().height);
        const Rect device = scale.device(area);
        fillRect(paper.target, {device.x, top, device.width, bottom - top}, fill);
        window()->pushClip(paper.target, area);
        line().draw(paper.target, paper.line, text);
        window()->popClip(paper.target);
    }
}

void TextInput::paintComposition(const Paper& paper) const {
    const size_t begin = editor_.selection().begin;
    const int32_t thickness = caretWidth();
    for (const TextLayout::Span& span : line().spans(begin, begin + composition_.text.size())) {
        fillRect(paper.target,
                 {paper.line.x + span.left, paper.letters.bottom() - thickness, span.right - span.left, thickness},
                 paper.text);
    }
}

}  // namespace tavi
