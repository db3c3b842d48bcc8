// The half of the log that asks Windows for the time and writes the file.
#include <windows.h>

#include <mutex>

#include "base/win32/files.h"
#include "base/windows_path.h"
#include "core/log.h"
#include "core/product_paths.h"

namespace velquin {
namespace {

TimeStamp fromSystemTime(const SYSTEMTIME& t) {
    return {t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond, t.wMilliseconds};
}

}  // namespace

TimeStamp localTime() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return fromSystemTime(time);
}

TimeStamp utcTime() {
    SYSTEMTIME time{};
    GetSystemTime(&time);
    return fromSystemTime(time);
}

std::wstring localTimeStamp() {
    return formatLocalTime(localTime());
}

std::wstring utcTimeStamp() {
    return formatUtcTime(utcTime());
}

void writeLogBeside(const std::wstring& configPath, std::wstring_view text) {
    base::createFolders(base::parentPath(configPath));
    // The log lies where the user may write and this program may run with more rights than the user has: a link in the
    // log's place is opened as itself and left alone.
    const base::UniqueFile file = base::openFile(logFileBeside(configPath), FILE_APPEND_DATA | FILE_READ_ATTRIBUTES,
                                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_ALWAYS,
                                                 FILE_FLAG_OPEN_REPARSE_POINT);
    BY_HANDLE_FILE_INFORMATION information{};
    if (!file || !GetFileInformationByHandle(file.get(), &information) ||
        (information.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        return;
    }
    // Windows adds each line behind all others by itself, but the user's folder may lie on another system's disk, where
    // two writers could choose the same end: one thread at a time.
    static std::mutex turn;
    const std::lock_guard<std::mutex> lock(turn);
    const std::string line = formatLogLine(localTime(), text);
    base::writeAll(file.get(), std::as_bytes(std::span(line)));
}

void writeSetupLog(std::wstring_view text) {
    writeLogBeside(configurationFile(), text);
    tellLogObserver(text);
}

}  // namespace velquin
