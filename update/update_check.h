// The update check: fetches the maker's manifest and tells whether it announces a newer version.
#pragma once

#include <cstdint>
#include <string>

#include "update/manifest.h"

namespace velquin::update {

inline constexpr uint32_t kManifestReceiveTimeoutMs = 10000;

// One GET whose body is text in UTF-8. False with `error` set on failure, `body` is then empty. Blocks, for
// `receiveTimeoutMs` at most in each wait for data; the size of the body has no limit but memory.
bool httpGetText(const std::wstring& url, std::wstring& body, std::wstring& error,
                 uint32_t receiveTimeoutMs = kManifestReceiveTimeoutMs);

// Fetches and reads the manifest, compares it with this program's own version and logs the result. Blocks, see above.
UpdateCheckResult checkForUpdates();

}  // namespace velquin::update
