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

}  // namespace velquin::setup
