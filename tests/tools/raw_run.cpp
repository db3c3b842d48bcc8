// raw_run JOB.txt: starts a program exactly as JOB says and writes its full exit code, which a Unix parent would only
// see modulo 256, to JOB.txt.exit ("launch N" with the error code when it cannot be started, "timeout" past its limit).
// JOB is UTF-8: the command line, taken unchanged; the current folder; the limit in ms; then NAME=VALUE lines for the
// environment, a bare NAME removing a variable.
#include <windows.h>

#include <string>
#include <vector>

#include "base/win32/files.h"
#include "text_lines.h"

namespace {

std::string run(std::vector<std::wstring>& job) {
    for (size_t i = 3; i < job.size(); ++i) {
        const size_t equals = job[i].find(L'=');
        const std::wstring name = job[i].substr(0, equals);
        SetEnvironmentVariableW(name.c_str(),
                                equals == std::wstring::npos ? nullptr : job[i].substr(equals + 1).c_str());
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, job[0].data(), nullptr, nullptr, FALSE, 0, nullptr, job[1].c_str(), &startup,
                        &process)) {
        return "launch " + std::to_string(GetLastError());
    }
    if (WaitForSingleObject(process.hProcess, static_cast<DWORD>(std::stoul(job[2]))) != WAIT_OBJECT_0) {
        TerminateProcess(process.hProcess, 1);
        return "timeout";
    }
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    return std::to_string(code);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    std::vector<std::wstring> job = argc > 1 ? readTextLines(argv[1]) : std::vector<std::wstring>();
    if (job.size() < 3) {
        return 2;
    }
    const std::string result = run(job);
    const base::UniqueFile file = base::openFile(std::wstring(argv[1]) + L".exit", GENERIC_WRITE, 0, CREATE_ALWAYS);
    return file && base::writeAll(file.get(), std::as_bytes(std::span(result))) ? 0 : 1;
}
