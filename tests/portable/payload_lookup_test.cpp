#include <gtest/gtest.h>

#include "setup/payload_table.h"

namespace {

using namespace velquin::setup;

TEST(PayloadLookup, FindsTheFirstValidPackage) {
    const std::pair<std::vector<PayloadEntry>, int32_t> cases[] = {
        {{}, 0},
        {{{1, L"assets\\a.png"}, {2, L"a.msi.json"}, {3, L"msi"}, {0, nullptr}}, 0},
        {{{1, L"assets\\a.png"}, {7, L"INSTALLER\\A.Msi"}, {3, L"two.msi"}, {0, nullptr}}, 7},
        {{{0, L"a.msi"}, {-5, L"b.msi"}, {5, nullptr}, {6, L""}}, 0},
        {{{0, nullptr}, {9, L".msi"}}, 9},
    };
    for (const auto& [table, found] : cases) {
        const PayloadEntry* entry = findMsiPayloadEntry(table);
        EXPECT_EQ(entry != nullptr ? entry->resourceId : 0, found);
    }
}

}  // namespace
