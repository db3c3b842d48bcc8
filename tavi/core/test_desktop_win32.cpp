#include "tavi/core/test_desktop.h"

#include <windows.h>

#include <objbase.h>
#include <shobjidl.h>

#include <cstdint>
#include <span>
#include <string>

#include "base/win32/com.h"
#include "base/win32/files.h"

namespace tavi {
namespace {

constexpr int kDesktopAttempts = 100;
constexpr DWORD kAttemptPause = 50;  // ms
constexpr int kMoveAttempts = 3;

std::wstring environmentValue(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

// Eight digits. The printf family would bring its own formatting of numbers into each program.
std::string hexadecimal(uint32_t value) {
    std::string digits(8, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, value >>= 4) {
        *digit = "0123456789ABCDEF"[value & 0xF];
    }
    return digits;
}

void report(const wchar_t* step, HRESULT error) {
    const std::string code = hexadecimal(static_cast<uint32_t>(error));
    const std::wstring line = std::wstring(L"[Tavi diagnostic] self-placement via ") + step + L" failed: 0x" +
                              std::wstring(code.begin(), code.end()) + L"\n";
    OutputDebugStringW(line.c_str());
    const std::wstring path = environmentValue(L"TAVI_TEST_DESKTOP_DIAGNOSTIC_PATH");
    const base::UniqueFile file =
        path.empty() ? base::UniqueFile() : base::openFile(path.c_str(), GENERIC_WRITE, 0, CREATE_ALWAYS);
    if (file) {
        const std::string text = "tavi_test_desktop_placement_error=0x" + code + "\r\n";
        base::writeAll(file.get(), std::as_bytes(std::span(text)));
    }
}

void pumpPending() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // Not ours: whoever runs the message loop is to see it.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

HRESULT waitForDesktop(IVirtualDesktopManager& manager, HWND window) {
    HRESULT result = E_FAIL;
    for (int attempt = 0; attempt < kDesktopAttempts; ++attempt) {
        pumpPending();
        GUID current{};
        result = manager.GetWindowDesktopId(window, &current);
        if (SUCCEEDED(result) && current != GUID_NULL) {
            return S_OK;
        }
        Sleep(kAttemptPause);
    }
    return FAILED(result) ? result : E_FAIL;
}

HRESULT moveTo(IVirtualDesktopManager& manager, HWND window, const GUID& desktop) {
    HRESULT result = E_FAIL;
    for (int attempt = 0; attempt < kMoveAttempts && FAILED(result); ++attempt) {
        result = manager.MoveWindowToDesktop(window, desktop);
    }
    return result;
}

}  // namespace

std::optional<TestDesktop> TestDesktop::requested() {
    const std::wstring id = environmentValue(L"TAVI_TEST_DESKTOP_ID");
    CLSID parsed{};
    if (id.empty()) {
        return std::nullopt;
    }
    if (FAILED(CLSIDFromString(id.c_str(), &parsed))) {
        OutputDebugStringW(L"[Tavi diagnostic] TAVI_TEST_DESKTOP_ID is invalid.\n");
        return std::nullopt;
    }
    return TestDesktop(id);
}

uint32_t TestDesktop::placingStyle(uint32_t style) {
    return (style & ~static_cast<uint32_t>(WS_POPUP)) | WS_OVERLAPPEDWINDOW;
}

void TestDesktop::place(HWND window) const {
    ShowWindow(window, SW_SHOWNOACTIVATE);
    UpdateWindow(window);
    GUID desktop{};
    CLSIDFromString(id_.c_str(), &desktop);
    const base::ComApartment apartment;
    base::ComPtr<IVirtualDesktopManager> manager;
    const HRESULT created =
        CoCreateInstance(CLSID_VirtualDesktopManager, nullptr, CLSCTX_ALL, IID_IVirtualDesktopManager, manager.put());
    if (FAILED(created)) {
        return report(L"CoCreateInstance", created);
    }
    if (const HRESULT waited = waitForDesktop(*manager.get(), window); FAILED(waited)) {
        return report(L"GetWindowDesktopId", waited);
    }
    if (const HRESULT moved = moveTo(*manager.get(), window, desktop); FAILED(moved)) {
        report(L"MoveWindowToDesktop", moved);
    }
}

}  // namespace tavi
