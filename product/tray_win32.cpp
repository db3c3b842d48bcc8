#include <windows.h>

#include <shellapi.h>

#include <iterator>
#include <string>

#include "core/configuration.h"
#include "core/product.h"
#include "localization/catalog.h"
#include "product/tray.h"

namespace velquin::app {
namespace {

constexpr UINT kTrayMessage = WM_APP + 1;
constexpr UINT kTrayIconId = 1;
constexpr UINT kExitCommand = 1;

// Broadcast by Explorer when its task bar is made anew, and with it the notification area.
UINT taskbarCreatedMessage() {
    static const UINT message = RegisterWindowMessageW(L"TaskbarCreated");
    return message;
}

NOTIFYICONDATAW iconData(HWND window) {
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof(data);
    data.hWnd = window;
    data.uID = kTrayIconId;
    return data;
}

void showIcon(HWND window) {
    NOTIFYICONDATAW data = iconData(window);
    data.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    data.uCallbackMessage = kTrayMessage;
    data.hIcon =
        static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), IMAGE_ICON,
                                      GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED));
    lstrcpynW(data.szTip, kProductName, static_cast<int>(std::size(data.szTip)));
    Shell_NotifyIconW(NIM_ADD, &data);
}

void hideIcon(HWND window) {
    NOTIFYICONDATAW data = iconData(window);
    Shell_NotifyIconW(NIM_DELETE, &data);
}

void showMenu(HWND window) {
    const auto& configFile = *reinterpret_cast<const std::wstring*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, kExitCommand, localizedText(loadProductConfig(configFile), text::kExitApp).c_str());
    POINT position{};
    GetCursorPos(&position);
    // Without the focus a menu of the notification area would not close when the user clicks elsewhere.
    SetForegroundWindow(window);
    const int command = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, position.x, position.y, 0,
                                       window, nullptr);
    PostMessageW(window, WM_NULL, 0, 0);  // else the menu would not open a second time
    DestroyMenu(menu);
    if (command == kExitCommand) {
        PostMessageW(window, WM_CLOSE, 0, 0);
    }
}

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            SetWindowLongPtrW(window, GWLP_USERDATA,
                              reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
            showIcon(window);
            return 0;
        case kTrayMessage:
            if (lParam == WM_RBUTTONUP || lParam == WM_LBUTTONUP) {
                showMenu(window);
            }
            return 0;
        case WM_CLOSE:
            DestroyWindow(window);
            return 0;
        case WM_DESTROY:
            hideIcon(window);
            PostQuitMessage(0);
            return 0;
        default:
            if (message == taskbarCreatedMessage()) {
                showIcon(window);
                return 0;
            }
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

}  // namespace

bool runTray(HINSTANCE instance, std::wstring config) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = windowProcedure;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = kAppUserModelId;
    RegisterClassExW(&windowClass);
    // A real top-level window, though never shown: a message-only one would get neither TaskbarCreated nor the setup's
    // request to close.
    const HWND window = CreateWindowExW(0, kAppUserModelId, kProductName, WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr,
                                        instance, &config);
    if (window == nullptr) {
        return false;
    }
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

}  // namespace velquin::app
