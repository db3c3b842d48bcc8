#include "tavi/controls/chrome_title_bar.h"

#include <algorithm>
#include <utility>

#include "tavi/core/window_frame.h"
#include "tavi/theme/surface_drawing.h"

namespace tavi {
namespace {

// Design pixels.
constexpr Size kButtonSize{40, 28};
constexpr int32_t kButtonGap = 2;
constexpr int32_t kEdgeMargin = 7;  // between the last button and the bar's end
constexpr int32_t kTitleMargin = 16;

// What a caption button is, in the order of CaptionButton. The names are those of its command; a window that is
// maximised has another one for the second.
struct ButtonRow {
    const wchar_t* id;
    const wchar_t* name;
    Glyph glyph;
};
constexpr ButtonRow kButtons[kCaptionButtonCount] = {
    {L"chrome-minimize", L"minimize", Glyph::kMinimize},
    {L"chrome-maximize", L"maximize", Glyph::kMaximize},
    {L"chrome-reset-size", L"reset-size", Glyph::kResetSize},
    {L"chrome-close", L"close", Glyph::kClose},
};
constexpr wchar_t kRestore[] = L"restore";
constexpr std::wstring_view kHeaderAction = L"header-action-";

// What a command does where nobody else has done it.
struct CommandRow {
    std::wstring_view name;
    void (WindowFrame::*act)();
};
constexpr CommandRow kCommands[] = {
    {L"minimize", &WindowFrame::minimize},  {L"maximize", &WindowFrame::maximize},
    {kRestore, &WindowFrame::restore},      {L"reset-size", &WindowFrame::resetToDefaultSize},
    {L"close", &WindowFrame::requestClose}, {L"drag", &WindowFrame::beginMove},
};

bool isMaximized(const Control& control) {
    WindowFrame* const frame = control.window() != nullptr ? control.window()->frame() : nullptr;
    return frame != nullptr && frame->maximized();
}

// Closing is the one thing in a bar that cannot be taken back: under the pointer it looks like the dangerous button of
// the skin.
class CloseButton final : public ThemedButton {
public:
    using ThemedButton::ThemedButton;

    void pointerEntered() override {
        setLook(L"button", L"surface");
        setAppearance({.styleName = L"danger"});
        ThemedButton::pointerEntered();
    }
    void pointerLeft() override {
        setLook(L"chrometitlebar", L"button");
        setAppearance({});
        ThemedButton::pointerLeft();
    }
};

}  // namespace

// The bar but for its buttons; lies behind them.
class ChromeTitleBar::DragArea final : public Control {
public:
    DragArea(ChromeTitleBar& bar, const Rect& bounds) : Control(L"chrome-drag", bounds), bar_(bar) {}

