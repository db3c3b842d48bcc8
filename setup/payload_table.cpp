#include "setup/payload_table.h"

namespace velquin::setup {
namespace {

constexpr PayloadEntry kPayloads[] = {
#define PAYLOAD(id, path, file) {id, L"" path},
#include "setup/payload_rows.inc"
#undef PAYLOAD
    {0, nullptr},
};

}  // namespace

std::span<const PayloadEntry> payloadTable() {
    return kPayloads;
}

}  // namespace velquin::setup
