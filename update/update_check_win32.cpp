#include "update/update_check.h"

#include <windows.h>

#include <new>

#include "base/text.h"
#include "core/log.h"
#include "core/product.h"
#include "update/address.h"
#include "update/http.h"

namespace velquin::update {
namespace {

constexpr HttpErrors kManifestErrors{
    .url = L"WinHTTP could not parse the update URL.",
    .exchange = L"The update manifest request failed.",
    .status = L"The update manifest returned HTTP status ",
    .available = L"Could not read the update manifest.",
    .read = L"Could not read update manifest data.",
};

}  // namespace

std::wstring buildCacheBustedUrl(std::wstring_view url, std::wstring_view version) {
    return buildCacheBustedUrl(url, version, GetTickCount64());
}

bool httpGetText(const std::wstring& url, std::wstring& body, std::wstring& error, uint32_t receiveTimeoutMs) {
    body.clear();
    std::string bytes;
    const HttpBody collect{
        .begin = [] { return nullptr; },
        .append = [&bytes](std::span<const std::byte> part) -> const wchar_t* {
            bytes.append(reinterpret_cast<const char*>(part.data()), part.size());
            return nullptr;
        },
    };
    try {
        if (!httpGet(url, receiveTimeoutMs, kManifestErrors, collect, error)) {
            return false;
        }
        auto text = base::toWideStrict(bytes);
        if (!text) {
            error = L"The update manifest is not valid UTF-8 text.";
            return false;
        }
        body = std::move(*text);
        return true;
    } catch (const std::bad_alloc&) {
        // A body that never ends ends here.
        error = kManifestErrors.read;
        return false;
    }
}

UpdateCheckResult checkForUpdates() {
    UpdateCheckResult result;
    result.currentVersion = kVersion;
    std::wstring text;
    std::wstring reason;
    if (httpGetText(buildCacheBustedUrl(kManifestUrl, kVersion), text, result.error)) {
        try {
            result = parseUpdateManifest(text, kVersion, kReleasePageUrl, &reason);
        } catch (const std::bad_alloc&) {
            result.error = kManifestErrors.read;
        }
    }
    if (!reason.empty()) {
        writeSetupLog(L"update manifest is no JSON document: " + reason);
    }
    if (result.ok) {
        writeSetupLog(L"update check ok: current=" + result.currentVersion + L" latest=" +
                      singleLine(result.latestVersion) + L" update=" + (result.updateAvailable ? L"yes" : L"no"));
    } else {
        const bool missingVersion = reason.empty() && result.error == kMissingVersionError;
        writeSetupLog(L"update check failed: " + (missingVersion ? L"missing version" : result.error));
    }
    return result;
}

}  // namespace velquin::update
