#include "core/log.h"

#include <gtest/gtest.h>

namespace {

using velquin::TimeStamp;

TEST(Log, TimeStamps) {
    struct Case {
        TimeStamp time;
        const wchar_t *local, *utc, *date;
    };
    constexpr Case kCases[] = {
        {{2025, 2, 3, 9, 5, 0, 12}, L"3.2.2025  9:05:00", L"2025-02-03T09:05:00.012Z", L"20250203"},
        {{2024, 12, 31, 23, 59, 58, 999}, L"31.12.2024  23:59:58", L"2024-12-31T23:59:58.999Z", L"20241231"},
        {{987, 10, 1, 0, 0, 7, 0}, L"1.10.0987  0:00:07", L"0987-10-01T00:00:07.000Z", L"09871001"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(velquin::formatLocalTime(c.time), c.local);
        EXPECT_EQ(velquin::formatUtcTime(c.time), c.utc);
        EXPECT_EQ(velquin::formatDate(c.time), c.date);
    }
}

TEST(Log, LinesAreUtf8AndEndInALineFeed) {
    constexpr TimeStamp kTime{2025, 2, 3, 9, 5, 0, 12};
    EXPECT_EQ(velquin::formatLogLine(kTime, L"install started"), "3.2.2025  9:05:00  install started\n");
    EXPECT_EQ(velquin::formatLogLine(kTime, L"copy failed: D:\\Gr\u00FC\u00DF\\\U0001F600"),
              "3.2.2025  9:05:00  copy failed: D:\\Gr\xC3\xBC\xC3\x9F\\\xF0\x9F\x98\x80\n");
    EXPECT_EQ(velquin::formatLogLine(kTime, L"one\r\ntwo"), "3.2.2025  9:05:00  one\r\ntwo\n");
    EXPECT_EQ(velquin::formatLogLine(kTime, L""), "3.2.2025  9:05:00  \n");
}

}  // namespace
