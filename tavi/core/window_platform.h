// What the policies of a window (WindowTree) need of the window system. Window implements it with Win32, tests with a
// stand-in. Areas and points are device pixels of the client area.
#pragma once

#include <string>
#include <vector>

#include "tavi/core/geometry.h"
#include "tavi/core/native_handles.h"

namespace tavi {

// Something flat that is drawn over the tree: a frame, or a line of text with its ground.
struct OverlayItem {
    enum class Kind { Frame, Text };
    Kind kind = Kind::Frame;
    Rect area;           // design pixels; for a text the room it may take
    uint32_t color = 0;  // 0xBBGGRR
    std::wstring text;

    bool operator==(const OverlayItem&) const = default;
};

class WindowFrame;

// The timers of a window; those of its controls count from FirstOfControls on.
enum class WindowTimer : uint32_t { Tooltip = 1, FirstOfControls = 16 };

class WindowPlatform {
public:
    // Asks for a paint of the area, later.
    virtual void schedulePaint(const Rect& area) = 0;
    virtual void fill(HDC target, const Rect& area, uint32_t color) = 0;
    virtual void drawOverlay(HDC target, const std::vector<OverlayItem>& items) = 0;
    virtual void pushClip(HDC target, const Rect& area) = 0;
    virtual void popClip(HDC target) = 0;
    // Whether pointer events of the whole screen come to this window.
    virtual void grabPointer(bool grab) = 0;
    // Moves the keyboard to this window, or is harmless.
    virtual void takeKeyboard() = 0;
    // Starts a timer anew; 0 ms stops it.
    virtual void setTimer(WindowTimer timer, int32_t milliseconds) = 0;
    virtual void showTooltip(const std::wstring& text, const Rect& anchor) = 0;
    virtual void hideTooltip() = 0;
    virtual void copyText(const std::wstring& text) = 0;
    virtual std::wstring clipboardText() = 0;
    virtual WindowFrame* frame() = 0;
    virtual void writeDiagnostic(const std::wstring& line) = 0;
    // Escape was pressed and nothing in the window took it.
    virtual void cancelRequested() = 0;

protected:
    ~WindowPlatform() = default;
};

}  // namespace tavi
