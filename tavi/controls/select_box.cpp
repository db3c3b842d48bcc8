#include "tavi/controls/select_box.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/text.h"
#include "tavi/controls/glyphs.h"
#include "tavi/controls/select_list.h"
#include "tavi/core/window_frame.h"

namespace tavi {
namespace {

// Design pixels.
constexpr int32_t kTextInset = 10;
constexpr int32_t kArrowWidth = 22;
constexpr int32_t kArrowInset = 3;  // of the arrow's part in the field
constexpr int32_t kGlyphSize = 10;

constexpr int32_t kTypingPause = 1000;  // ms; what is typed after it begins anew

bool beginsWith(const std::wstring& item, const std::wstring& letters) {
    return base::equalsIgnoringCase(std::wstring_view(item).substr(0, letters.size()), letters);
}

// The first item from `first` on, around the end, that begins so; -1 when none does.
int32_t findItem(const std::vector<std::wstring>& items, const std::wstring& letters, int32_t first) {
    const auto count = static_cast<int32_t>(items.size());
    for (int32_t i = 0; i < count; ++i) {
        const int32_t at = (first + i) % count;
        if (beginsWith(items[static_cast<size_t>(at)], letters)) {
            return at;
        }
    }
    return -1;
}

}  // namespace

struct SelectBox::DropDown {
    SelectList* list = nullptr;  // in the window
    std::unique_ptr<PopupWindow> window;
};

SelectBox::SelectBox(std::wstring id, const Rect& bounds, std::vector<std::wstring> items)
    : Control(std::move(id), bounds), items_(std::move(items)) {}

SelectBox::~SelectBox() = default;

void SelectBox::setItems(std::vector<std::wstring> items) {
    if (items_ == items) {
        return;
    }
    const std::wstring before = selected_ >= 0 ? items_[static_cast<size_t>(selected_)] : std::wstring();
    const int32_t oldIndex = selected_;
    items_ = std::move(items);
    measured_ = false;
    requestRepaint();
    const auto kept = std::ranges::find(items_, before);
    selected_ = oldIndex >= 0 && kept != items_.end() ? static_cast<int32_t>(kept - items_.begin()) : -1;
    const WeakControl self(*this);
    close();
    if (self && selected_ != oldIndex) {
        SelectionChangedEvent event{.source = this, .oldIndex = oldIndex, .newIndex = selected_};
        selectionChanged.emit(event);
    }
}

void SelectBox::select(int32_t index) {
    const int32_t wanted = index >= 0 && index < static_cast<int32_t>(items_.size()) ? index : -1;
    if (selected_ == wanted) {
        return;
    }
    SelectionChangedEvent event{.source = this, .oldIndex = std::exchange(selected_, wanted), .newIndex = wanted};
    measured_ = false;
    requestRepaint();
    selectionChanged.emit(event);
}

bool SelectBox::isOpen() const {
    return dropDown_ != nullptr;
}

void SelectBox::open() {
    WindowFrame* const frame = window() != nullptr ? window()->frame() : nullptr;
    if (isOpen() || items_.empty() || frame == nullptr || !usable()) {
        return;
    }
    // The keyboard's keys go where the focus is, and its loss closes the list.
    const WeakControl self(*this);
    if (!window()->setFocus(this) || !self || isOpen() || window() == nullptr) {
        return;
    }
    auto content = std::make_unique<SelectList>(items_, selected_, [this](int32_t index) { choose(index); });
    content->setAppearance(appearance());
    SelectList* const list = content.get();
    const Rect field = fieldArea();
    std::unique_ptr<PopupWindow> popup =
        frame->openPopup({.anchor = frame->onScreen(field.offset(clientOrigin())),
                          .rightToLeft = window()->rightToLeft(),
                          .shrinks = true,
                          .content = std::move(content),
                          .measure = [list, least = field.width] { return list->preferredSize(least); },
                          .dismissed = [this] { close(); }});
    // Another pop-up window may have closed for this one, and told somebody who has destroyed the box.
    if (popup == nullptr || !self) {
        return;
    }
    dropDown_ = std::make_unique<DropDown>(list, std::move(popup));
    requestRepaint();
    PopupEvent event{.source = this, .open = true};
    popupChanged.emit(event);
}

void SelectBox::close(bool dismissed) {
    if (!isOpen()) {
        return;
    }
    dropDown_.reset();
    requestRepaint();
    PopupEvent event{.source = this, .open = false, .dismissed = dismissed};
    popupChanged.emit(event);
}

void SelectBox::toggle() {
    if (isOpen()) {
        close();
    } else {
        open();
    }
}

void SelectBox::choose(int32_t index) {
    const WeakControl self(*this);
    close(false);
    if (self) {
        select(index);
    }
}

int32_t SelectBox::current() const {
    return isOpen() ? dropDown_->list->hot() : selected_;
}

void SelectBox::moveTo(int32_t index) {
    if (items_.empty()) {
        return;
    }
    const int32_t wanted = std::clamp(index, 0, static_cast<int32_t>(items_.size()) - 1);
    if (isOpen()) {
        dropDown_->list->setHot(wanted);
    } else {
        select(wanted);
    }
}

// Where a key leads.
std::optional<int32_t> SelectBox::target(uint32_t code) const {
    const int32_t page = isOpen() ? dropDown_->list->rowsInSight() : kMostListRows;
    switch (code) {
        case key::kUp:
            return current() - 1;
        case key::kDown:
            return current() + 1;
        case key::kPageUp:
            return current() - page;
        case key::kPageDown:
            return current() + page;
        case key::kHome:
            return 0;
        case key::kEnd:
            return static_cast<int32_t>(items_.size()) - 1;
        default:
            return std::nullopt;
    }
}

bool SelectBox::keyPress(KeyEvent& event) {
    if ((event.modifiers & kControlKey) != 0) {
        return false;
    }
    const bool isVertical = event.code == key::kUp || event.code == key::kDown;
    if ((event.modifiers & kAlt) != 0) {
        if (isVertical && !event.wasDown) {
            toggle();
        }
        return isVertical;
    }
    if (const std::optional<int32_t> index = target(event.code)) {
        moveTo(*index);
        return true;
    }
    switch (event.code) {
        case key::kF4:
            toggle();
            return true;
        case key::kSpace:
            if (!typed_.empty()) {
                type(L" ");
                return true;
            }
            if (!event.wasDown && !activate()) {
                open();
            }
            return true;
        case key::kEscape:
            if (!isOpen()) {
                return false;
            }
            close();
            return true;
        default:
            return false;
    }
}

// Chooses the hot row of the open list. A closed one leaves Return to the window's default button.
bool SelectBox::activate() {
    if (!isOpen()) {
        return false;
    }
    if (const int32_t hot = dropDown_->list->hot(); hot >= 0) {
        choose(hot);
    } else {
        close();
    }
    return true;
}

bool SelectBox::textInput(TextInputEvent& event) {
    if (event.text.empty() || event.text.front() < L' ') {
        return false;
    }
    type(event.text);
    return true;
}

// The first letter leads on to the next item that begins with it, and so does the same one again; more of them narrow
// it down.
void SelectBox::type(const std::wstring& characters) {
    typed_ += characters;
    if (window() != nullptr) {
        window()->setControlTimer(*this, kTypingPause, [this] {
            typed_.clear();
            window()->setControlTimer(*this, 0);
        });
    }
    const int32_t at = std::max(current(), 0);
    const bool isFirst = typed_ == characters;
    int32_t found = findItem(items_, typed_, isFirst ? current() + 1 : at);
    if (found < 0 && typed_.find_first_not_of(typed_.front()) == std::wstring::npos) {
        found = findItem(items_, characters, current() + 1);
    }
    if (found >= 0) {
        moveTo(found);
    }
}

bool SelectBox::pointerPress(PointerEvent& event) {
    if (event.button != PointerButton::Left) {
        return false;
    }
    toggle();
    return true;
}

// Only with the focus: who scrolls a page past a box does not mean to change it.
bool SelectBox::pointerWheel(WheelEvent& event) {
    if (!focused_ || event.horizontal) {
        return false;
    }
    if (isOpen()) {
        return dropDown_->list->pointerWheel(event);
    }
    if (event.steps != 0.0) {
        moveTo(std::max(selected_, 0) + (event.steps > 0.0 ? -1 : 1));
    }
    return true;
}

void SelectBox::pointerEntered() {
    hot_ = true;
    requestRepaint();
}

void SelectBox::pointerLeft() {
    hot_ = false;
    requestRepaint();
}

void SelectBox::focusChanged(bool focused) {
    focused_ = focused;
    typed_.clear();
    requestRepaint();
    if (!focused) {
        close();
    }
}

void SelectBox::windowChanged() {
    typed_.clear();
    measured_ = false;
    if (window() == nullptr) {
        close();
    }
}

void SelectBox::boundsChanged() {
    close();
}

void SelectBox::appearanceChanged() {
    measured_ = false;
    requestRepaint();
}

void SelectBox::releaseCaches() {
    looks_.forget();
    measured_ = false;
}

bool SelectBox::matchesType(std::wstring_view type) const {
    return type == L"selectbox";
}

void SelectBox::automationValue(std::wstring& value) const {
    value = selected_ >= 0 ? items_[static_cast<size_t>(selected_)] : std::wstring();
}

void SelectBox::appendCustomState(ControlState& state) const {
    state.properties.push_back({L"selected", std::to_wstring(selected_)});
}

void SelectBox::restoreCustomProperty(const StateProperty& property) {
    if (property.name != L"selected") {
        return;
    }
    const std::string digits(property.value.begin(), property.value.end());
    int32_t index = -1;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), index).ec == std::errc()) {
        select(index);
    }
}

