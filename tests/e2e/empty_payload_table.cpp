// The payload table of a setup that carries nothing and installs the files that lie beside it.
#include "setup/payload_table.h"

namespace velquin::setup {

std::span<const PayloadEntry> payloadTable() {
    static constexpr PayloadEntry kNone[] = {{0, nullptr}};
    return kNone;
}

}  // namespace velquin::setup
