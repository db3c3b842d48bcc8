// window_timer OUT.txt: measures windows of the UI framework beside bare ones, in turn, and writes the microseconds of
// each round, a line a round: opening a bare window that draws one rectangle, its repaints, opening one of ours with 50
// controls that draw one each, repaints of one small control of a window of translucent surfaces, repaints of all of
// it. Opening counts from the registration of the class to the end of the first paint.
#include <windows.h>

#include <span>
#include <string>
#include <utility>

#include "base/win32/files.h"
#include "base/win32/system_library.h"
#include "bench/clock.h"
#include "tavi/core/window.h"

namespace {

using bench::microseconds;

constexpr int kRounds = 41;
constexpr int kRepaints = 40;
constexpr int kControls = 50;
constexpr tavi::Size kClient{690, 344};

void drawRectangle(HDC target, const RECT& rect) {
    SetDCBrushColor(target, 0x8A5A2C);
    FillRect(target, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

LRESULT CALLBACK bareProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT) {
        PAINTSTRUCT paint{};
        const HDC target = BeginPaint(handle, &paint);
        drawRectangle(target, {20, 20, 200, 100});
        EndPaint(handle, &paint);
        return 0;
    }
    return DefWindowProcW(handle, message, wParam, lParam);
}

// Asks for a paint and waits for it, again and again.
template <typename Request>
long long repaints(HWND window, const Request& request) {
    const long long start = microseconds();
    for (int i = 0; i < kRepaints; ++i) {
        request();
        UpdateWindow(window);
    }
    GdiFlush();
    return microseconds() - start;
}

// Opening the window, and its repaints, which cost little more than their messages.
std::pair<long long, long long> openBare(HINSTANCE instance) {
    const long long start = microseconds();
    WNDCLASSW description{};
    description.lpfnWndProc = bareProcedure;
    description.hInstance = instance;
    description.lpszClassName = L"BareWindow";
    RegisterClassW(&description);
    RECT rect{0, 0, kClient.width, kClient.height};
    AdjustWindowRectEx(&rect, WS_OVERLAPPEDWINDOW, FALSE, 0);
    const HWND window =
        CreateWindowExW(0, L"BareWindow", L"bare", WS_OVERLAPPEDWINDOW, 400, 200, rect.right - rect.left,
                        rect.bottom - rect.top, nullptr, nullptr, instance, nullptr);
    ShowWindow(window, SW_SHOW);
    UpdateWindow(window);
    GdiFlush();
    const long long end = microseconds();
    const RECT small{20, 20, 80, 75};
    const long long repainted = repaints(window, [&] { InvalidateRect(window, &small, FALSE); });
    DestroyWindow(window);
    return {end - start, repainted};
}

// A translucent surface, as skins paint them: pixels of its own, blended.
class Surface {
public:
    explicit Surface(tavi::Size size) : size_(size) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(info.bmiHeader), size.width, -size.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        auto* const pixels = static_cast<uint32_t*>(bits);
        for (int32_t i = 0; i < size.width * size.height; ++i) {
            pixels[i] = 0x80404040U + static_cast<uint32_t>(i % size.width % 64);
        }
        source_ = CreateCompatibleDC(nullptr);
        before_ = SelectObject(source_, bitmap_);
    }
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    ~Surface() {
        SelectObject(source_, before_);
        DeleteDC(source_);
        DeleteObject(bitmap_);
    }
    void blend(HDC target, const tavi::Rect& area) const {
        blend_(target, area.x, area.y, area.width, area.height, source_, 0, 0, size_.width, size_.height,
               {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
    }

private:
    decltype(AlphaBlend)* blend_ = base::SystemLibrary(L"msimg32.dll").function<decltype(AlphaBlend)>("AlphaBlend");
    tavi::Size size_;
    HBITMAP bitmap_;
    HDC source_;
    HGDIOBJ before_;
};

// A rectangle, as the bare window draws it, or a caption on a surface.
class Tile : public tavi::Control {
public:
    Tile(std::wstring name, const tavi::Rect& area, const Surface* surface)
        : Control(std::move(name), area), surface_(surface) {}
    void paint(HDC target, tavi::Point origin) override {
        const tavi::Rect area = deviceRect(localBounds(), origin);
        RECT rect{area.x, area.y, area.right(), area.bottom()};
        if (surface_ == nullptr) {
            drawRectangle(target, rect);
        } else {
            surface_->blend(target, area);
            DrawTextW(target, id().c_str(), -1, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        }
    }

private:
    const Surface* surface_;
};

// Opens a window with the controls; 0 when it cannot be had.
long long open(tavi::Window& window, const Surface* surface) {
    const long long start = microseconds();
    for (int i = 0; i < kControls; ++i) {
        window.root().add<Tile>(L"tile " + std::to_wstring(i), tavi::Rect{10 + i % 10 * 67, 10 + i / 10 * 65, 60, 55},
                                surface);
    }
    if (!window.create({.title = L"ours", .clientSize = kClient})) {
        return 0;
    }
    window.show();
    GdiFlush();
    return microseconds() - start;
}

// What the controls of a skin do dominates; what the framework and the window system add is the same for both.
std::pair<long long, long long> repaint(HINSTANCE instance, const Surface& ground, const Surface& surface) {
    tavi::Window window(instance);
    window.root().setPaintHook([&](HDC target, const tavi::Rect& area) { ground.blend(target, area); });
    if (open(window, &surface) == 0) {
        return {};
    }
    tavi::Control& tile = *window.root().findById(L"tile 7");
    const long long small = repaints(window.handle(), [&] { tile.requestRepaint(); });
    return {small, repaints(window.handle(), [&] { window.requestRepaint(); })};
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    const Surface ground(kClient);
    const Surface surface({60, 55});
    std::string report;
    for (int round = 0; round < kRounds; ++round) {
        const auto [bare, message] = openBare(instance);
        const long long ours = [&] {
            tavi::Window window(instance);
            return open(window, nullptr);
        }();
        const auto [small, whole] = repaint(instance, ground, surface);
        if (round > 0) {  // the first one loads fonts and the like
            for (const long long each : {bare, message, ours, small, whole}) {
                report += std::to_string(each) + " ";
            }
            report.back() = '\n';
        }
    }
    const base::UniqueFile file =
        argc > 1 ? base::openFile(argv[1], GENERIC_WRITE, 0, CREATE_ALWAYS) : base::UniqueFile();
    return file && base::writeAll(file.get(), std::as_bytes(std::span(report))) ? 0 : 1;
}
