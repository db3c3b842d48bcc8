#include <windows.h>

#include <string>

#include "base/win32/files.h"
#include "core/log.h"
#include "core/product_paths.h"
#include "setup/own_file.h"

namespace velquin::setup {

bool holdOwnFile() {
    static const base::UniqueFile held = [] {
        base::UniqueFile file = base::openFile(ownFile(), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
        if (!file) {
            const DWORD error = GetLastError();
            writeSetupLog(L"own file cannot be held: " + ownFile() + L" error=" + std::to_wstring(error));
        }
        return file;
    }();
    return static_cast<bool>(held);
}

}  // namespace velquin::setup
