#include "setup/dialog/folder_pick.h"

#include "base/text.h"
#include "base/windows_path.h"
#include "core/product.h"

namespace velquin::setup {

std::wstring productFolderIn(std::wstring_view picked) {
    // A separator at the end stands behind the last component, not for another one.
    std::wstring folder = base::lexicallyNormal(picked);
    if (folder.empty()) {
        return folder;
    }
    while (folder.size() > base::rootLength(folder) && folder.ends_with(L'\\')) {
        folder.pop_back();
    }
    return base::equalsIgnoringCase(base::fileName(folder), kProductName) ? folder
                                                                          : base::joinPath(folder, kProductName);
}

std::wstring unquotedFolder(std::wstring_view written) {
    const std::wstring_view text = base::trimmed(written);
    const bool isQuoted = text.size() > 2 && text.starts_with(L'"') && text.ends_with(L'"');
    return std::wstring(isQuoted ? text.substr(1, text.size() - 2) : written);
}

}  // namespace velquin::setup
