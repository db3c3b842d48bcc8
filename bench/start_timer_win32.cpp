// start_timer JOB.txt OUT.txt: from the start of a process to the first frame that a person sees. JOB has the number of
// rounds, then a line "TITLE|COMMAND LINE" for each program; they are started in turn. OUT gets a line a start: the
// program's number, its microseconds until its window was no longer the empty screen, and the KiB of memory (working
// set) that it had a moment later. "failed N" and nothing more when no window came.
#include <windows.h>

#include <psapi.h>

#include <string>
#include <utility>
#include <vector>

#include "base/win32/files.h"
#include "base/win32/unique_handle.h"
#include "bench/clock.h"
#include "tests/tools/text_lines.h"

namespace {

using bench::microseconds;

constexpr long long kLimit = 20'000'000;  // microseconds

struct Program {
    std::wstring title;
    std::wstring commandLine;
};

struct Started {
    long long time = 0;
    SIZE_T memory = 0;  // bytes
};

COLORREF screenPixel(POINT at) {
    const HDC screen = GetDC(nullptr);
    const COLORREF color = GetPixel(screen, at.x, at.y);
    ReleaseDC(nullptr, screen);
    return color;
}

// Where on the screen to look: a quarter into the window, where all of them have nothing but their ground.
POINT lookingPoint(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return {rect.left + (rect.right - rect.left) / 4, rect.top + (rect.bottom - rect.top) * 3 / 4};
}

bool isPainted(HWND window, COLORREF empty) {
    return window != nullptr && IsWindowVisible(window) && screenPixel(lookingPoint(window)) != empty;
}

// Nothing when no window was painted in time.
bool measure(const Program& program, COLORREF empty, Started& result) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    std::wstring commandLine = program.commandLine;
    const long long start = microseconds();
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        return false;
    }
    CloseHandle(process.hThread);
    const base::UniqueHandle handle(process.hProcess);
    HWND window = nullptr;
    while (!isPainted(window, empty) && microseconds() - start < kLimit) {
        window = FindWindowW(nullptr, program.title.c_str());
        // Asking without a pause would take the time of the server that the started program waits for.
        Sleep(1);
    }
    result.time = microseconds() - start;
    const bool painted = isPainted(window, empty);
    Sleep(300);
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(handle.get(), &memory, sizeof(memory));
    result.memory = memory.WorkingSetSize;
    TerminateProcess(handle.get(), 0);
    WaitForSingleObject(handle.get(), INFINITE);
    while (FindWindowW(nullptr, program.title.c_str()) != nullptr) {
        Sleep(1);
    }
    Sleep(100);  // the screen behind it is drawn again
    return painted;
}

std::string measureAll(int rounds, const std::vector<Program>& programs) {
    std::string report;
    const COLORREF empty = screenPixel({1, 1});
    for (int round = 0; round < rounds; ++round) {
        for (size_t i = 0; i < programs.size(); ++i) {
            Started started;
            if (!measure(programs[i], empty, started)) {
                return "failed " + std::to_string(i) + "\n";
            }
            report += std::to_string(i) + " " + std::to_string(started.time) + " " +
                      std::to_string(started.memory / 1024) + "\n";
        }
    }
    return report;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const std::vector<std::wstring> lines = readTextLines(argc > 2 ? argv[1] : L"");
    if (lines.size() < 2) {
        return 2;
    }
    std::vector<Program> programs;
    for (size_t i = 1; i < lines.size(); ++i) {
        const size_t bar = lines[i].find(L'|');
        programs.push_back({lines[i].substr(0, bar), lines[i].substr(bar + 1)});
    }
    const std::string report = measureAll(static_cast<int>(wcstol(lines[0].c_str(), nullptr, 10)), programs);
    const base::UniqueFile file = base::openFile(argv[2], GENERIC_WRITE, 0, CREATE_ALWAYS);
    return file && base::writeAll(file.get(), std::as_bytes(std::span(report))) ? 0 : 1;
}
