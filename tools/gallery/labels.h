// What the tiles of the sheets are called.
#pragma once

#include <string>

#include "base/text.h"
#include "tavi/theme/enumeration_names.h"

namespace gallery {

// The name by which a skin chooses the value.
template <typename Enum>
std::wstring labelOf(Enum value) {
    return base::toWide(tavi::nameOf(value));
}

}  // namespace gallery
