#include "tavi/core/message_loop.h"

#include <windows.h>

namespace tavi {

std::optional<int> pumpMessages(const std::function<bool()>& done) {
    while (!done()) {
        MSG message{};
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            return got == 0 ? static_cast<int>(message.wParam) : 0;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return std::nullopt;
}

void wakeMessageLoop() {
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

}  // namespace tavi
