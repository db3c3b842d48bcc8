#include <windows.h>

#include "tavi/core/tooltip_host.h"

namespace tavi {
namespace {

constexpr wchar_t kTooltipClass[] = L"TaviTooltip";
constexpr int32_t kWidestText = 360;  // design pixels; longer texts wrap
constexpr Size kPadding{8, 5};        // design pixels on each side
constexpr UINT kTextFormat = DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS;

}  // namespace

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
            host->paint(BeginPaint(handle, &paint), {0, 0, client.right, client.bottom});
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
    scale_ = Scale(request.dpi);
    text_ = request.text;
    if (font_ == nullptr || fontDpi_ != request.dpi) {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof(metrics);
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
        metrics.lfStatusFont.lfHeight = -scale_.length(12);
        if (font_ != nullptr) {
            DeleteObject(font_);
        }
        font_ = CreateFontIndirectW(&metrics.lfStatusFont);
        fontDpi_ = request.dpi;
    }
    const HDC screen = GetDC(handle_);
    const Size size = measure(screen);
    ReleaseDC(handle_, screen);
    const TooltipPlace place = placeTooltip(request.anchor, size, request.workArea, scale_.length(kTooltipDistance));
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
    if (font_ != nullptr) {
        DeleteObject(font_);
        font_ = nullptr;
    }
}

Size TooltipHostWindow::measure(HDC target) const {
    RECT text{0, 0, scale_.length(kWidestText), 0};
    const HGDIOBJ font = SelectObject(target, font_);
    DrawTextW(target, text_.c_str(), static_cast<int>(text_.size()), &text, kTextFormat | DT_CALCRECT);
    SelectObject(target, font);
    return {text.right + 2 * scale_.length(kPadding.width), text.bottom + 2 * scale_.length(kPadding.height)};
}

void TooltipHostWindow::paint(HDC target, const Rect& client) const {
    RECT area{0, 0, client.width, client.height};
    FillRect(target, &area, GetSysColorBrush(COLOR_INFOBK));
    FrameRect(target, &area, GetSysColorBrush(COLOR_INFOTEXT));
    InflateRect(&area, -scale_.length(kPadding.width), -scale_.length(kPadding.height));
    const HGDIOBJ font = SelectObject(target, font_);
    SetBkMode(target, TRANSPARENT);
    SetTextColor(target, GetSysColor(COLOR_INFOTEXT));
    DrawTextW(target, text_.c_str(), static_cast<int>(text_.size()), &area, kTextFormat);
    SelectObject(target, font);
}

}  // namespace tavi
