// Where the line of a text field lies: its layout, its scrolling, its caret.
#include <algorithm>

#include "tavi/controls/text_input.h"

namespace tavi {
namespace {

constexpr int32_t kPadding = 10;
// A letter that runs from right to left.
constexpr wchar_t kRightToLeftLetter = L'\u05D0';

}  // namespace

Rect TextInput::textArea() const {
    constexpr int32_t kBeside = kSurfaceInset + kPadding;
    const Rect area = localBounds();
    return rectBetween(kBeside, kSurfaceInset, int64_t{area.width} - kBeside, int64_t{area.height} - kSurfaceInset);
}

std::wstring TextInput::shownText() const {
    std::wstring shown = editor_.text();
    if (composing()) {
        const TextRange replaced = editor_.selection();
        shown.replace(replaced.begin, replaced.end - replaced.begin, composition_.text);
    }
    return shown;
}

size_t TextInput::shownCaret() const {
    if (!composing()) {
        return editor_.caret();
    }
    const size_t inside = composition_.caret > 0 ? static_cast<size_t>(composition_.caret) : 0;
    return editor_.selection().begin + std::min(inside, composition_.text.size());
}

TextFormat TextInput::format(std::wstring_view text) const {
    // Paths and the like stay left-to-right everywhere. With such a letter behind it, a text starts right-to-left
    // unless one of its own decides otherwise.
    const bool mirrored = window() != nullptr && window()->rightToLeft();
    return {.font = looks_.font(*this),
            .dpi = ControlLooks::dpi(*this),
            .rightToLeft = mirrored && startsRightToLeft(std::wstring(text) + kRightToLeftLetter)};
}

const TextLayout& TextInput::line() const {
    std::wstring shown = shownText();
    const TextFormat now = format(shown);
    if (lineText_ != shown || line_.format() != now || line_.lineHeight() == 0) {
        lineText_ = std::move(shown);
        line_ = TextLayout(lineText_, now);
    }
    return line_;
}

int32_t TextInput::caretWidth() const {
    return window() != nullptr ? window()->scale().length(1) : 1;
}

// From the left edge of the room to that of the line. No empty room is left beside a line that is too long.
int32_t TextInput::lineLeft(const Rect& room) const {
    const int32_t free = room.width - line().size().width - caretWidth();
    if (free >= 0) {
        return line().format().rightToLeft ? free : 0;
    }
    return -std::clamp(scroll_, 0, -free);
}

// Where letters of the field's own font stand; the caret is as high as this.
Rect TextInput::lettersIn(const Rect& room) const {
    const int32_t height = TextLayout({}, format({})).lineHeight();
    return {room.x, room.y + (room.height - height) / 2, room.width, height};
}

// All texts stand on the baseline of that font: a character of another one, which may be higher, moves no other.
Rect TextInput::onBaseline(const Rect& room, const TextLayout& layout) const {
    const int32_t baseline = lettersIn(room).y + TextLayout({}, format({})).baseline();
    return {room.x, baseline - layout.baseline(), room.width, layout.lineHeight()};
}

Rect TextInput::lineRectangle(const Rect& room) const {
    const Rect stands = onBaseline(room, line());
    return {room.x + lineLeft(room), stands.y, line().size().width, stands.height};
}

void TextInput::followCaret() {
    if (window() == nullptr) {
        return;
    }
    const int32_t room = deviceRect(textArea(), clientOrigin()).width;
    const int32_t caret = line().caretX(shownCaret());
    const int32_t longest = std::max(line().size().width + caretWidth() - room, 0);
    scroll_ = std::clamp(scroll_, std::min(caret + caretWidth() - room, caret), caret);
    scroll_ = std::clamp(scroll_, 0, longest);
}

Rect TextInput::caretOnDevice() const {
    const Rect room = deviceRect(textArea(), clientOrigin());
    const Rect letters = lettersIn(room);
    return {room.x + lineLeft(room) + line().caretX(shownCaret()), letters.y, caretWidth(), letters.height};
}

// The smallest area of the control around one of the device.
Rect TextInput::inDesignPixels(const Rect& device) const {
    const Scale& scale = window()->scale();
    const Point first = scale.design(device.position());
    const Point last = scale.design(Point{device.right() - 1, device.bottom() - 1});
    const Point origin = clientOrigin();
    return rectBetween(first.x - origin.x, first.y - origin.y, last.x + 1 - origin.x, last.y + 1 - origin.y);
}

std::optional<Rect> TextInput::caretRectangle() const {
    return window() != nullptr ? std::optional(inDesignPixels(caretOnDevice())) : std::nullopt;
}

int32_t TextInput::lineX(Point local) const {
    const Rect room = deviceRect(textArea(), clientOrigin());
    return deviceRect({local.x, local.y, 1, 1}, clientOrigin()).x - room.x - lineLeft(room);
}

size_t TextInput::positionAt(Point local) const {
    return line().positionAt(lineX(local));
}

// Where the cluster begins that the pointer is on; carets lie between clusters.
size_t TextInput::clusterUnder(Point local) const {
    const int32_t x = lineX(local);
    const size_t nearest = line().positionAt(x);
    const size_t before = previousCluster(text(), nearest);
    const std::vector<TextLayout::Span> spans = line().spans(before, nearest);
    const bool isBefore =
        std::ranges::any_of(spans, [x](const TextLayout::Span& span) { return x >= span.left && x < span.right; });
    return isBefore ? before : nearest;
}

}  // namespace tavi
