// The compiled texts. tools/texts/compile.py writes these tables when the program is built: constant data without
// pointers, hence without relocations.
#pragma once

#include <cstdint>

#include "localization/text_ids.h"

namespace velquin::catalog_data {

// Every wording once, in UTF-8, each with a zero byte at its end. The other tables give places in it, in bytes.
extern const char kPool[];

struct BuiltInText {
    std::uint32_t english;
    std::uint32_t czech;
};
extern const BuiltInText kBuiltIn[kTextCount];  // by id

// The cells: for each column, in the order of languages.inc, one for each id.
extern const std::uint32_t kCells[kColumnCount][kTextCount];

}  // namespace velquin::catalog_data
