#include "tavi/theme/skin_catalog.h"

#include <windows.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/json.h"
#include "base/win32/files.h"
#include "base/windows_path.h"
#include "tavi/theme/skin_reader.h"

namespace tavi {

std::vector<SkinDefinition> loadSkinFile(const std::wstring& path) {
    const base::UniqueFile file =
        base::openFile(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    // A device or a pipe may keep a reader waiting for ever.
    if (!file || GetFileType(file.get()) != FILE_TYPE_DISK) {
        return {};
    }
    const auto bytes = base::readAll(file.get(), base::kMaxJsonLength);
    if (!bytes) {
        return {};
    }
    return parseCatalog({reinterpret_cast<const char*>(bytes->data()), bytes->size()}, base::fileName(path));
}

std::vector<SkinDefinition> loadSkinFolder(const std::wstring& folder) {
    if (folder.empty()) {
        return {};
    }
    std::vector<std::wstring> names;
    for (const base::FolderEntry& entry : base::listFolder(folder)) {
        if (!entry.isFolder) {
            names.push_back(entry.name);
        }
    }
    std::vector<SkinDefinition> skins;
    for (const std::wstring& name : catalogFiles(std::move(names))) {
        std::ranges::move(loadSkinFile(base::joinPath(folder, name)), std::back_inserter(skins));
    }
    return skins;
}

}  // namespace tavi
