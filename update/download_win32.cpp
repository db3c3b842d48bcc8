#include "update/download.h"

#include <windows.h>

#include "base/text.h"
#include "base/win32/files.h"
#include "core/delayed_delete.h"
#include "core/product.h"
#include "update/address.h"
#include "update/http.h"
#include "update/sha256.h"

namespace velquin::update {
namespace {

constexpr HttpErrors kDownloadErrors{
    .url = L"WinHTTP cannot parse setup URL.",
    .exchange = L"Setup download request failed.",
    .status = L"Setup download returned HTTP status ",
    .available = L"Could not read setup download.",
    .read = L"Could not read setup download data.",
};

// A file that is being written. What is not finished is deleted, on whatever way that comes about.
struct Download {
    base::UniqueFile file;
    bool finished = false;
    ~Download() {
        if (file && !finished) {
            base::discardFile(file);
        }
    }
};

}  // namespace

bool downloadSetupFile(const std::wstring& url, const std::wstring& destination, std::wstring& error,
                       uint32_t receiveTimeoutMs) {
    Download download;
    const HttpBody write{
        .begin = [&]() -> const wchar_t* {
            download.file = base::createNewFile(destination, GENERIC_WRITE | DELETE);
            return download.file ? nullptr : L"Could not create the downloaded setup file.";
        },
        .append = [&](std::span<const std::byte> part) -> const wchar_t* {
            return base::writeAll(download.file.get(), part) ? nullptr : L"Could not write the downloaded setup file.";
        },
    };
    download.finished = httpGet(buildCacheBustedUrl(url, kVersion), receiveTimeoutMs, kDownloadErrors, write, error);
    return download.finished;
}

bool verifyLiveUpdatePayload(const std::wstring& url, const std::wstring& sha256, const std::wstring& destination,
                             const std::wstring& label, std::wstring& error, base::HeldFile* held) {
    if (url.empty() || sha256.empty()) {
        error = label + L" URL or SHA-256 is missing from the live update manifest.";
        return false;
    }
    if (!isHttps(url)) {
        error = label + L" download failed: The address is not an HTTPS address.";
        return false;
    }
    std::wstring reason;
    if (!downloadSetupFile(url, destination, reason)) {
        error = label + L" download failed: " + reason;
        return false;
    }
    std::wstring digest;
    base::HeldFile file = base::HeldFile::open(destination);
    if (!computeFileSha256(file, digest, reason)) {
        error = label + L" SHA-256 calculation failed: " + reason;
    } else if (!base::equalsIgnoringCase(digest, sha256)) {
        error = label + L" SHA-256 does not match the live update manifest.";
    } else {
        if (held != nullptr) {
            *held = std::move(file);
        }
        return true;
    }
    file.release();
    deleteFileOrScheduleOnReboot(destination);
    return false;
}

}  // namespace velquin::update
