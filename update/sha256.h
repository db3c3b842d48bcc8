// SHA-256 (FIPS 180-4) of files, by Windows' own provider.
#pragma once

#include <string>

#include "base/win32/held_file.h"

namespace velquin::update {

// The digest as 64 upper-case hexadecimal digits. False with `error` set when the file cannot be read or Windows cannot
// compute it. While it is read nobody can write to the file.
bool computeFileSha256(const std::wstring& path, std::wstring& hexDigest, std::wstring& error);
// The same of a file that is held, and stays so: what is used later is what was digested.
bool computeFileSha256(const base::HeldFile& file, std::wstring& hexDigest, std::wstring& error);

}  // namespace velquin::update
