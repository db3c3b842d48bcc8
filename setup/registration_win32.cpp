#include <windows.h>

#include "base/win32/files.h"
#include "base/win32/registry.h"
#include "base/windows_path.h"
#include "core/log.h"
#include "core/product.h"
#include "setup/registration.h"

namespace velquin::setup {
namespace {

uint32_t writeRow(const RegistryRow& row) {
    if (const auto* text = std::get_if<std::wstring>(&row.content)) {
        return base::writeRegistryString(HKEY_LOCAL_MACHINE, row.key, row.name, *text);
    }
    return base::writeRegistryNumber(HKEY_LOCAL_MACHINE, row.key, row.name, std::get<uint32_t>(row.content));
}

bool writeRows(const std::vector<RegistryRow>& rows) {
    bool ok = true;
    for (const RegistryRow& row : rows) {
        const uint32_t error = writeRow(row);
        if (error != 0) {
            writeSetupLog(L"registry write failed: " + row.key + L" value=" + row.name + L" error=" +
                          std::to_wstring(error));
            ok = false;
        }
    }
    return ok;
}

void deleteKey(const std::wstring& key) {
    if (!base::registryKeyExists(HKEY_LOCAL_MACHINE, key)) {
        writeSetupLog(L"registry key not there: " + key);
        return;
    }
    const uint32_t error = base::deleteRegistryTree(HKEY_LOCAL_MACHINE, key);
    writeSetupLog(error == 0 ? L"registry key deleted: " + key
                             : L"registry delete failed: " + key + L" error=" + std::to_wstring(error));
}

// Bytes of all regular files below a folder; links are not followed.
uint64_t folderSize(const std::wstring& folder) {
    uint64_t bytes = 0;
    for (const base::FolderEntry& entry : base::listFolder(folder)) {
        if (!entry.isLink) {
            bytes += entry.isFolder ? folderSize(base::joinPath(folder, entry.name)) : entry.size;
        }
    }
    return bytes;
}

}  // namespace

bool writeApplicationRegistration(const ApplicationRegistration& application, const std::wstring& installFolder) {
    const std::wstring path = base::joinPath(installFolder, application.fileName);
    if (!base::fileExists(path)) {
        writeSetupLog(L"application registration skipped, file missing: " + path);
        return false;
    }
    const bool ok = writeRows(applicationRows(application, installFolder));
    if (ok) {
        writeSetupLog(std::wstring(L"application registered: ") + application.fileName);
    }
    return ok;
}

bool writeUninstallEntry(const std::wstring& installFolder) {
    const uint32_t size = totalKib({
        kibOf(base::fileSize(base::joinPath(installFolder, kAppFileName))),
        kibOf(base::fileSize(base::joinPath(installFolder, kSetupFileName))),
        kibOf(folderSize(base::joinPath(installFolder, L"skins"))),
        kibOf(folderSize(base::joinPath(installFolder, L"assets"))),
    });
    const bool ok = writeRows(uninstallRows(installFolder, formatDate(localTime()), size));
    if (ok) {
        writeSetupLog(L"uninstall entry written: " + installFolder + L" size=" + std::to_wstring(size) + L" KiB");
    }
    return ok;
}

void deleteRegistration() {
    for (const ApplicationRegistration& application : kApplications) {
        for (const std::wstring& key : applicationKeys(application)) {
            deleteKey(key);
        }
    }
    deleteKey(kUninstallKey);
}

}  // namespace velquin::setup
