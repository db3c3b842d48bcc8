// person SCRIPT.txt OUT.txt: a person at the machine, who sees windows and acts on them with mouse and keyboard, by
// real input. A step a line; what a step finds is a line of OUT, and the first step that fails ends it with "failed:
// …".
//
//     window MS TITLE     waits for a window of the UI framework with that title and looks at it from now on
//     gone MS             waits until that window is gone
//     other MS            waits until the keyboard is at a window of another program, and writes that window's
//                         class and title
//     click ID            moves to the control with that id and clicks (click2, click3: so many times; right: the other
//                         button)
//     tell ID             writes what the framework says about that control, in one line
//     key NAME            presses a key: "Return", "ctrl+a", "alt+F4"
//     type TEXT           types characters
//     still MS            does nothing
//
// A control is found by what is on the screen: the pointer goes over the window, and where it rests the framework's
// debug overlay (Ctrl+F12) tells with F12 which control lies there.
#include <windows.h>

#include <algorithm>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/win32/files.h"
#include "tests/tools/text_lines.h"

namespace {

struct Failure {
    std::wstring reason;
};

struct KeyName {
    const wchar_t* name;
    WORD code;
};
constexpr KeyName kKeys[] = {{L"Return", VK_RETURN}, {L"Escape", VK_ESCAPE}, {L"Tab", VK_TAB},
                             {L"Space", VK_SPACE},   {L"F4", VK_F4},         {L"F12", VK_F12},
                             {L"Delete", VK_DELETE}, {L"Home", VK_HOME},     {L"End", VK_END},
                             {L"ctrl", VK_CONTROL},  {L"shift", VK_SHIFT},   {L"alt", VK_MENU}};

WORD keyCode(const std::wstring& name) {
    const auto* const found = std::ranges::find_if(kKeys, [&](const KeyName& key) { return name == key.name; });
    if (found != std::end(kKeys)) {
        return found->code;
    }
    if (name.size() == 1) {
        return static_cast<WORD>(CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(name[0]))) -
                                 static_cast<LPWSTR>(nullptr));
    }
    throw Failure{L"no such key: " + name};
}

void send(INPUT input) {
    if (SendInput(1, &input, sizeof(input)) != 1) {
        throw Failure{L"input was refused"};
    }
}

void sendKey(WORD code, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
    send(input);
}

void pressKey(const std::wstring& names) {
    const std::vector<std::wstring> keys = splitText(names, L'+');
    for (const std::wstring& key : keys) {
        sendKey(keyCode(key), false);
    }
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        sendKey(keyCode(*key), true);
    }
}

void sendMouse(DWORD flags, POINT at) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = at.x * 65536 / GetSystemMetrics(SM_CXSCREEN) + 1;
    input.mi.dy = at.y * 65536 / GetSystemMetrics(SM_CYSCREEN) + 1;
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
    send(input);
}

std::wstring clipboardText() {
    std::wstring text;
    for (int i = 0; i < 20 && !OpenClipboard(nullptr); ++i) {
        Sleep(5);
    }
    if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(GlobalLock(memory));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
}

// The value of a line "key=value" of a description.
std::wstring valueOf(const std::wstring& description, const std::wstring& key) {
    const size_t at = description.find(L"\r\n" + key + L"=");
    if (at == std::wstring::npos) {
        return {};
    }
    const size_t begin = at + key.size() + 3;
    return description.substr(begin, description.find(L"\r\n", begin) - begin);
}

// The id of the control that is described; the description begins with its path.
std::wstring controlOf(const std::wstring& description) {
    const std::wstring path = valueOf(description, L"control");
    return path.substr(path.rfind(L'/') + 1);
}

// "(x, y, widthxheight)", as the framework writes rectangles.
RECT rectangleOf(const std::wstring& text) {
    long numbers[4] = {};
    size_t which = 0;
    for (size_t i = 0; i < text.size() && which < 4;) {
        if (iswdigit(text[i]) || text[i] == L'-') {
            wchar_t* end = nullptr;
            numbers[which++] = wcstol(text.c_str() + i, &end, 10);
            i = static_cast<size_t>(end - text.c_str());
        } else {
            ++i;
        }
    }
    return {numbers[0], numbers[1], numbers[0] + numbers[2], numbers[1] + numbers[3]};
}

