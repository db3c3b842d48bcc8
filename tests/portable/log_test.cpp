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

TEST(Log, TextFromElsewhereStaysOnItsLineAndShort) {
    EXPECT_EQ(velquin::singleLine(L"1.0\r\n3.2.2025  9:05:00  forged\t\x7F.\x85\u2028\u202E\u2069"),
              L"1.0  3.2.2025  9:05:00  forged  .    ");
    EXPECT_EQ(velquin::singleLine(std::wstring(300, L'x')), std::wstring(300, L'x'));
    EXPECT_EQ(velquin::singleLine(std::wstring(301, L'x')), std::wstring(300, L'x') + L" …");
}

}  // namespace
