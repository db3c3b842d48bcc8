// The small window that shows a tooltip. It never takes the focus and lets the pointer through.
#pragma once

#include <functional>
#include <string>

#include "tavi/core/tooltip.h"

struct HFONT__;

namespace tavi {

class TooltipHostWindow {
public:
    TooltipHostWindow() = default;
    TooltipHostWindow(const TooltipHostWindow&) = delete;
    TooltipHostWindow& operator=(const TooltipHostWindow&) = delete;
    ~TooltipHostWindow() { close(); }

    struct Request {
        HWND owner = nullptr;
        std::wstring text;
        Rect anchor;    // device pixels of the screen
        Rect workArea;  // likewise
        int32_t dpi = kDesignDpi;
    };
    // Measures the text, places the window beside the anchor and shows it. Returns where it lies; nothing when Windows
    // refuses.
    std::optional<TooltipPlace> show(const Request& request);
    void hide();
    void close();
    HWND handle() const { return handle_; }

private:
    friend struct TooltipProcedure;
    void paint(HDC target, const Rect& client) const;
    Size measure(HDC target) const;

    HWND handle_ = nullptr;
    HFONT__* font_ = nullptr;
    int32_t fontDpi_ = 0;
    Scale scale_;
    std::wstring text_;
};

}  // namespace tavi
