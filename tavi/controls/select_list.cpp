#include "tavi/controls/select_list.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavi {
namespace {

// Design pixels.
constexpr int32_t kPadding = 4;    // around all rows
constexpr int32_t kTextInset = 6;  // from the ends of a row; with the padding, as far as in the field
constexpr int32_t kBarWidth = 14;

constexpr int32_t kRowsEachNotch = 3;  // of the wheel

}  // namespace

SelectList::SelectList(std::vector<std::wstring> items, int32_t selected, Chosen chosen)
    : Panel(L"list"), items_(std::move(items)), selected_(selected), hot_(selected), chosen_(std::move(chosen)) {
    // Adding it lays out this list, which places the bar.
    auto bar = std::make_unique<ScrollBar>(L"bar", Rect{});
    bar_ = bar.get();
    addChild(std::move(bar));
    bar_->changed.connect([this](ValueChangedEvent&) { scrollTo(bar_->value()); });
}

// All items are measured once, so that scrolling never changes the width.
Size SelectList::preferredSize(int32_t least) const {
    const TextFormat format{.font = looks_.font(*this), .dpi = ControlLooks::dpi(*this)};
    Size text;
    for (const std::wstring& item : items_) {
        text = larger(text, TextLayout(item, format).size());
    }
    const int32_t bar = count() > kMostListRows ? kBarWidth : 0;
    const int32_t width = Scale(format.dpi).design(text).width + 2 * (kPadding + kTextInset) + bar;
    return {std::max(width, least), std::clamp(count(), 1, kMostListRows) * kListRowHeight + 2 * kPadding};
}

int32_t SelectList::rowsInSight() const {
    return std::max((bounds().height - 2 * kPadding) / kListRowHeight, 1);
}

void SelectList::layoutChildren() {
    if (bounds().empty()) {
        return;
    }
    const bool scrolls = count() > rowsInSight();
    const bool atLeft = window() != nullptr && window()->rightToLeft();
    const int32_t x = atLeft ? kPadding / 2 : bounds().width - kBarWidth - kPadding / 2;
    bar_->setVisible(scrolls);
    bar_->setBounds({x, kPadding, kBarWidth, std::max(bounds().height - 2 * kPadding, 0)});
    bar_->setRange(count(), std::min(rowsInSight(), count()));
    layouts_.clear();
    scrollTo(first_);
    setHot(hot_);
}

void SelectList::scrollTo(int64_t first) {
    const auto wanted = static_cast<int32_t>(std::clamp<int64_t>(first, 0, std::max(count() - rowsInSight(), 0)));
    if (first_ != wanted) {
        first_ = wanted;
        requestRepaint();
    }
    bar_->setValue(first_);
}

Rect SelectList::rowArea(int32_t index) const {
    const int32_t row = index - firstRow();
    if (row < 0 || row >= rowsInSight() || index >= count()) {
        return {};
    }
    const int32_t bar = bar_->visible() ? kBarWidth : 0;
    const bool barAtLeft = window() != nullptr && window()->rightToLeft();
    return {kPadding + (barAtLeft ? bar : 0), kPadding + row * kListRowHeight,
            std::max(bounds().width - 2 * kPadding - bar, 0), kListRowHeight};
}

int32_t SelectList::rowAt(Point local) const {
    for (int32_t index = firstRow(); index < std::min(count(), firstRow() + rowsInSight()); ++index) {
        if (rowArea(index).contains(local)) {
            return index;
        }
    }
    return -1;
}

void SelectList::setHot(int32_t index) {
    if (index >= 0) {
        scrollTo(std::clamp(first_, index + 1 - rowsInSight(), index));
    }
    if (hot_ != index) {
        hot_ = index;
        requestRepaint();
    }
}

void SelectList::automationValue(std::wstring& value) const {
    value = hot_ >= 0 ? items_[static_cast<size_t>(hot_)] : std::wstring();
}

void SelectList::releaseCaches() {
    Panel::releaseCaches();
    looks_.forget();
    layouts_.clear();
}

void SelectList::paint(HDC target, Point origin) {
    looks_.paintDropDown(target, *this, origin);
    for (int32_t index = firstRow(); index < std::min(count(), firstRow() + rowsInSight()); ++index) {
        paintRow(target, origin, index);
    }
    Panel::paint(target, origin);
}

const TextLayout& SelectList::layoutFor(int32_t index, int32_t deviceWidth) const {
    if (const auto kept = layouts_.find(index); kept != layouts_.end()) {
        return kept->second;
    }
    const TextFormat format{.font = looks_.font(*this),
                            .dpi = ControlLooks::dpi(*this),
                            .rightToLeft = window() != nullptr && window()->rightToLeft(),
                            .fit = TextFit::kEllipsis,
                            .width = deviceWidth};
    return layouts_.emplace(index, TextLayout(items_[static_cast<size_t>(index)], format)).first->second;
}

void SelectList::paintRow(HDC target, Point origin, int32_t index) const {
    const Rect area = rowArea(index);
    const SurfaceState state = index == hot_        ? SurfaceState::kHot
                               : index == selected_ ? SurfaceState::kSelected
                                                    : SurfaceState::kNormal;
    if (state != SurfaceState::kNormal) {
        looks_.paint(target, *this, origin, area, state, L"row");
    }
    const Rect text = deviceRect({area.x + kTextInset, area.y, area.width - 2 * kTextInset, area.height}, origin);
    layoutFor(index, text.width).draw(target, text, looks_.look(*this, state, L"row").text);
}

bool SelectList::pointerMove(PointerEvent& event) {
    const WeakControl self(*this);
    if (Panel::pointerMove(event) || !self) {
        return true;
    }
    // Windows tells of moves that are none, as when a window appears: those leave the keyboard's row alone.
    if (pointer_ != event.position) {
        pointer_ = event.position;
        if (const int32_t row = rowAt(event.position); row >= 0) {
            setHot(row);
        }
    }
    return true;
}

bool SelectList::pointerPress(PointerEvent& event) {
    const WeakControl self(*this);
    if (Panel::pointerPress(event) || !self) {
        return true;
    }
    pressed_ = event.button == PointerButton::Left;
    if (const int32_t row = rowAt(event.position); row >= 0) {
        setHot(row);
    }
    return true;
}

bool SelectList::pointerRelease(PointerEvent& event) {
    const WeakControl self(*this);
    if (Panel::pointerRelease(event) || !self) {
        return true;
    }
    const int32_t row = rowAt(event.position);
    if (std::exchange(pressed_, false) && row >= 0) {
        const Chosen chosen = chosen_;
        chosen(row);
    }
    return true;
}

bool SelectList::pointerWheel(WheelEvent& event) {
    if (event.horizontal) {
        return false;
    }
    scrollTo(first_ - std::lround(event.steps * kRowsEachNotch));
    pointer_.reset();
    return true;
}

}  // namespace tavi
