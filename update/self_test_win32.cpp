#include <windows.h>

#include <span>

#include "base/win32/files.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "update/download.h"
#include "update/self_test.h"
#include "update/sha256.h"
#include "update/update_check.h"

namespace velquin::update {
namespace {

// FIPS 180-2, appendix B.1: the digest of the message "abc".
constexpr char kTestMessage[] = {'a', 'b', 'c'};
constexpr wchar_t kTestDigest[] = L"BA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD";

// A file of this run alone in the temporary folder. It is removed with the object.
class TemporaryFile {
public:
    TemporaryFile(std::wstring_view prefix, std::wstring_view suffix)
        : path_(base::joinPath(base::temporaryFolder(), std::wstring(prefix) + std::to_wstring(GetCurrentProcessId()) +
                                                            L"-" + std::to_wstring(GetTickCount64()))) {
        path_ += suffix;
    }
    ~TemporaryFile() { DeleteFileW(base::extendedLengthPath(path_).c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::wstring& path() const { return path_; }

private:
    std::wstring path_;
};

bool checkDigest(std::wstring& error) {
    const TemporaryFile probe(L"Velquin.update-self-test.", L".sha256");
    base::UniqueFile file = base::createNewFile(probe.path());
    if (!file || !base::writeAll(file.get(), std::as_bytes(std::span(kTestMessage)))) {
        error = L"Could not write the update service SHA-256 probe file.";
        return false;
    }
    file.reset();
    std::wstring digest;
    if (!computeFileSha256(probe.path(), digest, error)) {
        return false;
    }
    if (digest != kTestDigest) {
        error = L"Update service SHA-256 probe produced an unexpected hash.";
        return false;
    }
    return true;
}

}  // namespace

bool runUpdateServiceSelfTest(std::wstring& error) {
    if (const wchar_t* wrong = checkSampleManifest(kSampleManifest)) {
        error = wrong;
        return false;
    }
    return checkDigest(error);
}

bool runLiveUpdateManifestSelfTest(std::wstring& error) {
    const UpdateCheckResult manifest = checkForUpdates();
    if (!manifest.ok) {
        error = L"Live update manifest check failed: " + manifest.error;
        return false;
    }
    error = checkLiveManifest(manifest);
    if (!error.empty()) {
        return false;
    }
    const TemporaryFile setup(L"Velquin.live-update.", L".setup.exe");
    const TemporaryFile data(L"Velquin.live-update.", L".update-data.zip");
    return verifyLiveUpdatePayload(manifest.setupUrl, manifest.sha256, setup.path(), L"Setup", error) &&
           verifyLiveUpdatePayload(manifest.dataZipUrl, manifest.dataZipSha256, data.path(), L"Update data ZIP", error);
}

}  // namespace velquin::update