class Person {
public:
    void waitForWindow(DWORD limit, const std::wstring& title) {
        for (const ULONGLONG end = GetTickCount64() + limit; GetTickCount64() < end; Sleep(20)) {
            window_ = FindWindowW(L"TaviDesignWindow", title.c_str());
            if (window_ != nullptr && IsWindowVisible(window_)) {
                controls_.clear();
                Sleep(150);  // a person takes as long to see that it is there
                bringForward();
                return;
            }
        }
        throw Failure{L"no window " + title};
    }

    void waitForEnd(DWORD limit) const {
        for (const ULONGLONG end = GetTickCount64() + limit; GetTickCount64() < end; Sleep(20)) {
            if (!IsWindow(window_)) {
                return;
            }
        }
        throw Failure{L"the window is still there"};
    }

    std::wstring waitForOther(DWORD limit) const {
        for (const ULONGLONG end = GetTickCount64() + limit; GetTickCount64() < end; Sleep(20)) {
            const HWND window = GetForegroundWindow();
            if (window != nullptr && programOf(window) != programOf(window_) && IsWindowVisible(window)) {
                return nameOf(window);
            }
        }
        throw Failure{L"the keyboard is at " + nameOf(GetForegroundWindow())};
    }

    void click(const std::wstring& id, int times, bool right) {
        const POINT at = middleOf(id);
        for (int i = 0; i < times; ++i) {
            sendMouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN, at);
            sendMouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP, at);
        }
    }

    std::wstring tell(const std::wstring& id) {
        std::wstring text = describedAt(middleOf(id));
        // A slow window may have answered to an earlier question.
        for (int i = 0; i < 10 && controlOf(text) != id; ++i) {
            Sleep(200);
            text = describedAt(middleOf(id));
        }
        for (size_t at = 0; (at = text.find(L"\r\n", at)) != std::wstring::npos;) {
            text.replace(at, 2, L" | ");
        }
        return text;
    }

private:
    struct Seen {
        RECT area;      // device pixels of the client area
        bool isSingle;  // nothing else lies in it
    };

    static DWORD programOf(HWND window) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        return process;
    }

    POINT onScreen(POINT client) const {
        ClientToScreen(window_, &client);
        return client;
    }

    // A window behind another one is clicked on its title bar, where nothing else happens.
    void bringForward() const {
        for (int i = 0; i < 50 && GetForegroundWindow() != window_; ++i) {
            Sleep(20);
        }
        if (GetForegroundWindow() != window_) {
            RECT rect{};
            GetWindowRect(window_, &rect);
            const POINT title{rect.left + (rect.right - rect.left) / 3, rect.top + 12};
            sendMouse(MOUSEEVENTF_LEFTDOWN, title);
            sendMouse(MOUSEEVENTF_LEFTUP, title);
            Sleep(150);
        }
    }

    // What the framework says about the control at a point of the screen. The overlay is on only meanwhile.
    std::wstring describedAt(POINT at) {
        std::wstring text = ask(at, true);
        pressKey(L"ctrl+F12");
        return text;
    }

    // Turns the overlay on where that is asked for. A window that has just come may miss a key, and cannot answer while
    // another program holds the clipboard; and one may have taken the keyboard meanwhile.
    std::wstring ask(POINT at, bool turnsOn) const {
        for (int i = 0; i < 5; ++i) {
            bringForward();
            sendMouse(0, at);
            if (turnsOn) {
                pressKey(L"ctrl+F12");
            }
            if (const std::optional<std::wstring> answer = answerWithin(2000)) {
                return *answer;
            }
        }
        throw Failure{L"the window does not answer to F12, the keyboard is at " + nameOf(GetForegroundWindow()) +
                      L", the focus at " + nameOf(focusedWindow())};
    }

    static std::optional<std::wstring> answerWithin(int limit) {
        constexpr int kStep = 5;
        const DWORD before = GetClipboardSequenceNumber();
        for (int waited = 0; waited < limit; waited += kStep) {
            if (waited % 500 == 0) {
                pressKey(L"F12");
            }
            if (GetClipboardSequenceNumber() != before) {
                return clipboardText();
            }
            Sleep(kStep);
        }
        return std::nullopt;
    }

    static HWND focusedWindow() {
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        return GetGUIThreadInfo(0, &info) ? info.hwndFocus : nullptr;
    }

    static std::wstring nameOf(HWND window) {
        wchar_t title[200] = L"nothing";
        wchar_t kind[200] = L"";
        GetWindowTextW(window, title, 200);
        GetClassNameW(window, kind, 200);
        return std::wstring(kind) + L" '" + title + L"'";
    }

    void look() {
        constexpr int kStepX = 30;
        constexpr int kStepY = 14;
        RECT client{};
        GetClientRect(window_, &client);
        const int dpi = static_cast<int>(GetDpiForWindow(window_));
        const auto device = [dpi](LONG length) { return MulDiv(length, dpi, 96); };
        ask(onScreen({client.right / 2, client.bottom / 2}), true);
        for (int y = device(10); y < client.bottom; y += device(kStepY)) {
            for (int x = device(14); x < client.right; x += device(kStepX)) {
                const POINT at{x, y};
                const bool known = std::ranges::any_of(controls_, [&](const auto& entry) {
                    return entry.second.isSingle && PtInRect(&entry.second.area, at);
                });
                if (known) {
                    continue;
                }
                const std::wstring text = ask(onScreen(at), false);
                const RECT design = rectangleOf(valueOf(text, L"client"));
                const RECT area{device(design.left), device(design.top), device(design.right), device(design.bottom)};
                controls_[controlOf(text)] = {area, valueOf(text, L"takes focus") == L"yes"};
            }
        }
        pressKey(L"ctrl+F12");
    }

    POINT middleOf(const std::wstring& id) {
        if (controls_.empty()) {
            look();
        }
        const auto found = controls_.find(id);
        if (found == controls_.end()) {
            std::wstring seen;
            for (const auto& [name, control] : controls_) {
                seen += L" " + name;
            }
            throw Failure{L"no control " + id + L" among" + seen};
        }
        const RECT& area = found->second.area;
        const POINT at = onScreen({(area.left + area.right) / 2, (area.top + area.bottom) / 2});
        sendMouse(0, at);
        return at;
    }

    HWND window_ = nullptr;
    std::map<std::wstring, Seen> controls_;
};

