#include "tavi/theme/private_fonts.h"

#include <windows.h>

#include <utility>

#include "base/win32/files.h"
#include "base/win32/system.h"
#include "base/windows_path.h"

namespace tavi {

PrivateFonts::PrivateFonts(const std::wstring& folder) {
    for (const base::FolderEntry& entry : base::listFolder(folder)) {
        std::wstring path = base::joinPath(folder, entry.name);
        if (!entry.isFolder && isFontFile(entry.name) && AddFontResourceExW(path.c_str(), FR_PRIVATE, nullptr) > 0) {
            files_.push_back(std::move(path));
        }
    }
}

PrivateFonts::~PrivateFonts() {
    for (const std::wstring& file : files_) {
        RemoveFontResourceExW(file.c_str(), FR_PRIVATE, nullptr);
    }
}

std::wstring privateFontFolder() {
    return base::joinPath(base::parentPath(base::ownFilePath()), L"fonts");
}

}  // namespace tavi
