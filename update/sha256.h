// SHA-256 (FIPS 180-4) of files, by Windows' own provider.
#pragma once

#include <string>

#include "base/win32/unique_handle.h"

namespace velquin::update {

// The digest as 64 upper-case hexadecimal digits. False with `error` set when the file cannot be read or Windows cannot
// compute it. While it is read nobody can write to the file; with `held`, nobody can as long as that handle is open, so
// that what is started later is what was checked.
bool computeFileSha256(const std::wstring& path, std::wstring& hexDigest, std::wstring& error,
                       base::UniqueFile* held = nullptr);

}  // namespace velquin::update
