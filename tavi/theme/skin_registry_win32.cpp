#include "tavi/theme/skin_registry.h"

#include <utility>

#include "base/win32/system.h"
#include "base/windows_path.h"
#include "tavi/theme/skin_catalog.h"

namespace tavi {
namespace {

std::wstring& chosenFolder() {
    static std::wstring folder;
    return folder;
}

std::wstring skinFolder() {
    return chosenFolder().empty() ? base::joinPath(base::parentPath(base::ownFilePath()), L"skins") : chosenFolder();
}

}  // namespace

void setSkinFolder(std::wstring folder) {
    chosenFolder() = std::move(folder);
}

const SkinRegistry& skinRegistry() {
    static const SkinRegistry kRegistry(loadSkinFolder(skinFolder()));
    return kRegistry;
}

}  // namespace tavi
