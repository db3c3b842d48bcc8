#include <windows.h>

#include "base/win32/files.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "setup/install_folder.h"

namespace velquin::setup {
namespace {

// Makes and removes a file, since only that tells whether files can be made.
bool canWriteTo(const std::wstring& folder) {
    const std::wstring probe =
        base::joinPath(folder, L"velquin-setup-" + std::to_wstring(GetCurrentProcessId()) + L".tmp");
    return static_cast<bool>(base::openFile(probe, GENERIC_WRITE | DELETE, 0, CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE));
}

}  // namespace

std::wstring installFolderProblem(const std::wstring& folder, uint64_t neededBytes) {
    std::wstring problem = installFolderTextProblem(folder);
    if (!problem.empty()) {
        return problem;
    }
    std::wstring existing = folder;
    while (!base::pathExists(existing)) {
        std::wstring parent = base::parentPath(existing);
        if (parent.empty() || parent == existing) {
            return L"its drive or share cannot be reached";
        }
        existing = std::move(parent);
    }
    if (!base::folderExists(existing)) {
        return L"a file stands in its way: " + existing;
    }
    if (!canWriteTo(existing)) {
        return L"it cannot be written to: " + base::errorText(GetLastError());
    }
    ULARGE_INTEGER free{};
    // A share is only understood with a separator behind it.
    const std::wstring disk = base::joinPath(base::extendedLengthPath(existing), L"");
    if (GetDiskFreeSpaceExW(disk.c_str(), &free, nullptr, nullptr) && free.QuadPart < neededBytes) {
        return L"its disk has " + std::to_wstring(free.QuadPart / 1024) + L" KiB left, the product needs " +
               std::to_wstring(neededBytes / 1024) + L" KiB";
    }
    return {};
}

}  // namespace velquin::setup
