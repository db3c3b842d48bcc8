// The table of what the setup carries inside itself as resources of the type TAVIPAYLOAD.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace velquin::setup {

struct PayloadEntry {
    int32_t resourceId;
    const wchar_t* relativePath;  // below the install folder

    constexpr bool isValid() const { return resourceId > 0 && relativePath != nullptr && *relativePath != L'\0'; }
};

// All rows in their order, with the all-zero one that ends them.
std::span<const PayloadEntry> payloadTable();

// The first valid entry whose path ends in ".msi", in any case, or null.
const PayloadEntry* findMsiPayloadEntry(std::span<const PayloadEntry> table);
const PayloadEntry* findMsiPayloadEntry();
bool hasMsiPayload();

}  // namespace velquin::setup
