#include "tavi/theme/private_fonts.h"

#include <algorithm>

#include "base/text.h"

namespace tavi {

bool isFontFile(std::wstring_view name) {
    static constexpr std::wstring_view kExtensions[] = {L".ttf", L".otf", L".ttc", L".otc"};
    return std::ranges::any_of(kExtensions, [name](std::wstring_view extension) {
        return name.size() > extension.size() && base::endsWithIgnoringCase(name, extension);
    });
}

}  // namespace tavi
