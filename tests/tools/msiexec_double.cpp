// A recording double of msiexec.exe. Words of a script line: "exit N" the exit code; "sleep MS"; "wait" until there is
// a file C:\doubles\go; "place" puts C:\doubles\Velquin.exe into the folder of INSTALLFOLDER; "attack" tries to change
// the package while it is in use and records what came of it in attack.log.
#include <windows.h>

#include "base/win32/files.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "double.h"

namespace {

std::wstring installFolder() {
    for (const std::wstring& argument : base::processArguments()) {
        if (argument.starts_with(L"INSTALLFOLDER=")) {
            return argument.substr(14);
        }
    }
    return {};
}

void record(const wchar_t* what, bool succeeded) {
    doubles::appendLine(L"attack.log", std::wstring(what) + (succeeded ? L" SUCCEEDED" : L" refused ") +
                                           (succeeded ? L"" : std::to_wstring(GetLastError())));
}

// Everything that would put other bytes behind the package's path.
void attack(const std::wstring& package) {
    const std::wstring folder = base::parentPath(package);
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    record(L"read", static_cast<bool>(base::openFile(package, GENERIC_READ, kShareAll, OPEN_EXISTING)));
    record(L"write", static_cast<bool>(base::openFile(package, GENERIC_WRITE, kShareAll, OPEN_EXISTING)));
    record(L"truncate", static_cast<bool>(base::openFile(package, GENERIC_WRITE, kShareAll, CREATE_ALWAYS)));
    record(L"delete", DeleteFileW(package.c_str()) != 0);
    record(L"rename", MoveFileExW(package.c_str(), (package + L".old").c_str(), 0) != 0);
    record(L"replace", CopyFileW(L"C:\\doubles\\Velquin.exe", package.c_str(), FALSE) != 0);
    record(L"remove folder", RemoveDirectoryW(folder.c_str()) != 0);
}

}  // namespace

int wmain() {
    const std::vector<std::wstring> words = doubles::beginCall(L"msiexec");
    const std::vector<std::wstring> arguments = base::processArguments();
    int exitCode = 0;
    for (size_t i = 0; i < words.size(); ++i) {
        if (words[i] == L"exit" && i + 1 < words.size()) {
            exitCode = std::stoi(words[++i]);
        } else if (words[i] == L"sleep" && i + 1 < words.size()) {
            Sleep(static_cast<DWORD>(std::stoul(words[++i])));
        } else if (words[i] == L"wait") {
            while (GetFileAttributesW(base::joinPath(doubles::kFolder, L"go").c_str()) == INVALID_FILE_ATTRIBUTES) {
                Sleep(20);
            }
        } else if (words[i] == L"place" && !installFolder().empty()) {
            base::createFolders(installFolder());
            CopyFileW(L"C:\\doubles\\Velquin.exe", base::joinPath(installFolder(), L"Velquin.exe").c_str(), FALSE);
        } else if (words[i] == L"attack" && arguments.size() > 1 && arguments[0] == L"/i") {
            attack(arguments[1]);
        }
    }
    return exitCode;
}
