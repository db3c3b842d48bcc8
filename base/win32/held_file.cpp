#include "base/win32/held_file.h"

#include <algorithm>
#include <vector>

#include "base/win32/files.h"
#include "base/windows_path.h"

namespace base {
namespace {

// Reads up to buffer.size() bytes; gives how many came, 0 at the end and on failure.
size_t readSome(HANDLE file, std::span<std::byte> buffer) {
    DWORD read = 0;
    const auto wanted = static_cast<DWORD>(buffer.size());
    return ReadFile(file, buffer.data(), wanted, &read, nullptr) ? read : 0;
}

bool holdsExactly(HANDLE file, std::span<const std::byte> bytes) {
    std::vector<std::byte> buffer(size_t{1} << 16);
    for (;;) {
        const size_t count = readSome(file, buffer);
        if (count == 0) {
            return bytes.empty();
        }
        if (count > bytes.size() || !std::equal(buffer.data(), buffer.data() + count, bytes.data())) {
            return false;
        }
        bytes = bytes.subspan(count);
    }
}

// Writes a file that was not there before: whatever stands at the path (a link to elsewhere, a file with a second name)
// goes first and is never written through.
HeldFile::Failure writeNewFile(const std::wstring& path, std::span<const std::byte> bytes) {
    if (!DeleteFileW(extendedLengthPath(path).c_str()) && GetLastError() != ERROR_FILE_NOT_FOUND) {
        return HeldFile::Failure::open;
    }
    UniqueFile file = openFile(path, GENERIC_WRITE, 0, CREATE_NEW, FILE_FLAG_OPEN_REPARSE_POINT);
    if (!file) {
        return HeldFile::Failure::open;
    }
    if (writeAll(file.get(), bytes) && FlushFileBuffers(file.get())) {
        return HeldFile::Failure::none;
    }
    // Half a file is of no use to anyone and may fill the disk.
    const DWORD error = GetLastError();
    file.reset();
    DeleteFileW(extendedLengthPath(path).c_str());
    SetLastError(error);
    return HeldFile::Failure::write;
}

}  // namespace

HeldFile HeldFile::write(const std::wstring& base, const std::wstring& path, std::span<const std::byte> bytes) {
    HeldFile held;
    held.path_ = path;
    // Looked for before any folder is made, so that none comes to lie behind a link, and again when all are there.
    if (firstLinkBelow(base, parentPath(path)).empty()) {
        createFolders(parentPath(path));
    }
    if (!firstLinkBelow(base, parentPath(path)).empty()) {
        SetLastError(ERROR_REPARSE_POINT_ENCOUNTERED);
        held.failure_ = Failure::linkInPath;
        return held;
    }
    held.failure_ = writeNewFile(path, bytes);
    if (held.failure_ != Failure::none) {
        return held;
    }
    UniqueFile file = openFile(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT);
    if (!file) {
        held.failure_ = Failure::changed;
        return held;
    }
    // From here on the open file keeps every folder above it in place. Where it lies was settled when it was opened.
    if (!firstLinkBelow(base, path).empty() || !liesWhereItSays(file.get(), base, path)) {
        SetLastError(ERROR_REPARSE_POINT_ENCOUNTERED);
        held.failure_ = Failure::linkInPath;
        return held;
    }
    if (!holdsExactly(file.get(), bytes)) {
        SetLastError(ERROR_FILE_INVALID);
        held.failure_ = Failure::changed;
        return held;
    }
    // The path with all links above `base` followed: one of them may be turned elsewhere at any time.
    held.path_ = finalPath(file.get());
    held.file_ = std::move(file);
    return held;
}

std::optional<std::vector<std::byte>> readWholeFile(const std::wstring& path) {
    const UniqueFile file = openFile(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.get(), &size)) {
        return std::nullopt;
    }
    std::vector<std::byte> bytes(static_cast<size_t>(size.QuadPart));
    for (size_t filled = 0; filled < bytes.size();) {
        const size_t count = readSome(file.get(), std::span(bytes).subspan(filled));
        if (count == 0) {
            SetLastError(ERROR_HANDLE_EOF);
            return std::nullopt;
        }
        filled += count;
    }
    return bytes;
}

}  // namespace base
