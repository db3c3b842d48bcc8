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
namespace {

std::vector<std::wstring> catalogPaths(const std::wstring& folder) {
    std::vector<std::wstring> paths;
    if (folder.empty()) {
        return paths;
    }
    for (const base::FolderEntry& entry : base::listFolder(folder)) {
        if (!entry.isFolder) {
            paths.push_back(entry.name);
        }
    }
    paths = catalogFiles(std::move(paths));
    for (std::wstring& path : paths) {
        path = base::joinPath(folder, path);
    }
    return paths;
}

}  // namespace

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

std::optional<SkinDefinition> findSkin(const std::wstring& folder, std::wstring_view id) {
    for (const std::wstring& path : catalogPaths(folder)) {
        std::vector<SkinDefinition> skins = loadSkinFile(path);
        if (const auto found = std::ranges::find(skins, id, &SkinDefinition::id); found != skins.end()) {
            return std::move(*found);
        }
    }
    return std::nullopt;
}

std::vector<SkinDefinition> loadSkinFolder(const std::wstring& folder) {
    std::vector<SkinDefinition> skins;
    for (const std::wstring& path : catalogPaths(folder)) {
        std::ranges::move(loadSkinFile(path), std::back_inserter(skins));
    }
    return skins;
}

}  // namespace tavi