void typeText(const std::wstring& text) {
    for (const wchar_t character : text) {
        for (const DWORD flags : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) {
            INPUT input{};
            input.type = INPUT_KEYBOARD;
            input.ki.wScan = character;
            input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
            send(input);
        }
    }
}

// What the step has found; empty for most.
std::wstring act(Person& person, const std::wstring& line) {
    const size_t blank = std::min(line.find(L' '), line.size());
    const std::wstring step = line.substr(0, blank);
    const std::wstring what = line.substr(std::min(blank + 1, line.size()));
    const auto milliseconds = static_cast<DWORD>(wcstoul(what.c_str(), nullptr, 10));
    if (step == L"window") {
        person.waitForWindow(milliseconds, what.substr(what.find(L' ') + 1));
    } else if (step == L"gone") {
        person.waitForEnd(milliseconds);
    } else if (step == L"other") {
        return person.waitForOther(milliseconds);
    } else if (step.starts_with(L"click")) {
        person.click(what, step.size() > 5 ? step[5] - L'0' : 1, false);
    } else if (step == L"right") {
        person.click(what, 1, true);
    } else if (step == L"tell") {
        return person.tell(what);
    } else if (step == L"key") {
        pressKey(what);
    } else if (step == L"type") {
        typeText(what);
    } else if (step == L"still") {
        Sleep(milliseconds);
    } else {
        throw Failure{L"no such step"};
    }
    return {};
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) {
        return 2;
    }
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    Person person;
    std::wstring report;
    for (const std::wstring& line : readTextLines(argv[1])) {
        try {
            if (const std::wstring found = act(person, line); !found.empty()) {
                report += found + L"\n";
            }
        } catch (const Failure& failure) {
            report += L"failed: " + line + L": " + failure.reason + L"\n";
            break;
        }
    }
    const std::string bytes = base::toUtf8(report);
    const base::UniqueFile file = base::openFile(argv[2], GENERIC_WRITE, 0, CREATE_ALWAYS);
    return file && base::writeAll(file.get(), std::as_bytes(std::span(bytes))) ? 0 : 1;
}
