#include "tavi/controls/menu_panel.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace tavi {
namespace {

// Design pixels.
constexpr int32_t kSeparatorHeight = 9;
constexpr int32_t kPadding = 4;     // around all rows
constexpr int32_t kTextInset = 12;  // from the ends of a row
constexpr int32_t kShortcutGap = 32;
constexpr int32_t kSmallestWidth = 160;

bool isLine(const MenuEntry& entry) {
    return entry.caption.empty();
}

bool beginsWith(const std::wstring& caption, const std::wstring& letters) {
    return base::equalsIgnoringCase(std::wstring_view(caption).substr(0, letters.size()), letters);
}

}  // namespace

MenuPanel::MenuPanel(std::vector<MenuEntry> entries, Chosen chosen)
    : Control(L"menu"), entries_(std::move(entries)), chosen_(std::move(chosen)) {}

const std::vector<MenuPanel::Row>& MenuPanel::rows() const {
    if (rows_.empty()) {
        const TextFormat format{.font = looks_.font(*this),
                                .dpi = ControlLooks::dpi(*this),
                                .rightToLeft = window() != nullptr && window()->rightToLeft()};
        for (const MenuEntry& entry : entries_) {
            rows_.push_back({TextLayout(entry.caption, format), TextLayout(entry.shortcut, format)});
        }
    }
    return rows_;
}

Size MenuPanel::preferredSize() const {
    Size captions;
    Size shortcuts;
    for (const Row& row : rows()) {
        captions = larger(captions, row.caption.size());
        shortcuts = larger(shortcuts, row.shortcut.size());
    }
    const Scale scale(ControlLooks::dpi(*this));
    const int32_t shortcutWidth = shortcuts.width > 0 ? kShortcutGap + scale.design(shortcuts).width : 0;
    const int32_t width = scale.design(captions).width + shortcutWidth + 2 * (kTextInset + kPadding);
    const int32_t height = entries_.empty() ? 0 : entryArea(entries_.size() - 1).bottom();
    return {std::max(width, kSmallestWidth), height + kPadding};
}

Rect MenuPanel::entryArea(size_t index) const {
    int32_t y = kPadding;
    for (size_t i = 0; i < index; ++i) {
        y += isLine(entries_[i]) ? kSeparatorHeight : kMenuRowHeight;
    }
    return {kPadding, y, std::max(bounds().width - 2 * kPadding, 0),
            isLine(entries_[index]) ? kSeparatorHeight : kMenuRowHeight};
}

void MenuPanel::automationValue(std::wstring& value) const {
    value = hot_ ? entries_[*hot_].caption : std::wstring();
}

void MenuPanel::releaseCaches() {
    looks_.forget();
    rows_.clear();
}

void MenuPanel::paint(HDC target, Point origin) {
    looks_.paintDropDown(target, *this, origin);
    for (size_t i = 0; i < entries_.size(); ++i) {
        paintRow(target, origin, i);
    }
}

void MenuPanel::paintRow(HDC target, Point origin, size_t index) const {
    const Rect area = entryArea(index);
    if (isLine(entries_[index])) {
        static const ControlLooks separator(L"separator");
        separator.paint(target, *this, origin,
                        {area.x + kPadding, area.y + area.height / 2, area.width - 2 * kPadding, 1},
                        SurfaceState::kNormal);
        return;
    }
    const SurfaceState state = stateOf({.enabled = entries_[index].enabled, .hot = hot_ == index});
    if (state == SurfaceState::kHot) {
        looks_.paint(target, *this, origin, area, state, L"row");
    }
    const Color color = looks_.look(*this, state, L"row").text;
    const Rect text = deviceRect({area.x + kTextInset, area.y, area.width - 2 * kTextInset, area.height}, origin);
    rows()[index].caption.draw(target, text, color);
    rows()[index].shortcut.draw(target, text, color, TextAlign::kEnd);
}

bool MenuPanel::choosable(size_t index) const {
    return !isLine(entries_[index]) && entries_[index].enabled;
}

std::optional<size_t> MenuPanel::entryAt(Point local) const {
    for (size_t i = 0; i < entries_.size(); ++i) {
        if (entryArea(i).contains(local)) {
            return choosable(i) ? std::optional(i) : std::nullopt;
        }
    }
    return std::nullopt;
}

// The next entry that can be chosen, from the last one on to the first.
std::optional<size_t> MenuPanel::stepFrom(std::optional<size_t> from, bool forward) const {
    const size_t count = entries_.size();
    size_t at = from.value_or(forward ? count - 1 : 0);
    for (size_t i = 0; i < count; ++i) {
        at = (at + (forward ? 1 : count - 1)) % count;
        if (choosable(at)) {
            return at;
        }
    }
    return std::nullopt;
}

void MenuPanel::setHot(std::optional<size_t> hot) {
    if (hot_ != hot) {
        hot_ = hot;
        requestRepaint();
    }
}

void MenuPanel::choose(size_t index) {
    const Chosen chosen = chosen_;
    chosen(index);
}

bool MenuPanel::pointerMove(PointerEvent& event) {
    // Windows tells of moves that are none, as when a window appears: those leave the keyboard's row alone.
    if (pointer_ != event.position) {
        pointer_ = event.position;
        setHot(entryAt(event.position));
    }
    return true;
}

void MenuPanel::pointerLeft() {
    pointer_.reset();
    setHot(std::nullopt);
}

bool MenuPanel::pointerPress(PointerEvent& event) {
    pressed_ = true;
    setHot(entryAt(event.position));
    return true;
}

// Only after a press: the button that has opened the menu goes up over it, too.
bool MenuPanel::pointerRelease(PointerEvent& event) {
    if (std::exchange(pressed_, false)) {
        if (const std::optional<size_t> index = entryAt(event.position)) {
            choose(*index);
        }
    }
    return true;
}

bool MenuPanel::keyPress(KeyEvent& event) {
    switch (event.code) {
        case key::kDown:
        case key::kTab:
            setHot(stepFrom(hot_, true));
            return true;
        case key::kUp:
            setHot(stepFrom(hot_, false));
            return true;
        case key::kHome:
            setHot(stepFrom(std::nullopt, true));
            return true;
        case key::kEnd:
            setHot(stepFrom(std::nullopt, false));
            return true;
        case key::kReturn:
        case key::kSpace:
            if (hot_ && !event.wasDown) {
                choose(*hot_);
            }
            return true;
        default:
            return false;
    }
}

// The only entry that begins so is chosen; of several ones the next is hot.
bool MenuPanel::textInput(TextInputEvent& event) {
    const size_t count = entries_.size();
    const size_t first = hot_ ? *hot_ + 1 : 0;
    std::optional<size_t> found;
    size_t matches = 0;
    for (size_t i = 0; i < count; ++i) {
        const size_t at = (first + i) % count;
        if (choosable(at) && beginsWith(entries_[at].caption, event.text)) {
            found = found ? found : at;
            matches += 1;
        }
    }
    if (found && matches == 1) {
        choose(*found);
    } else if (found) {
        setHot(found);
    }
    return true;
}

}  // namespace tavi
