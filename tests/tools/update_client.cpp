// The update client from a command line, for tests and benchmarks:
//   update_client RESULT get URL [TIMEOUT_MS]
//   update_client RESULT download URL FILE [TIMEOUT_MS]
//   update_client RESULT verify URL SHA256 FILE LABEL    the text is then where the file is held
//   update_client RESULT sha256 FILE
// RESULT is a file that gets "ok" or "failed", then the milliseconds it took, and the text or error, each on lines of
// their own in UTF-8. Exit code 0 for ok, 1 for failed.
#include <windows.h>

#include <span>
#include <string>

#include "base/text.h"
#include "base/win32/files.h"
#include "update/download.h"
#include "update/sha256.h"
#include "update/update_check.h"

namespace {

using namespace velquin::update;

struct Outcome {
    bool ok = false;
    std::wstring text;
};

Outcome run(const std::wstring& command, std::span<wchar_t*> arguments) {
    const auto argument = [&](size_t i) { return std::wstring(i < arguments.size() ? arguments[i] : L""); };
    const auto timeout = [&](size_t i, uint32_t otherwise) {
        return i < arguments.size() ? static_cast<uint32_t>(_wtoi(arguments[i])) : otherwise;
    };
    Outcome outcome;
    std::wstring error;
    if (command == L"get") {
        outcome.ok = httpGetText(argument(0), outcome.text, error, timeout(1, kManifestReceiveTimeoutMs));
    } else if (command == L"download") {
        outcome.ok = downloadSetupFile(argument(0), argument(1), error, timeout(2, kDownloadReceiveTimeoutMs));
    } else if (command == L"verify") {
        base::HeldFile held;
        outcome.ok = verifyLiveUpdatePayload(argument(0), argument(1), argument(2), argument(3), error, &held);
        constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        const bool isHeld =
            !base::openFile(held.path(), GENERIC_WRITE, kShareAll, OPEN_EXISTING) && !DeleteFileW(held.path().c_str());
        outcome.text = isHeld ? held.path() : L"not held";
    } else if (command == L"sha256") {
        outcome.ok = computeFileSha256(argument(0), outcome.text, error);
    }
    if (!outcome.ok) {
        outcome.text = error;
    }
    return outcome;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 3) {
        return 2;
    }
    LARGE_INTEGER frequency{}, start{}, end{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    const Outcome outcome = run(arguments[2], std::span(arguments + 3, static_cast<size_t>(count - 3)));
    QueryPerformanceCounter(&end);
    const std::string text = std::string(outcome.ok ? "ok" : "failed") + "\n" +
                             std::to_string((end.QuadPart - start.QuadPart) * 1000 / frequency.QuadPart) + "\n" +
                             base::toUtf8(outcome.text);
    const base::UniqueFile file = base::openFile(arguments[1], GENERIC_WRITE, 0, CREATE_ALWAYS);
    return file && base::writeAll(file.get(), std::as_bytes(std::span(text))) ? (outcome.ok ? 0 : 1) : 2;
}
