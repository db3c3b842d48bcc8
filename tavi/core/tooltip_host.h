// The small window that shows a tooltip. It never takes the focus and lets the pointer through.
#pragma once

#include <string>

#include "tavi/core/tooltip.h"

namespace tavi {

struct TooltipContent {
    std::wstring text = {};
    int32_t dpi = kDesignDpi;
    bool rightToLeft = false;
};

// How tooltips look. All lengths are device pixels.
class TooltipPainter {
public:
    // The size of a tooltip with this content.
    virtual Size measure(HDC target, const TooltipContent& content) = 0;
    // Fills all of the window.
    virtual void paint(HDC target, const Rect& client, const TooltipContent& content) = 0;

protected:
    ~TooltipPainter() = default;
};

// For all tooltips that are shown from now on; null for those in Windows' own colors. Not owned.
void setTooltipPainter(TooltipPainter* painter);

class TooltipHostWindow {
public:
    TooltipHostWindow() = default;
    TooltipHostWindow(const TooltipHostWindow&) = delete;
    TooltipHostWindow& operator=(const TooltipHostWindow&) = delete;
    ~TooltipHostWindow() { close(); }

    struct Request {
        HWND owner = nullptr;
        TooltipContent content;
        Rect anchor;    // device pixels of the screen
        Rect workArea;  // likewise
    };
    // Measures the text, places the window beside the anchor and shows it. Returns where it lies; nothing when Windows
    // refuses.
    std::optional<TooltipPlace> show(const Request& request);
    void hide();
    void close();
    HWND handle() const { return handle_; }

private:
    friend struct TooltipProcedure;
    HWND handle_ = nullptr;
    TooltipContent content_;
};

}  // namespace tavi
