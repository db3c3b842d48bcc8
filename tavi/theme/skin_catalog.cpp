#include "tavi/theme/skin_catalog.h"

#include <algorithm>

#include "base/text.h"

namespace tavi {

std::vector<std::wstring> catalogFiles(std::vector<std::wstring> names) {
    constexpr std::wstring_view kExtension = L".json";
    // A name that is nothing but the extension has none.
    std::erase_if(names, [kExtension](const std::wstring& name) {
        return name.size() <= kExtension.size() || !base::endsWithIgnoringCase(name, kExtension);
    });
    std::ranges::sort(names);
    return names;
}

}  // namespace tavi
