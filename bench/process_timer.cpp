// process_timer JOB.txt OUT.txt: runs command lines in turn and measures each from start to exit. JOB is UTF-8: the
// number of rounds, then a command line a line, run in this order in every round; one that begins with "~" is run but
// not measured. OUT gets a line a measured run: the command's number and its microseconds; or "failed N CODE" and
// nothing more when one ends with another code than 0 and than the number before a "|" at the line's start.
#include <windows.h>

#include <string>
#include <vector>

#include "base/win32/files.h"
#include "base/win32/unique_handle.h"
#include "tests/tools/text_lines.h"

namespace {

struct Job {
    std::wstring commandLine;
    bool measured = true;
    DWORD expectedCode = 0;
};

Job parse(std::wstring line) {
    Job job;
    if (line.starts_with(L'~')) {
        job.measured = false;
        line.erase(0, 1);
    }
    if (const size_t bar = line.find(L'|'); bar != std::wstring::npos) {
        job.expectedCode = static_cast<DWORD>(std::stoul(line.substr(0, bar)));
        line.erase(0, bar + 1);
    }
    job.commandLine = line;
    return job;
}

long long now() {
    LARGE_INTEGER count{};
    LARGE_INTEGER frequency{};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return count.QuadPart * 1000000 / frequency.QuadPart;
}

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

std::string measure(const std::vector<Job>& jobs, int rounds) {
    std::string report;
    for (int round = 0; round < rounds; ++round) {
        for (size_t i = 0; i < jobs.size(); ++i) {
            const long long start = now();
            const DWORD code = run(jobs[i].commandLine);
            const long long end = now();
            if (code != jobs[i].expectedCode) {
                return "failed " + std::to_string(i) + " " + std::to_string(code) + "\n";
            }
            if (jobs[i].measured) {
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
    const std::vector<std::wstring> lines = readTextLines(argv[1]);
    std::vector<Job> jobs;
    for (size_t i = 1; i < lines.size(); ++i) {
        jobs.push_back(parse(lines[i]));
    }
    const std::string report = lines.empty() ? "failed 0 0\n" : measure(jobs, std::stoi(lines[0]));
    const base::UniqueFile file = base::openFile(argv[2], GENERIC_WRITE, 0, CREATE_ALWAYS);
    return file && base::writeAll(file.get(), std::as_bytes(std::span(report))) ? 0 : 1;
}