Rect SelectBox::fieldArea() const {
    const Rect area = localBounds();
    return {kSurfaceInset, kSurfaceInset, std::max(area.width - 2 * kSurfaceInset, 0),
            std::max(area.height - 2 * kSurfaceInset, 0)};
}

// At the end of the field.
Rect SelectBox::arrowArea() const {
    const Rect field = fieldArea();
    const int32_t width = std::min(kArrowWidth, field.width);
    const bool atLeft = window() != nullptr && window()->rightToLeft();
    return {atLeft ? field.x + kArrowInset : field.right() - kArrowInset - width, field.y + kArrowInset, width,
            std::max(field.height - 2 * kArrowInset, 0)};
}

void SelectBox::paint(HDC target, Point origin) {
    const Rect field = fieldArea();
    const Rect arrow = arrowArea();
    const SurfaceState state = stateOf({.enabled = enabled(), .pressed = isOpen(), .hot = hot_, .focused = focused_});
    looks_.paint(target, *this, origin, field, state, L"surface", focused_);
    // The mark of the focus is around the field.
    const SurfaceState arrowState = stateOf({.enabled = enabled(), .pressed = isOpen(), .hot = hot_});
    looks_.paint(target, *this, origin, arrow, arrowState, L"arrow");
    const Rect sign{arrow.x + (arrow.width - kGlyphSize) / 2, arrow.y + (arrow.height - kGlyphSize) / 2, kGlyphSize,
                    kGlyphSize};
    drawGlyph(target, deviceRect(sign, origin), Glyph::kArrowDown, looks_.look(*this, arrowState, L"arrow").text);

    const bool mirrored = arrow.x < field.width / 2;
    const int32_t taken = arrow.width + kArrowInset;
    const Rect text = deviceRect({field.x + kTextInset + (mirrored ? taken : 0), field.y,
                                  std::max(field.width - 2 * kTextInset - taken, 0), field.height},
                                 origin);
    if (!measured_ || measuredWidth_ != text.width) {
        std::wstring value;
        SelectBox::automationValue(value);
        layout_ = TextLayout(value, {.font = looks_.font(*this),
                                     .dpi = ControlLooks::dpi(*this),
                                     .rightToLeft = window() != nullptr && window()->rightToLeft(),
                                     .fit = TextFit::kEllipsis,
                                     .width = text.width});
        measured_ = true;
        measuredWidth_ = text.width;
    }
    layout_.draw(target, text, looks_.look(*this, state).text);
}

}  // namespace tavi
