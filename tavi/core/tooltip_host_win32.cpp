#include <windows.h>

#include "tavi/core/tooltip_host.h"

namespace tavi {
namespace {

constexpr wchar_t kTooltipClass[] = L"TaviTooltip";

// Windows' own colors and font. The font is made for each call: a tooltip is measured and painted once for each time it
// is shown.
class SystemTooltipPainter final : public TooltipPainter {
public:
    Size measure(HDC target, const TooltipContent& content) override {
        const Scale scale(content.dpi);
        RECT text{0, 0, scale.length(kWidestText), 0};
        draw(target, text, content, DT_CALCRECT);
        return {text.right + 2 * scale.length(kPadding.width), text.bottom + 2 * scale.length(kPadding.height)};
    }
    void paint(HDC target, const Rect& client, const TooltipContent& content) override {
        const Scale scale(content.dpi);
        RECT area{0, 0, client.width, client.height};
        FillRect(target, &area, GetSysColorBrush(COLOR_INFOBK));
        FrameRect(target, &area, GetSysColorBrush(COLOR_INFOTEXT));
        InflateRect(&area, -scale.length(kPadding.width), -scale.length(kPadding.height));
        SetBkMode(target, TRANSPARENT);
        SetTextColor(target, GetSysColor(COLOR_INFOTEXT));
        draw(target, area, content, 0);
    }

private:
    static constexpr int32_t kWidestText = 360;  // design pixels; longer texts wrap
    static constexpr Size kPadding{8, 5};        // design pixels on each side
    static constexpr int32_t kFontHeight = 12;   // design pixels

    static void draw(HDC target, RECT& area, const TooltipContent& content, UINT more) {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof(metrics);
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
        metrics.lfStatusFont.lfHeight = -Scale(content.dpi).length(kFontHeight);
        const HFONT font = CreateFontIndirectW(&metrics.lfStatusFont);
        const HGDIOBJ before = SelectObject(target, font);
        const UINT direction = content.rightToLeft ? DT_RTLREADING | DT_RIGHT : 0;
        DrawTextW(target, content.text.c_str(), static_cast<int>(content.text.size()), &area,
                  DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS | direction | more);
        SelectObject(target, before);
        DeleteObject(font);
    }
};

TooltipPainter*& chosenPainter() {
    static TooltipPainter* chosen = nullptr;
    return chosen;
}

TooltipPainter& painter() {
    static SystemTooltipPainter system;
    return chosenPainter() != nullptr ? *chosenPainter() : system;
}

}  // namespace

void setTooltipPainter(TooltipPainter* painter) {
    chosenPainter() = painter;
}

struct TooltipProcedure {
    static LRESULT CALLBACK run(HWND handle, UINT number, WPARAM wParam, LPARAM lParam) {
        auto* const host = reinterpret_cast<TooltipHostWindow*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
        if (number == WM_NCHITTEST) {
            return HTTRANSPARENT;
        }
        if (number == WM_PAINT && host != nullptr) {
            PAINTSTRUCT paint{};
            RECT client{};
            GetClientRect(handle, &client);
            painter().paint(BeginPaint(handle, &paint), {0, 0, client.right, client.bottom}, host->content_);
            EndPaint(handle, &paint);
            return 0;
        }
        if (number == WM_DESTROY && host != nullptr) {
            host->handle_ = nullptr;
        }
        return DefWindowProcW(handle, number, wParam, lParam);
    }

    static void registerClass() {
        WNDCLASSEXW description{};
        description.cbSize = sizeof(description);
        description.style = CS_DROPSHADOW | CS_SAVEBITS;
        description.lpfnWndProc = run;
        description.hInstance = GetModuleHandleW(nullptr);
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = kTooltipClass;
        RegisterClassExW(&description);
    }
};

std::optional<TooltipPlace> TooltipHostWindow::show(const Request& request) {
    if (handle_ == nullptr) {
        TooltipProcedure::registerClass();
        handle_ =
            CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_TRANSPARENT, kTooltipClass, L"",
                            WS_POPUP, 0, 0, 0, 0, request.owner, nullptr, GetModuleHandleW(nullptr), nullptr);
        if (handle_ == nullptr) {
            return std::nullopt;
        }
        SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    content_ = request.content;
    const HDC screen = GetDC(handle_);
    const Size size = painter().measure(screen, content_);
    ReleaseDC(handle_, screen);
    const TooltipPlace place = placeTooltip(request.anchor, size, request.workArea,
                                            Scale(content_.dpi).length(kTooltipDistance), content_.rightToLeft);
    const Rect& at = place.bounds;
    SetWindowPos(handle_, HWND_TOPMOST, at.x, at.y, at.width, at.height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
    InvalidateRect(handle_, nullptr, FALSE);
    return place;
}

void TooltipHostWindow::hide() {
    if (handle_ != nullptr) {
        ShowWindow(handle_, SW_HIDE);
    }
}

void TooltipHostWindow::close() {
    if (handle_ != nullptr) {
        DestroyWindow(handle_);
        handle_ = nullptr;
    }
}

}  // namespace tavi
