// window_closer TITLE: closes the top-level window with that title; 1 when there is none.
#include <windows.h>

int wmain(int argc, wchar_t** argv) {
    const HWND window = argc > 1 ? FindWindowW(nullptr, argv[1]) : nullptr;
    return window != nullptr && PostMessageW(window, WM_CLOSE, 0, 0) ? 0 : 1;
}
