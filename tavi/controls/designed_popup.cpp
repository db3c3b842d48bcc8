#include "tavi/controls/designed_popup.h"

#include <algorithm>
#include <utility>

#include "tavi/controls/button_row.h"
#include "tavi/theme/active_skin.h"
#include "tavi/theme/contrast.h"
#include "tavi/theme/surface_drawing.h"

namespace tavi {
namespace {

// Design pixels.
constexpr int32_t kMargin = 24;
constexpr int32_t kTopMargin = 16;
constexpr int32_t kBottomMargin = 18;
constexpr int32_t kBadgeExtent = 40;
constexpr int32_t kBadgeSignInset = 8;
constexpr int32_t kTextLeft = 76;    // beside the badge
constexpr int32_t kWidePopup = 600;  // from here on the text ends as far from its side as it begins
constexpr int32_t kHeadingGap = 10;
constexpr int32_t kEmptyMiddle = 22;
constexpr int32_t kButtonHeight = 34;
constexpr int32_t kButtonMinimum = 104;
constexpr int32_t kButtonGap = 10;

constexpr int kHeadingPoints = 5;
constexpr int kHeadingWeight = 600;
constexpr int kMessageWeight = 400;  // whatever the skin's captions have: this is for reading
constexpr int kLetterWeight = 700;

// The text begins beside the badge.
Rect textColumn(int32_t width) {
    return rectBetween(kTextLeft, 0, width - (width >= kWidePopup ? kTextLeft : kMargin), 0);
}

// Of a skin's text and its ground the one that can be read better on a surface.
Color readableOn(const SurfaceStyle& surface, const Theme& theme) {
    const Color below = surface.useGradient ? mixed(surface.gradientStart, surface.gradientEnd, 127) : surface.fill;
    return contrast(theme.text, below) > contrast(theme.shell, below) ? theme.text : theme.shell;
}

// The badge is the skin's, but for signs with a meaning: they have the colors of the buttons with the same meaning.
StyleLook badgeLook(Glyph sign) {
    const SkinDefinition& skin = activeSkin();
    StyleLook look = resolveStyle(skin, L"popup", L"default", SurfaceState::kNormal, L"icon");
    look.text = readableOn(look.surface, skin.theme);
    if (sign == Glyph::kError || sign == Glyph::kWarning) {
        const ButtonShape shape = look.surface.shape;
        look = resolveStyle(skin, L"button", sign == Glyph::kError ? L"danger" : L"warning", SurfaceState::kNormal);
        look.surface.shape = shape;
    }
    return look;
}

void mirrorIn(int32_t width, Rect& rect) {
    rect.x = width - rect.right();
}

}  // namespace

DesignedPopup::DesignedPopup(std::wstring id, const Rect& bounds) : Panel(std::move(id), bounds) {
    heading_ = add<Label>(this->id() + L".heading", Rect{}, L"");
    message_ = add<Label>(this->id() + L".message", Rect{}, L"");
    heading_->setFit(TextFit::kWrap);
    heading_->setFontChange(kHeadingPoints, kHeadingWeight);
    heading_->setAppearance({.styleName = L"title"});
    message_->setFit(TextFit::kWrap);
    message_->setFontChange(0, kMessageWeight);
    message_->setAlign(TextAlign::kStart, TextVertical::kTop);
}

void DesignedPopup::setHeading(std::wstring heading) {
    heading_->setText(std::move(heading));
    layout();
}

const std::wstring& DesignedPopup::heading() const {
    return heading_->text();
}

void DesignedPopup::setMessage(std::wstring message) {
    message_->setText(std::move(message));
    layout();
}

const std::wstring& DesignedPopup::message() const {
    return message_->text();
}

void DesignedPopup::setBadge(std::wstring letter) {
    if (badge_ != letter || badgeGlyph_ != Glyph::kNone) {
        badge_ = std::move(letter);
        badgeGlyph_ = Glyph::kNone;
        badgeLayout_ = {};
        requestRepaint();
    }
}

void DesignedPopup::setBadge(Glyph glyph) {
    if (badgeGlyph_ != glyph || !badge_.empty()) {
        badge_.clear();
        badgeGlyph_ = glyph;
        requestRepaint();
    }
}

ThemedButton* DesignedPopup::addButton(std::wstring id, std::wstring caption, bool primary) {
    auto* const button = add<ThemedButton>(std::move(id), Rect{}, std::move(caption));
    button->setAppearance({.styleName = primary ? L"primary-action" : L"secondary"});
    button->pressed.connect([this](CommandEvent& pressed) {
        CommandEvent event{.source = this, .command = pressed.command};
        // Afterwards this popup may be gone.
        chosen.emit(event);
        pressed.consumed = event.consumed;
    });
    buttons_.push_back(button);
    layout();
    return button;
}

void DesignedPopup::setReserved(int32_t top, int32_t middle) {
    if (reservedTop_ != top || reservedMiddle_ != middle) {
        reservedTop_ = top;
        reservedMiddle_ = middle;
        layout();
    }
}

int32_t DesignedPopup::preferredHeight(int32_t width) const {
    return places({width, 0}).height;
}

// First what lies at the top, downwards; then the buttons and what is reserved above them, upwards from the bottom. The
// message has what is left between.
DesignedPopup::Places DesignedPopup::places(Size size) const {
    Places places;
    const Rect column = textColumn(size.width);
    const int32_t top = reservedTop_ + kTopMargin;
    places.badge = {kMargin, top, kBadgeExtent, kBadgeExtent};
    const int32_t headingHeight = heading().empty() ? 0 : heading_->preferredSize(column.width).height;
    places.heading = {column.x, top + std::max((kBadgeExtent - headingHeight) / 2, 0), column.width, headingHeight};
    const int32_t messageTop = places.heading.bottom() + kHeadingGap;
    const int32_t messageHeight = message().empty() ? 0 : message_->preferredSize(column.width).height;

    std::vector<int32_t> widths;
    int32_t buttonHeight = kButtonHeight;
    for (const ThemedButton* const button : buttons_) {
        const Size preferred = button->preferredSize();
        widths.push_back(preferred.width);
        buttonHeight = std::max(buttonHeight, preferred.height);
    }
    const std::vector<ButtonPlace> row =
        placeButtons(widths, size.width - 2 * kMargin, kButtonGap, kButtonMinimum, false);
    const int32_t lines = row.empty() ? 0 : row.back().line + 1;
    const int32_t rowHeight = lines > 0 ? lines * (buttonHeight + kButtonGap) - kButtonGap : 0;
    const int32_t between = reservedMiddle_ > 0 ? reservedMiddle_ + 2 * kPopupMiddleGap : kEmptyMiddle;
    places.height = std::max(messageTop + messageHeight, places.badge.bottom()) + between + rowHeight + kBottomMargin;

    const int32_t rowTop =
        std::max(size.height, messageTop + between + rowHeight + kBottomMargin) - kBottomMargin - rowHeight;
    for (const ButtonPlace& place : row) {
        places.buttons.push_back(
            {kMargin + place.x, rowTop + place.line * (buttonHeight + kButtonGap), place.width, buttonHeight});
    }
    places.message = {column.x, messageTop, column.width, std::clamp(rowTop - between - messageTop, 0, messageHeight)};
    places.middle = {column.x, rowTop - (between + reservedMiddle_) / 2, column.width, reservedMiddle_};

    if (window() != nullptr && window()->rightToLeft()) {
        for (Rect* const rect : {&places.badge, &places.heading, &places.message, &places.middle}) {
            mirrorIn(size.width, *rect);
        }
        for (Rect& button : places.buttons) {
            mirrorIn(size.width, button);
        }
    }
    return places;
}

void DesignedPopup::layoutChildren() {
    const WeakControl self(*this);
    const std::vector<ThemedButton*> buttons = buttons_;
    for (Control* const child : childPointers()) {
        const bool isOwn = child == heading_ || child == message_ || std::ranges::find(buttons, child) != buttons.end();
        if (!isOwn) {
            child->applyParentLayout(localBounds());
        }
        if (!self) {
            return;
        }
    }
    if (window() == nullptr || bounds().empty()) {
        return;
    }
    const Places now = places(bounds().size());
    badgePlace_ = now.badge;
    heading_->setBounds(now.heading);
    message_->setBounds(now.message);
    for (size_t i = 0; i < buttons.size(); ++i) {
        buttons[i]->setBounds(now.buttons[i]);
    }
    requestRepaint();
}

void DesignedPopup::windowChanged() {
    layout();
}

// Fonts, scale or reading direction may be others now.
void DesignedPopup::notifyTree() {
    const WeakControl self(*this);
    Panel::notifyTree();
    if (self) {
        layout();
    }
}

void DesignedPopup::releaseCaches() {
    looks_.forget();
    badgeLayout_ = {};
    Panel::releaseCaches();
}

void DesignedPopup::dismiss() {
    if (!std::exchange(isDismissed_, true)) {
        PopupEvent event{.source = this, .open = false, .dismissed = true};
        dismissed.emit(event);
    }
}

bool DesignedPopup::activate() {
    dismiss();
    return true;
}

bool DesignedPopup::matchesType(std::wstring_view type) const {
    return type == L"popup";
}

bool DesignedPopup::fillsWindow() const {
    return parent() == nullptr || (parent()->parent() == nullptr && parent()->localBounds() == bounds());
}

void DesignedPopup::paint(HDC target, Point origin) {
    SurfaceStyle style = looks_.look(*this, SurfaceState::kNormal).surface;
    // A window is a rectangle: whatever else the skin's popups are would leave bare corners. And what reaches out of
    // the popup would be cut off anyway.
    style.shape = fillsWindow() ? ButtonShape::kRectangle : style.shape;
    style.showShadow = style.showGlow = style.showOutline = false;
    drawSurface(target, deviceRect(localBounds(), origin), style);
    paintBadge(target, origin);
    Panel::paint(target, origin);
}

void DesignedPopup::paintBadge(HDC target, Point origin) {
    if (badge_.empty() && badgeGlyph_ == Glyph::kNone) {
        return;
    }
    const int32_t dpi = ControlLooks::dpi(*this);
    const StyleLook look = badgeLook(badgeGlyph_);
    drawSurface(target, deviceRect(badgePlace_, origin), scaledStyle(look.surface, dpi * 100 / kDesignDpi));
    if (badgeGlyph_ != Glyph::kNone) {
        const int32_t extent = kBadgeExtent - 2 * kBadgeSignInset;
        const Rect inner{badgePlace_.x + kBadgeSignInset, badgePlace_.y + kBadgeSignInset, extent, extent};
        drawGlyph(target, deviceRect(inner, origin), badgeGlyph_, look.text);
        return;
    }
    TextFormat format{.font = looks_.font(*this), .dpi = dpi};
    format.font.points += kHeadingPoints;
    format.font.weight = kLetterWeight;
    if (badgeLayout_.format() != format) {
        badgeLayout_ = TextLayout(badge_, format);
    }
    badgeLayout_.draw(target, deviceRect(badgePlace_, origin), look.text, TextAlign::kCenter);
}

}  // namespace tavi
