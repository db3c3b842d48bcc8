#include <gtest/gtest.h>

#include <set>

#include "setup/payload_table.h"

namespace {

using namespace velquin::setup;

TEST(PayloadLookup, FindsTheFirstValidPackage) {
    struct Case {
        const char* name;
        std::vector<PayloadEntry> table;
        int32_t found;  // 0: none
    };
    const Case cases[] = {
        {"empty table", {}, 0},
        {"only the terminator", {{0, nullptr}}, 0},
        {"no package", {{1, L"assets\\a.png"}, {2, L"a.msi.json"}, {3, L"msi"}, {0, nullptr}}, 0},
        {"behind others", {{1, L"assets\\a.png"}, {2, L"installer\\a.msi"}, {0, nullptr}}, 2},
        {"in another case", {{7, L"INSTALLER\\A.MSI"}, {0, nullptr}}, 7},
        {"two", {{4, L"one.Msi"}, {3, L"two.msi"}}, 4},
        {"rows that are not valid", {{0, L"a.msi"}, {-5, L"b.msi"}, {5, nullptr}, {6, L""}, {8, L"c.msi"}}, 8},
        {"only rows that are not valid", {{0, L"a.msi"}, {-1, L"b.msi"}}, 0},
        {"behind a terminator", {{0, nullptr}, {9, L".msi"}}, 9},
    };
    for (const Case& c : cases) {
        const PayloadEntry* entry = findMsiPayloadEntry(c.table);
        EXPECT_EQ(entry != nullptr ? entry->resourceId : 0, c.found) << c.name;
    }
}

TEST(PayloadLookup, TheProductsTableStartsWithThePackageAndEndsWithTheTerminator) {
    const auto table = payloadTable();
    ASSERT_EQ(table.size(), 14u);
    std::set<std::wstring> paths;
    for (size_t i = 0; i + 1 < table.size(); ++i) {
        ASSERT_TRUE(table[i].isValid()) << i;
        EXPECT_EQ(table[i].resourceId, 3001 + static_cast<int32_t>(i));
        EXPECT_TRUE(paths.insert(table[i].relativePath).second) << i;
    }
    EXPECT_FALSE(table.back().isValid());
    EXPECT_EQ(findMsiPayloadEntry(), &table[0]);
    EXPECT_STREQ(table[0].relativePath, LR"(installer\Velquin.msi)");
    EXPECT_TRUE(hasMsiPayload());
}

}  // namespace
