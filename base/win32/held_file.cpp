#include "base/win32/held_file.h"

#include <algorithm>
#include <vector>

#include "base/win32/files.h"
#include "base/windows_path.h"

namespace base {
namespace {

bool holdsExactly(HANDLE file, std::span<const std::byte> bytes) {
    std::vector<std::byte> buffer(size_t{1} << 16);
    for (;;) {
        const auto count = readSome(file, buffer);
        if (!count) {
            return false;
        }
        if (*count == 0) {
            return bytes.empty();
        }
        if (*count > bytes.size() || !std::equal(buffer.data(), buffer.data() + *count, bytes.data())) {
            return false;
        }
        bytes = bytes.subspan(*count);
    }
}

HeldFile::Failure writeNewFile(const std::wstring& path, std::span<const std::byte> bytes) {
    UniqueFile file = createNewFile(path, GENERIC_WRITE | DELETE);
    if (!file) {
        return HeldFile::Failure::open;
    }
    if (writeAll(file.get(), bytes) && FlushFileBuffers(file.get())) {
        return HeldFile::Failure::none;
    }
    // Half a file is of no use to anyone and may fill the disk.
    discardFile(file);
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

HeldFile HeldFile::open(const std::wstring& path) {
    HeldFile held;
    held.path_ = path;
    UniqueFile file = openFile(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT);
    if (!file) {
        held.failure_ = Failure::open;
        return held;
    }
    // A link to a file may be turned elsewhere; one to a folder above is followed here, once.
    BY_HANDLE_FILE_INFORMATION information{};
    if (!GetFileInformationByHandle(file.get(), &information) ||
        (information.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        SetLastError(ERROR_REPARSE_POINT_ENCOUNTERED);
        held.failure_ = Failure::linkInPath;
        return held;
    }
    held.path_ = finalPath(file.get());
    held.file_ = std::move(file);
    return held;
}

std::optional<std::vector<std::byte>> readWholeFile(const std::wstring& path) {
    const UniqueFile file = openFile(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    return file ? readAll(file.get(), SIZE_MAX) : std::nullopt;
}

}  // namespace base
