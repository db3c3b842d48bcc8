// The clipboard's text.
#include <windows.h>

#include <cwchar>

#include "tavi/core/window_native.h"

namespace tavi {
namespace {

// Another program may hold the clipboard for a moment.
bool openClipboard(HWND owner) {
    constexpr int kTries = 5;
    for (int i = 0; i < kTries; ++i) {
        if (OpenClipboard(owner)) {
            return true;
        }
        Sleep(10);
    }
    return false;
}

}  // namespace

void WindowNative::copyText(const std::wstring& text) {
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (memory == nullptr) {
        return;
    }
    auto* const characters = static_cast<wchar_t*>(GlobalLock(memory));
    if (characters != nullptr) {
        std::wmemcpy(characters, text.c_str(), text.size() + 1);
        GlobalUnlock(memory);
    }
    bool given = false;
    if (characters != nullptr && openClipboard(handle_)) {
        given = EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
        CloseClipboard();
    }
    if (!given) {
        GlobalFree(memory);
    }
}

std::wstring WindowNative::clipboardText() {
    std::wstring text;
    if (!IsClipboardFormatAvailable(CF_UNICODETEXT) || !openClipboard(handle_)) {
        return text;
    }
    if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
        if (const auto* const characters = static_cast<const wchar_t*>(GlobalLock(memory))) {
            // Whoever put it there need not have ended it.
            text.assign(characters, wcsnlen(characters, GlobalSize(memory) / sizeof(wchar_t)));
            GlobalUnlock(memory);
        }
    }
    CloseClipboard();
    return text;
}

}  // namespace tavi
