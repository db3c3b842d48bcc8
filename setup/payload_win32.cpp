#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <span>

#include "base/win32/files.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "core/log.h"
#include "core/product_paths.h"
#include "setup/msi_command.h"
#include "setup/payload.h"
#include "setup/payload_table.h"

namespace velquin::setup {
namespace {

constexpr wchar_t kPayloadType[] = L"TAVIPAYLOAD";

// What went wrong with a held file, in the words of the log.
std::wstring failureText(const base::HeldFile& file, DWORD error) {
    switch (file.failure()) {
        case base::HeldFile::Failure::linkInPath:
            return L"embedded payload refused, a link lies in its path: ";
        case base::HeldFile::Failure::write:
            return L"embedded payload write failed: ";
        case base::HeldFile::Failure::changed:
            return L"embedded payload refused, its file was changed (" + base::errorText(error) + L"): ";
        default:
            return L"embedded payload open failed: ";
    }
}

// The bytes of a payload resource; they live as long as the process. Empty, with a log line, when it is missing or
// empty.
std::span<const std::byte> payloadBytes(int32_t resourceId) {
    const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(resourceId), kPayloadType);
    if (found == nullptr) {
        writeSetupLog(L"embedded payload missing: " + std::to_wstring(resourceId));
        return {};
    }
    const HGLOBAL loaded = LoadResource(nullptr, found);
    const DWORD size = SizeofResource(nullptr, found);
    const auto* bytes = loaded != nullptr ? static_cast<const std::byte*>(LockResource(loaded)) : nullptr;
    if (bytes == nullptr || size == 0) {
        writeSetupLog(L"embedded payload empty: " + std::to_wstring(resourceId));
        return {};
    }
    return {bytes, size};
}

}  // namespace

bool extractPayload(int32_t resourceId, const std::wstring& targetPath) {
    const std::span<const std::byte> bytes = payloadBytes(resourceId);
    if (bytes.empty()) {
        return false;
    }
    base::createFolders(base::parentPath(targetPath));
    const base::UniqueFile file =
        base::openFile(targetPath, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, CREATE_ALWAYS);
    if (!file) {
        writeSetupLog(L"embedded payload open failed: " + targetPath);
        return false;
    }
    if (!base::writeAll(file.get(), bytes)) {
        writeSetupLog(L"embedded payload write failed: " + targetPath);
        return false;
    }
    writeSetupLog(L"embedded payload extracted: " + targetPath);
    return true;
}

bool refreshPayload(int32_t resourceId, const std::wstring& baseFolder, const std::wstring& targetPath) {
    const std::span<const std::byte> bytes = payloadBytes(resourceId);
    if (bytes.empty()) {
        return false;
    }
    if (const std::wstring link = base::firstLinkBelow(baseFolder, targetPath); !link.empty()) {
        writeSetupLog(L"embedded payload refused, a link lies in its path: " + link);
        return false;
    }
    if (base::fileSize(targetPath) == bytes.size()) {
        const auto present = base::readWholeFile(targetPath);
        if (present && std::ranges::equal(*present, bytes)) {
            return true;
        }
    }
    const base::HeldFile file = base::HeldFile::write(baseFolder, targetPath, bytes);
    writeSetupLog(file ? L"embedded payload extracted: " + targetPath : failureText(file, GetLastError()) + targetPath);
    return static_cast<bool>(file);
}

bool extractMsiPayload(base::HeldFile& package) {
    const PayloadEntry* entry = findMsiPayloadEntry();
    if (entry == nullptr) {
        writeSetupLog(L"MSI install unavailable: setup has no embedded MSI payload");
        return false;
    }
    const UserPaths paths = userPaths();
    const std::wstring target =
        base::joinPath(base::joinPath(paths.dataFolder(), L"setup-msi-cache"), cachedPackageName(entry->relativePath));
    const std::span<const std::byte> bytes = payloadBytes(entry->resourceId);
    if (!bytes.empty()) {
        package = base::HeldFile::write(paths.dataFolderBase(), target, bytes);
        if (package) {
            writeSetupLog(L"MSI extracted: " + target);
            return true;
        }
        writeSetupLog(failureText(package, GetLastError()) + target);
    }
    writeSetupLog(L"MSI extract failed: " + target);
    return false;
}

}  // namespace velquin::setup
