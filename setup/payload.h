// Getting the embedded payloads out: bytes from the program's own resources, files on disk.
#pragma once

#include <cstdint>
#include <string>

#include "base/win32/held_file.h"

namespace velquin::setup {

// Writes a payload to a file, over one that is there. False with a log line on failure.
bool extractPayload(int32_t resourceId, const std::wstring& targetPath);

// The same below `baseFolder`, a folder that the user may write to: a link anywhere between the two is refused, and a
// file that holds the payload already stays as it is.
bool refreshPayload(int32_t resourceId, const std::wstring& baseFolder, const std::wstring& targetPath);

// Writes the installer package to its cache and holds it there unchanged while `package` lives: it is handed to Windows
// Installer with administrator rights, from a folder that the user may write to. False with log lines on failure.
bool extractMsiPayload(base::HeldFile& package);

}  // namespace velquin::setup
