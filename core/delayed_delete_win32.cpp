#include <windows.h>

#include <algorithm>

#include "base/win32/unique_handle.h"
#include "base/windows_path.h"
#include "core/delayed_delete.h"
#include "core/log.h"
#include "core/pending_renames.h"

namespace velquin {
namespace {

constexpr wchar_t kSessionManagerKey[] = LR"(SYSTEM\CurrentControlSet\Control\Session Manager)";
constexpr wchar_t kPendingRenames[] = L"PendingFileRenameOperations";

// Others may add to the list between asking for its size and reading it.
LSTATUS readPendingRenames(HKEY key, std::wstring& stored) {
    DWORD type = 0;
    LSTATUS result = ERROR_MORE_DATA;
    while (result == ERROR_MORE_DATA) {
        DWORD bytes = 0;
        result = RegQueryValueExW(key, kPendingRenames, nullptr, &type, nullptr, &bytes);
        if (result != ERROR_SUCCESS) {
            return result;
        }
        stored.resize(bytes / sizeof(wchar_t));
        result = RegQueryValueExW(key, kPendingRenames, nullptr, &type, reinterpret_cast<BYTE*>(stored.data()), &bytes);
        stored.resize(std::min<size_t>(stored.size(), bytes / sizeof(wchar_t)));
    }
    return result == ERROR_SUCCESS && type != REG_MULTI_SZ ? ERROR_INVALID_DATATYPE : result;
}

}  // namespace

bool scheduleDeleteOnReboot(const std::wstring& path) {
    if (path.empty()) {
        return false;
    }
    if (!MoveFileExW(base::extendedLengthPath(path).c_str(), nullptr, MOVEFILE_DELAY_UNTIL_REBOOT)) {
        const DWORD error = GetLastError();
        writeSetupLog(L"schedule delete on reboot failed: " + path + L" error=" + std::to_wstring(error));
        return false;
    }
    writeSetupLog(L"scheduled delete on reboot: " + path);
    return true;
}

bool deleteFileOrScheduleOnReboot(const std::wstring& path) {
    return DeleteFileW(base::extendedLengthPath(path).c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND ||
           scheduleDeleteOnReboot(path);
}

void cancelDeleteOnReboot(const std::vector<std::wstring>& paths) {
    base::UniqueRegistryKey key;
    std::wstring stored;
    LSTATUS result =
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, kSessionManagerKey, 0, KEY_QUERY_VALUE | KEY_SET_VALUE, key.put());
    if (result == ERROR_SUCCESS) {
        result = readPendingRenames(key.get(), stored);
    }
    if (result != ERROR_SUCCESS) {
        if (result != ERROR_FILE_NOT_FOUND) {
            writeSetupLog(L"pending deletes cannot be read: error=" + std::to_wstring(result));
        }
        return;
    }
    std::vector<std::wstring> strings = parsePendingRenames(stored);
    const std::vector<std::wstring> removed = removePendingDeletes(strings, paths);
    if (removed.empty()) {
        return;
    }
    if (strings.empty()) {
        result = RegDeleteValueW(key.get(), kPendingRenames);
    } else {
        const std::wstring remaining = formatPendingRenames(strings);
        result =
            RegSetValueExW(key.get(), kPendingRenames, 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>(remaining.data()),
                           static_cast<DWORD>(remaining.size() * sizeof(wchar_t)));
    }
    for (const std::wstring& path : removed) {
        writeSetupLog(result == ERROR_SUCCESS
                          ? L"cancelled delete on reboot: " + path
                          : L"cancelling delete on reboot failed: " + path + L" error=" + std::to_wstring(result));
    }
}

}  // namespace velquin
