// Looking up the payload table; the table itself stands apart, so that a build can carry another one.
#include <algorithm>

#include "base/text.h"
#include "setup/payload_table.h"

namespace velquin::setup {

const PayloadEntry* findMsiPayloadEntry(std::span<const PayloadEntry> table) {
    const auto found = std::ranges::find_if(table, [](const PayloadEntry& entry) {
        return entry.isValid() && base::endsWithIgnoringCase(entry.relativePath, L".msi");
    });
    return found != table.end() ? &*found : nullptr;
}

const PayloadEntry* findMsiPayloadEntry() {
    return findMsiPayloadEntry(payloadTable());
}

bool hasMsiPayload() {
    return findMsiPayloadEntry() != nullptr;
}

}  // namespace velquin::setup
