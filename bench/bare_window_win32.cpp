// The least that a program with a window does: as large as the setup's dialog, in one color. The peer of the dialog's
// start.
#include <windows.h>

namespace {

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT) {
        PAINTSTRUCT paint{};
        const HDC target = BeginPaint(window, &paint);
        SetDCBrushColor(target, RGB(40, 90, 140));
        FillRect(target, &paint.rcPaint, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        EndPaint(window, &paint);
        return 0;
    }
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = instance;
    description.lpszClassName = L"BareWindow";
    RegisterClassW(&description);
    CreateWindowW(L"BareWindow", L"Bare window", WS_POPUP | WS_VISIBLE, 400, 300, 690, 344, nullptr, nullptr, instance,
                  nullptr);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    return 0;
}
