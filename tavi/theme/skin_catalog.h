// Catalogs of skins as files: which files of a folder are catalogs, and the skins of a file or a folder. Nothing here
// fails: what cannot be read has no skins.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tavi/theme/skin_definition.h"

namespace tavi {

// The names of the catalogs among the names of a folder's files, ".json" in either case, in the order in which they are
// loaded: ascending, so that "00-…" comes before "01-…".
std::vector<std::wstring> catalogFiles(std::vector<std::wstring> names);

// The file is UTF-8; its skins get its name as their source.
std::vector<SkinDefinition> loadSkinFile(const std::wstring& path);

// The first skin of that id in the catalogs of a folder. Catalogs behind it are not even opened: much faster than a
// registry where one skin is all that is needed.
std::optional<SkinDefinition> findSkin(const std::wstring& folder, std::wstring_view id);

// The skins of all catalogs in a folder, not in folders below it.
std::vector<SkinDefinition> loadSkinFolder(const std::wstring& folder);

}  // namespace tavi
