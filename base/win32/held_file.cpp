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

HeldFile HeldFile::refused(const std::wstring& path, Failure failure, DWORD error) {
    HeldFile none;
    none.path_ = path;
    none.failure_ = failure;
    SetLastError(error);
    return none;
}

HeldFile HeldFile::write(const std::wstring& base, const std::wstring& path, std::span<const std::byte> bytes) {
    // Looked for before any folder is made, so that none comes to lie behind a link, and again when all are there.
    if (firstLinkBelow(base, parentPath(path)).empty()) {
        createFolders(parentPath(path));
    }
    if (!firstLinkBelow(base, parentPath(path)).empty()) {
        return refused(path, Failure::linkInPath, ERROR_REPARSE_POINT_ENCOUNTERED);
    }
    if (const Failure failure = writeNewFile(path, bytes); failure != Failure::none) {
        return refused(path, failure, GetLastError());
    }
    // From here on the open file keeps every folder above it in place. Where it lies was settled when it was opened.
    HeldFile held = open(path);
    if (held.failure_ == Failure::open) {
        return refused(path, Failure::changed, GetLastError());
    }
    if (!held || !firstLinkBelow(base, path).empty() || !liesWhereItSays(held.handle(), base, path)) {
        return refused(path, Failure::linkInPath, ERROR_REPARSE_POINT_ENCOUNTERED);
    }
    return holdsExactly(held.handle(), bytes) ? std::move(held) : refused(path, Failure::changed, ERROR_FILE_INVALID);
}

HeldFile HeldFile::open(const std::wstring& path) {
    UniqueFile file = openFile(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT);
    if (!file) {
        return refused(path, Failure::open, GetLastError());
    }
    // A link to a file may be turned elsewhere at any time; one to a folder above is followed here, once.
    BY_HANDLE_FILE_INFORMATION information{};
    if (!GetFileInformationByHandle(file.get(), &information) ||
        (information.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        return refused(path, Failure::linkInPath, ERROR_REPARSE_POINT_ENCOUNTERED);
    }
    HeldFile held;
    held.path_ = finalPath(file.get());
    held.file_ = std::move(file);
    return held;
}

std::optional<std::vector<std::byte>> readWholeFile(const std::wstring& path) {
    const UniqueFile file = openFile(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    return file ? readAll(file.get(), SIZE_MAX) : std::nullopt;
}

}  // namespace base
