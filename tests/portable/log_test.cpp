#include "core/log.h"

#include <gtest/gtest.h>

namespace {

TEST(Log, TimeStampsAndLines) {
    constexpr velquin::TimeStamp kMorning{2025, 2, 3, 9, 5, 0, 12};
    constexpr velquin::TimeStamp kMidnight{987, 10, 31, 0, 0, 7, 999};
    EXPECT_EQ(velquin::formatUtcTime(kMorning), L"2025-02-03T09:05:00.012Z");
    EXPECT_EQ(velquin::formatUtcTime(kMidnight), L"0987-10-31T00:00:07.999Z");
    EXPECT_EQ(velquin::formatDate(kMorning), L"20250203");
    EXPECT_EQ(velquin::formatLogLine(kMorning, L"copy failed: D:\\Gr\u00FC\u00DF\\\U0001F600"),
              "3.2.2025  9:05:00  copy failed: D:\\Gr\xC3\xBC\xC3\x9F\\\xF0\x9F\x98\x80\n");
    EXPECT_EQ(velquin::formatLogLine(kMidnight, L""), "31.10.0987  0:00:07  \n");
}

}  // namespace
