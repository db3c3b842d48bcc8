// worker_attacker PROGRAM SECONDS: watches the temporary folder for the setup's uninstall worker and tries without
// pause to put PROGRAM in its place, by writing over it, by deleting or by renaming it. Writes to C:\attacker.txt how
// often it saw the worker and how often it was refused, and ends after SECONDS or when C:\attacker-stop.txt appears.
#include <windows.h>

#include <string>

#include "base/win32/files.h"
#include "base/win32/system.h"
#include "base/windows_path.h"

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) {
        return 2;
    }
    const std::wstring folder = base::temporaryFolder();
    const ULONGLONG end = GetTickCount64() + 1000 * std::stoul(argv[2]);
    unsigned seen = 0;
    unsigned refused = 0;
    CloseHandle(CreateFileW(L"C:\\attacker-ready.txt", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    while (GetTickCount64() < end && !base::fileExists(L"C:\\attacker-stop.txt")) {
        for (const base::FolderEntry& entry : base::listFolder(folder)) {
            if (!entry.name.starts_with(L"VelquinSetup-uninstall-worker-") || !entry.name.ends_with(L".exe")) {
                continue;
            }
            ++seen;
            const std::wstring worker = base::joinPath(folder, entry.name);
            const bool replaced = CopyFileW(argv[1], worker.c_str(), FALSE) || DeleteFileW(worker.c_str());
            refused += replaced ? 0 : 1;
        }
    }
    const std::string report = std::to_string(seen) + " " + std::to_string(refused) + "\n";
    const base::UniqueFile file = base::openFile(L"C:\\attacker.txt", GENERIC_WRITE, 0, CREATE_ALWAYS);
    base::writeAll(file.get(), std::as_bytes(std::span(report)));
    return 0;
}
