// Fetching what a manifest announces into a file, and accepting it only with the right SHA-256.
#pragma once

#include <cstdint>
#include <string>

#include "base/win32/held_file.h"

namespace velquin::update {

inline constexpr uint32_t kDownloadReceiveTimeoutMs = 60000;

// One GET written to a new file; whatever stood at `destination` is replaced. The folder has to be there. Blocks, for
// `receiveTimeoutMs` at most in each wait for data. False with `error` set on failure; nothing is then left behind.
bool downloadSetupFile(const std::wstring& url, const std::wstring& destination, std::wstring& error,
                       uint32_t receiveTimeoutMs = kDownloadReceiveTimeoutMs);

// Downloads over HTTPS and compares the file's SHA-256 with the expected one, given in hexadecimal digits of either
// case. False with `error` set, beginning with `label` ("Setup", say), when the file was refused; it is then removed,
// or at the next restart where somebody has it open. The digest is computed over a file that nobody can write to.
// Whoever is going to start it passes `held`: while that object lives, what stands at held->path() is what was checked.
bool verifyLiveUpdatePayload(const std::wstring& url, const std::wstring& sha256, const std::wstring& destination,
                             const std::wstring& label, std::wstring& error, base::HeldFile* held = nullptr);

}  // namespace velquin::update
