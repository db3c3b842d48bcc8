#include "tavi/core/window_tree.h"

#include <utility>

#include "tavi/core/cache_release.h"

namespace tavi {
WindowTree::WindowTree(Key, WindowPlatform& platform)
    : platform_(platform),
      root_(L"root"),
      pointer_(root_, platform),
      focus_(root_, platform),
      tooltip_(platform),
      timers_(platform) {
    root_.setWindow(this);
}

std::shared_ptr<WindowTree> WindowTree::create(WindowPlatform& platform) {
    return std::make_shared<WindowTree>(Key{}, platform);
}

void WindowTree::close() {
    const std::shared_ptr<WindowTree> keep = shared_from_this();
    if (!closed_) {
        tooltip_.hover(nullptr);
        closed_ = true;
        root_.setWindow(nullptr);
    }
}

// Every entry for an event: nothing once the window is going; before and after it focus, hover and tooltip follow what
// the tree has become.
template <typename Action>
bool WindowTree::enter(const Action& action) {
    const std::shared_ptr<WindowTree> keep = shared_from_this();
    settle();
    if (closed_) {
        return false;
    }
    const bool handled = action();
    settle();
    return handled;
}

void WindowTree::settle() {
    if (closed_) {
        return;
    }
    // Hooks may change the tree again; what they do then is looked at with the next event.
    if (changed_) {
        changed_ = false;
        focus_.refresh();
        pointer_.refresh();
    }
    if (!closed_) {
        tooltip_.hover(pointer_.hovered());
    }
}

void WindowTree::setBackground(uint32_t color) {
    if (background_ != color) {
        background_ = color;
        repaintAll();
    }
}

void WindowTree::setClient(Size device, int32_t dpi) {
    enter([&] {
        const int32_t dpiBefore = scale_.dpi();
        scale_ = Scale(dpi, device);
        const Size design = scale_.designClient();
        root_.setBounds({0, 0, design.width, design.height});
        repaintAll();
        if (scale_.dpi() != dpiBefore) {
            environmentChanged();
        }
        return true;
    });
}

void WindowTree::environmentChanged() {
    enter([&] {
        CacheRelease release;
        cachesReleased().emit(release);
        root_.releaseTreeCaches();
        root_.notifyTree();
        repaintAll();
        return true;
    });
}

void WindowTree::setRightToLeft(bool rightToLeft) {
    if (rightToLeft_ != rightToLeft) {
        rightToLeft_ = rightToLeft;
        environmentChanged();
    }
}

bool WindowTree::pointerMove(PointerEvent event) {
    return enter([&] {
        const Point before = pointer_.position();
        event.position = scale_.design(event.position);
        const bool handled = pointer_.move(event);
        if (overlay_.on && pointer_.position() != before) {
            repaintAll();
        }
        return handled;
    });
}

bool WindowTree::pointerPress(PointerEvent event) {
    return enter([&] {
        tooltip_.dismiss();
        event.position = scale_.design(event.position);
        // The nearest that takes the focus gets it before it learns of the press.
        Control* target = controlAt(root_, event.position);
        while (target != nullptr && !focusable(*target)) {
            target = target->parent();
        }
        if (target != nullptr) {
            focus_.set(target);
        }
        return !closed_ && pointer_.press(event);
    });
}

bool WindowTree::pointerRelease(PointerEvent event) {
    return enter([&] {
        event.position = scale_.design(event.position);
        return pointer_.release(event);
    });
}

bool WindowTree::pointerWheel(WheelEvent event) {
    return enter([&] {
        tooltip_.dismiss();
        event.position = scale_.design(event.position);
        return pointer_.wheel(event);
    });
}

void WindowTree::pointerLeave() {
    enter([&] {
        pointer_.leave();
        if (overlay_.on) {
            repaintAll();
        }
        return true;
    });
}

void WindowTree::pointerLost() {
    enter([&] {
        pointer_.lose();
        return true;
    });
}

bool WindowTree::keyPress(KeyEvent event) {
    return enter([&] {
        tooltip_.dismiss();
        const OverlayAction action = pressOverlayKey(overlay_, event);
        if (action == OverlayAction::Repaint) {
            repaintAll();
        } else if (action == OverlayAction::CopyContext) {
            platform_.copyText(debugContext(pointer_.hovered(), pointer_.position()));
        }
        return action != OverlayAction::None || focus_.keyPress(event);
    });
}

bool WindowTree::keyRelease(KeyEvent event) {
    return enter([&] { return focus_.keyRelease(event); });
}

bool WindowTree::textInput(TextInputEvent event) {
    return enter([&] { return focus_.textInput(event); });
}

bool WindowTree::compositionChanged(CompositionEvent event) {
    return enter([&] { return focus_.compositionChanged(event); });
}

bool WindowTree::editCommand(EditCommand command) {
    return enter([&] { return focus_.editCommand(command); });
}

std::optional<Rect> WindowTree::caretRectangle() const {
    Control* const focused = focus_.focused();
    const std::optional<Rect> caret = focused != nullptr ? focused->caretRectangle() : std::nullopt;
    return caret ? std::optional(scale_.device(caret->offset(focused->clientOrigin()))) : std::nullopt;
}

CursorShape WindowTree::cursorShape() const {
    for (const Control* each = pointer_.hovered(); each != nullptr; each = each->parent()) {
        if (const std::optional<CursorShape> shape = each->cursor()) {
            return *shape;
        }
    }
    return CursorShape::Arrow;
}

void WindowTree::activated(bool active) {
    enter([&] {
        if (!active) {
            tooltip_.dismiss();
        }
        focus_.windowActivated(active);
        return true;
    });
}

void WindowTree::timeOut(WindowTimer timer) {
    enter([&] {
        if (timer == WindowTimer::Tooltip) {
            tooltip_.timeOut(scale_);
        } else {
            timers_.timeOut(timer);
        }
        return true;
    });
}

void WindowTree::repaintAll() {
    repaint(root_.bounds(), kRepaintAppearance);
}

void WindowTree::repaint(const Rect& area, uint32_t /*reason*/) {
    // The overlay draws beside the controls that it shows, so whatever changes, all of it does.
    const Rect seen = overlay_.on ? root_.bounds() : intersection(area, root_.bounds());
    if (!closed_ && dirty_.add(seen)) {
        platform_.schedulePaint(scale_.device(seen));
    }
}

void WindowTree::update() {
    const std::shared_ptr<WindowTree> keep = shared_from_this();
    settle();
}

void WindowTree::paint(HDC target) {
    const std::shared_ptr<WindowTree> keep = shared_from_this();
    if (!paintArea_.empty()) {
        return;
    }
    for (const Rect& area : dirty_.take()) {
        if (closed_) {
            break;
        }
        paintArea_ = area;
        pushClip(target, area);
        platform_.fill(target, scale_.device(area), background_);
        root_.paint(target, root_.bounds().position());
        if (overlay_.on) {
            platform_.drawOverlay(target, overlayPicture(root_, overlay_, pointer_.position(), pointer_.hovered()));
        }
        popClip(target);
    }
    paintArea_ = {};
}

void WindowTree::controlChanged(Control& /*control*/) {
    changed_ = true;
}

void WindowTree::controlLeaves(Control& control) {
    const std::shared_ptr<WindowTree> keep = shared_from_this();
    changed_ = true;
    pointer_.forget(control);
    focus_.forget(control);
    timers_.forget(control);
}

void WindowTree::pushClip(HDC target, const Rect& area) {
    platform_.pushClip(target, scale_.device(area));
}

void WindowTree::popClip(HDC target) {
    platform_.popClip(target);
}

void WindowTree::capturePointer(Control& control) {
    const std::shared_ptr<WindowTree> keep = shared_from_this();
    pointer_.capture(control);
}

void WindowTree::releasePointer() {
    const std::shared_ptr<WindowTree> keep = shared_from_this();
    pointer_.releaseCapture();
}

bool WindowTree::setFocus(Control* control) {
    const std::shared_ptr<WindowTree> keep = shared_from_this();
    return focus_.set(control);
}

void WindowTree::setControlTimer(Control& control, int32_t milliseconds, std::function<void()> tick) {
    if (!closed_) {
        timers_.set(control, milliseconds, std::move(tick));
    }
}

void WindowTree::writeDiagnostic(const std::wstring& line) {
    // Layout runs again and again, and the minimum is asked for with every move of the mouse: once is enough, until so
    // many different lines have come that they are no longer the same ones.
    constexpr size_t kRemembered = 1000;
    if (line.starts_with(L"[Tavi layout warning]") ||
        line.starts_with(L"[Tavi diagnostic] Panel::minimumContentSizeHint")) {
        if (written_.size() >= kRemembered) {
            written_.clear();
        }
        if (!written_.insert(line).second) {
            return;
        }
    }
    platform_.writeDiagnostic(line);
}

}  // namespace tavi
