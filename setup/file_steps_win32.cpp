#include "setup/file_steps.h"

#include <windows.h>

#include "base/win32/files.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "core/log.h"
#include "core/product_paths.h"
#include "setup/flows.h"
#include "setup/shortcut.h"

namespace velquin::setup {

bool copyFileReplace(const std::wstring& source, const std::wstring& target) {
    if (!base::fileExists(source)) {
        writeSetupLog(L"missing source: " + source);
        return false;
    }
    base::createFolders(base::parentPath(target));
    if (base::isSameFile(source, target)) {
        writeSetupLog(L"copy not needed, already in place: " + target);
        return true;
    }
    if (!CopyFileW(base::extendedLengthPath(source).c_str(), base::extendedLengthPath(target).c_str(), FALSE)) {
        const DWORD error = GetLastError();
        writeSetupLog(L"copy failed: " + source + L" -> " + target + L" : " + base::errorText(error));
        return false;
    }
    writeSetupLog(L"copied: " + source + L" -> " + target);
    return true;
}

void removeLegacyStartMenuShortcut() {
    const std::wstring link = userPaths().legacyStartMenuShortcut();
    deleteShortcut(link);
    removeFolderIfEmpty(base::parentPath(link));
}

void removeFolderIfEmpty(const std::wstring& folder) {
    if (RemoveDirectoryW(base::extendedLengthPath(folder).c_str())) {
        writeSetupLog(L"empty folder removed: " + folder);
    }
}

void removeFolder(const std::wstring& folder) {
    if (!base::pathExists(folder)) {
        writeSetupLog(L"folder not there: " + folder);
        return;
    }
    const bool removed = base::removeTree(
        folder, [](const std::wstring& link) { writeSetupLog(L"link left in place, not followed: " + link); });
    writeSetupLog((removed ? L"folder removed: " : L"folder not removed completely: ") + folder);
}

bool desktopShortcutExists() {
    return base::fileExists(userPaths().desktopShortcut());
}

}  // namespace velquin::setup