    bool pointerPress(PointerEvent& event) override {
        if (event.button != PointerButton::Left) {
            return event.button == PointerButton::Right;
        }
        if (event.clicks == 2) {
            bar_.toggleMaximized();
        } else {
            bar_.run(L"drag");
        }
        return true;
    }
    bool pointerRelease(PointerEvent& event) override {
        WindowFrame* const frame = window() != nullptr ? window()->frame() : nullptr;
        if (event.button != PointerButton::Right || frame == nullptr || !localBounds().contains(event.position)) {
            return false;
        }
        const Point at = event.position + clientOrigin();
        frame->openSystemMenu(frame->onScreen({at.x, at.y, 1, 1}).position());
        return true;
    }

private:
    ChromeTitleBar& bar_;
};

ChromeTitleBar::ChromeTitleBar(std::wstring id, const Rect& bounds, std::wstring title, const Theme& theme)
    : Panel(std::move(id), bounds), titleFont_{theme.uiFontFamily, theme.uiPointSize, theme.uiWeight} {
    drag_ = add<DragArea>(*this, localBounds());
    drag_->setLayoutOverlapAllowed(true);
    for (size_t i = 0; i < buttons_.size(); ++i) {
        const auto kind = static_cast<CaptionButton>(i);
        buttons_[i] = kind == CaptionButton::kClose ? add<CloseButton>(kButtons[i].id, Rect{}, L"")
                                                    : add<ThemedButton>(kButtons[i].id, Rect{}, L"");
        buttons_[i]->setLook(L"chrometitlebar", L"button");
        buttons_[i]->setFocusable(false);
        buttons_[i]->setGlyph(kButtons[i].glyph);
        buttons_[i]->setAutomationName(kButtons[i].name);
        buttons_[i]->pressed.connect([this, kind](CommandEvent&) { run(descriptiveName(kind)); });
    }
    setText(std::move(title));
    layout();
}

void ChromeTitleBar::setButtonShown(CaptionButton button, bool shown) {
    wanted_[static_cast<size_t>(button)] = shown;
    layout();
}

size_t ChromeTitleBar::addHeaderAction(Glyph glyph, std::wstring tooltip, std::function<void()> action) {
    const size_t index = headerActions_.size();
    const std::wstring name = std::wstring(kHeaderAction) + std::to_wstring(index);
    auto* const button = add<ThemedButton>(L"chrome-" + name, Rect{}, L"");
    button->setLook(L"chrometitlebar", L"button");
    button->setFocusable(false);
    button->setGlyph(glyph);
    button->setAutomationName(name);
    button->setTooltip(std::move(tooltip));
    button->pressed.connect([this, name](CommandEvent&) { run(name); });
    headerActions_.push_back(button);
    actions_.push_back(std::move(action));
    layout();
    return index;
}

std::wstring ChromeTitleBar::descriptiveName(CaptionButton button) const {
    return button == CaptionButton::kMaximize && isMaximized(*this) ? kRestore
                                                                    : kButtons[static_cast<size_t>(button)].name;
}

// Whether the caller wants it and the window has the means for it. Before there is a window nobody can tell.
bool ChromeTitleBar::isOffered(CaptionButton button) const {
    WindowFrame* const frame = window() != nullptr ? window()->frame() : nullptr;
    if (!wanted_[static_cast<size_t>(button)] || button == CaptionButton::kClose || frame == nullptr) {
        return wanted_[static_cast<size_t>(button)];
    }
    return button == CaptionButton::kMinimize ? frame->canMinimize() : frame->canMaximize();
}

// Runs a command: by whoever listens, else by the window. A listener may destroy this bar.
void ChromeTitleBar::run(const std::wstring& name) {
    const WeakControl self(*this);
    CommandEvent event{.source = this, .command = id() + L"." + name};
    command.emit(event);
    if (!self || event.consumed) {
        return;
    }
    if (name.starts_with(kHeaderAction)) {
        const size_t index = std::wcstoul(name.c_str() + kHeaderAction.size(), nullptr, 10);
        if (const std::function<void()> action = actions_[index]) {
            action();
        }
        return;
    }
    WindowFrame* const frame = window() != nullptr ? window()->frame() : nullptr;
    const auto row = std::ranges::find(kCommands, name, &CommandRow::name);
    if (frame != nullptr && row != std::end(kCommands)) {
        (frame->*row->act)();
    }
}

void ChromeTitleBar::toggleMaximized() {
    WindowFrame* const frame = window() != nullptr ? window()->frame() : nullptr;
    if (frame != nullptr && frame->canMaximize()) {
        run(descriptiveName(CaptionButton::kMaximize));
    }
}

// From the bar's end inwards.
std::vector<ThemedButton*> ChromeTitleBar::placedButtons() const {
    std::vector<ThemedButton*> placed;
    for (size_t i = buttons_.size(); i-- > 0;) {
        if (buttons_[i]->visible()) {
            placed.push_back(buttons_[i]);
        }
    }
    placed.insert(placed.end(), headerActions_.rbegin(), headerActions_.rend());
    return placed;
}

void ChromeTitleBar::layoutChildren() {
    if (buttons_.back() == nullptr) {
        return;  // it is still being put together
    }
    drag_->setBounds(localBounds());
    for (size_t i = 0; i < buttons_.size(); ++i) {
        buttons_[i]->setVisible(isOffered(static_cast<CaptionButton>(i)));
    }
    ThemedButton* const maximize = buttons_[static_cast<size_t>(CaptionButton::kMaximize)];
    maximize->setGlyph(isMaximized(*this) ? Glyph::kRestore : Glyph::kMaximize);
    maximize->setAutomationName(descriptiveName(CaptionButton::kMaximize));

    const Size size{kButtonSize.width, std::min(kButtonSize.height, bounds().height)};
    const bool rightToLeft = window() != nullptr && window()->rightToLeft();
    int32_t fromEnd = kEdgeMargin;
    for (ThemedButton* const button : placedButtons()) {
        const int32_t x = rightToLeft ? fromEnd : bounds().width - fromEnd - size.width;
        button->setBounds({x, (bounds().height - size.height) / 2, size.width, size.height});
        fromEnd += size.width + kButtonGap;
    }
    requestRepaint();
}

Rect ChromeTitleBar::titlePlace() const {
    const auto count = static_cast<int32_t>(placedButtons().size());
    const int32_t end = kEdgeMargin + count * (kButtonSize.width + kButtonGap);
    Rect place = rectBetween(kTitleMargin, 0, bounds().width - end, bounds().height);
    if (window() != nullptr && window()->rightToLeft()) {
        place.x = bounds().width - place.right();
    }
    return place;
}

bool ChromeTitleBar::matchesType(std::wstring_view type) const {
    return type == L"chrometitlebar";
}

void ChromeTitleBar::paint(HDC target, Point origin) {
    const StyleLook& look = looks_.look(*this, SurfaceState::kNormal);
    SurfaceStyle style = look.surface;
    // It ends where the window ends: other shapes would leave bare corners, and what reaches out would be cut off.
    style.shape = ButtonShape::kRectangle;
    style.showShadow = style.showGlow = style.showOutline = false;
    drawSurface(target, deviceRect(localBounds(), origin), style);

    const Rect area = deviceRect(titlePlace(), origin);
    const TextFormat format{.font = appearance().font.value_or(titleFont_),
                            .dpi = ControlLooks::dpi(*this),
                            .rightToLeft = window() != nullptr && window()->rightToLeft(),
                            .fit = TextFit::kEllipsis,
                            .width = area.width};
    if (layout_.format() != format) {
        layout_ = TextLayout(text(), format);
    }
    layout_.draw(target, area, look.text);
    Panel::paint(target, origin);
}

void ChromeTitleBar::releaseCaches() {
    looks_.forget();
    layout_ = {};
    Panel::releaseCaches();
}

// What the window can do, and which way it reads, may be something else now.
void ChromeTitleBar::notifyTree() {
    const WeakControl self(*this);
    Panel::notifyTree();
    if (self) {
        layout();
    }
}

void ChromeTitleBar::windowChanged() {
    layout();
}

void ChromeTitleBar::textChanged() {
    layout_ = {};
    requestRepaint();
}

}  // namespace tavi
