// process_timer JOB.txt OUT.txt: runs command lines in turn and measures each from start to exit. JOB is as
// bench/timer_jobs.h reads it. OUT gets a line a measured run: the command's number and its microseconds; or "failed N
// CODE" and nothing more when one ends with another code than it should.
#include <windows.h>

#include <string>

#include "base/win32/files.h"
#include "base/win32/unique_handle.h"
#include "bench/clock.h"
#include "bench/timer_jobs.h"
#include "tests/tools/text_lines.h"

namespace {

using bench::microseconds;
using bench::parseTimerJobs;
using bench::TimerJobs;

DWORD run(std::wstring commandLine) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        return GetLastError();
    }
    CloseHandle(process.hThread);
    const base::UniqueHandle handle(process.hProcess);
    DWORD code = 0;
    WaitForSingleObject(handle.get(), INFINITE);
    GetExitCodeProcess(handle.get(), &code);
    return code;
}

std::string measure(const TimerJobs& plan) {
    std::string report;
    for (int round = 0; round < plan.rounds; ++round) {
        for (size_t i = 0; i < plan.jobs.size(); ++i) {
            const long long start = microseconds();
            const DWORD code = run(plan.jobs[i].commandLine);
            const long long end = microseconds();
            if (code != plan.jobs[i].expectedCode) {
                return "failed " + std::to_string(i) + " " + std::to_string(code) + "\n";
            }
            if (plan.jobs[i].measured) {
                report += std::to_string(i) + " " + std::to_string(end - start) + "\n";
            }
        }
    }
    return report;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) {
        return 2;
    }
    const std::string report = measure(parseTimerJobs(readTextLines(argv[1])));
    const base::UniqueFile file = base::openFile(argv[2], GENERIC_WRITE, 0, CREATE_ALWAYS);
    return file && base::writeAll(file.get(), std::as_bytes(std::span(report))) ? 0 : 1;
}
