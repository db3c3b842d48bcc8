// A window system that is not there: a picture in memory to paint on, and a record of everything else that a window's
// policies ask for. Also for the fuzzer.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tavi/core/window_tree.h"

namespace testing_tavi {

// What an HDC stands for here: pixels of 32 bits and nested clips.
struct Canvas {
    explicit Canvas(tavi::Size extent)
        : size(extent), pixels(static_cast<size_t>(extent.width) * static_cast<size_t>(extent.height), 0xDEADBEEF) {}

    tavi::Size size;
    std::vector<uint32_t> pixels;
    std::vector<tavi::Rect> clips;

    HDC handle() { return reinterpret_cast<HDC>(this); }
    static Canvas& of(HDC handle) { return *reinterpret_cast<Canvas*>(handle); }

    // Blends, so that painting something twice shows.
    void blend(const tavi::Rect& area, uint32_t color, bool opaque) {
        tavi::Rect seen = intersection(area, {0, 0, size.width, size.height});
        for (const tavi::Rect& clip : clips) {
            seen = intersection(seen, clip);
        }
        for (int32_t y = seen.y; y < seen.bottom(); ++y) {
            for (int32_t x = seen.x; x < seen.right(); ++x) {
                uint32_t& pixel =
                    pixels[static_cast<size_t>(y) * static_cast<size_t>(size.width) + static_cast<size_t>(x)];
                pixel = opaque ? color : pixel * 31 + color;
            }
        }
    }
};

class PlatformStandIn : public tavi::WindowPlatform {
public:
    virtual ~PlatformStandIn() = default;

    std::vector<tavi::Rect> scheduled;
    bool grabbed = false;
    int32_t tooltipTimer = 0;
    std::map<tavi::WindowTimer, int32_t> controlTimers;  // ms, 0 when stopped
    tavi::WindowFrame* windowFrame = nullptr;
    std::wstring tooltip;
    tavi::Rect tooltipAnchor;
    std::wstring clipboard;
    std::vector<std::wstring> lines;
    int cancels = 0;
    int keyboards = 0;  // how often the keyboard was taken

    void schedulePaint(const tavi::Rect& area) override { scheduled.push_back(area); }
    void fill(HDC target, const tavi::Rect& area, uint32_t color) override {
        Canvas::of(target).blend(area, color, true);
    }
    void drawOverlay(HDC target, const std::vector<tavi::OverlayItem>& items) override {
        for (const tavi::OverlayItem& item : items) {
            Canvas::of(target).blend(item.area, item.color, false);
        }
    }
    void pushClip(HDC target, const tavi::Rect& area) override { Canvas::of(target).clips.push_back(area); }
    void popClip(HDC target) override { Canvas::of(target).clips.pop_back(); }
    void grabPointer(bool grab) override { grabbed = grab; }
    void takeKeyboard() override { ++keyboards; }
    void setTimer(tavi::WindowTimer timer, int32_t milliseconds) override {
        (timer == tavi::WindowTimer::Tooltip ? tooltipTimer : controlTimers[timer]) = milliseconds;
    }
    void showTooltip(const std::wstring& text, const tavi::Rect& anchor) override {
        tooltip = text, tooltipAnchor = anchor;
    }
    void hideTooltip() override { tooltip.clear(); }
    void copyText(const std::wstring& text) override { clipboard = text; }
    std::wstring clipboardText() override { return clipboard; }
    tavi::WindowFrame* frame() override { return windowFrame; }
    void writeDiagnostic(const std::wstring& line) override { lines.push_back(line); }
    void cancelRequested() override { ++cancels; }
};

// A control that takes part in everything: paints itself half transparent, and writes down what happens to it.
class Probe : public tavi::Panel {
public:
    Probe(std::wstring name, const tavi::Rect& area, std::vector<std::wstring>* journal = nullptr)
        : Panel(std::move(name), area), log(journal) {}

    std::vector<std::wstring>* log = nullptr;
    bool takesFocus = false;
    bool takesInput = false;
    bool activates = false;
    bool transparent = false;
    tavi::Point at;  // of the last move or release
    std::optional<tavi::Rect> anchor;
    std::optional<tavi::Rect> caret;
    // Called at the end of every hook; may destroy this control.
    std::function<void(const std::wstring& hook)> then;

    void paint(HDC target, tavi::Point origin) override {
        const auto color = static_cast<uint32_t>(std::hash<std::wstring>()(id() + text()));
        Canvas::of(target).blend(deviceRect(localBounds(), origin), color, false);
        Panel::paint(target, origin);
    }
    bool pointerMove(tavi::PointerEvent& event) override {
        at = event.position;
        return Panel::pointerMove(event) || note(L"move");
    }
    bool pointerPress(tavi::PointerEvent& event) override { return Panel::pointerPress(event) || note(L"press"); }
    bool pointerRelease(tavi::PointerEvent& event) override {
        at = event.position;
        return Panel::pointerRelease(event) || note(L"release");
    }
    bool pointerWheel(tavi::WheelEvent& event) override { return Panel::pointerWheel(event) || note(L"wheel"); }
    bool keyPress(tavi::KeyEvent&) override { return note(L"key"); }
    bool keyRelease(tavi::KeyEvent&) override { return note(L"key up"); }
    bool textInput(tavi::TextInputEvent& event) override { return note(L"text " + event.text); }
    bool compositionChanged(tavi::CompositionEvent& event) override { return note(L"composition " + event.text); }
    bool editCommand(tavi::EditCommand) override { return note(L"edit"); }
    bool acceptsFocus() const override { return takesFocus; }
    bool transparentToPointer() const override { return transparent; }
    std::optional<tavi::Rect> tooltipAnchor() const override { return anchor; }
    std::optional<tavi::Rect> caretRectangle() const override { return caret; }
    void releaseCaches() override {
        Panel::releaseCaches();
        if (log != nullptr) {
            log->push_back(id() + L" caches");
        }
    }
    void focusChanged(bool focused) override { note(focused ? L"focus" : L"blur"); }
    bool activate() override {
        const bool does = activates;
        note(L"activate");
        return does;
    }
    void inputCancelled() override { note(L"cancelled"); }
    void pointerEntered() override { note(L"enter"); }
    void pointerLeft() override { note(L"leave"); }
    void windowChanged() override { note(window() != nullptr ? L"attached" : L"detached"); }

private:
    bool note(const std::wstring& hook) {
        const bool handled = takesInput;
        if (log != nullptr) {
            log->push_back(id() + L" " + hook);
        }
        if (then) {
            const auto callback = then;
            callback(hook);
        }
        return handled;
    }
};

}  // namespace testing_tavi
