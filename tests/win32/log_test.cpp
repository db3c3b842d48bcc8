#include "core/log.h"

#include <thread>

#include "base/win32/files.h"
#include "core/product_paths.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin;
using namespace velquin::test;
using testing::ElementsAre;

class Log : public UnitTest {};

TEST_F(Log, LinesAreAppendedInUtf8) {
    EXPECT_FALSE(base::pathExists(path(L"local")));
    writeFile(path(L"deep\\name.log"), "older line\n");
    writeLogBeside(path(L"deep\\name.json"), L"grün 漢 \U0001F512");
    writeLogBeside(path(L"deep\\name.json"), L"");
    EXPECT_THAT(readFile(path(L"deep\\name.log")),
                testing::MatchesRegex("older line\n"
                                      "\\d+\\.\\d+\\.\\d\\d\\d\\d  \\d+:\\d\\d:\\d\\d  "
                                      "gr\xC3\xBCn \xE6\xBC\xA2 \xF0\x9F\x94\x92\n"
                                      "\\d+\\.\\d+\\.\\d\\d\\d\\d  \\d+:\\d\\d:\\d\\d  \n"));
    EXPECT_THAT(namesIn(path(L"deep")), ElementsAre(L"name.log"));
    writeSetupLog(L"makes its folders");
    EXPECT_THAT(log(), ElementsAre(L"makes its folders"));
}

TEST_F(Log, IsSilentWhereItCannotBeWritten) {
    writeSetupLog(L"first");
    {
        const base::UniqueFile locked = base::openFile(setupLogFile(), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
        ASSERT_TRUE(locked);
        writeSetupLog(L"dropped");
    }
    writeSetupLog(L"second");
    EXPECT_THAT(log(), ElementsAre(L"first", L"second"));
    base::createFolders(path(L"folder.log"));
    writeLogBeside(path(L"folder.json"), L"dropped");
    EXPECT_THAT(namesIn(path(L"folder.log")), ElementsAre());
    writeFile(path(L"file"), "in the way");
    writeLogBeside(path(L"file\\name.json"), L"dropped");
    EXPECT_EQ(readFile(path(L"file")), "in the way");
}

TEST_F(Log, OthersMayWriteToItMeanwhile) {
    writeSetupLog(L"first");
    {
        // With the right to rename it, which has to be shared, too.
        const base::UniqueFile other =
            base::openFile(setupLogFile(), FILE_APPEND_DATA | DELETE,
                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
        ASSERT_TRUE(other);
        writeSetupLog(L"second");
        const std::string line = formatLogLine(localTime(), L"of the other");
        EXPECT_TRUE(base::writeAll(other.get(), std::as_bytes(std::span(line))));
        writeSetupLog(L"third");
    }
    EXPECT_THAT(log(), ElementsAre(L"first", L"second", L"of the other", L"third"));
}

TEST_F(Log, ThreadsLoseNoLine) {
    constexpr int kLines = 500;
    const auto write = [](const std::wstring& name) {
        for (int i = 0; i < kLines; ++i) {
            writeSetupLog(name + L" line " + std::to_wstring(i));
        }
    };
    std::thread first(write, L"first");
    std::thread second(write, L"second");
    first.join();
    second.join();
    std::vector<std::wstring> expected;
    for (const wchar_t* name : {L"first", L"second"}) {
        for (int i = 0; i < kLines; ++i) {
            expected.push_back(name + (L" line " + std::to_wstring(i)));
        }
    }
    std::vector<std::wstring> written = log();
    std::ranges::sort(expected);
    std::ranges::sort(written);
    EXPECT_EQ(written, expected);
}

TEST_F(Log, TimesAreThoseOfWindows) {
    const struct {
        void(WINAPI* ask)(SYSTEMTIME*);
        TimeStamp (*get)();
    } clocks[] = {{GetSystemTime, utcTime}, {GetLocalTime, localTime}};
    for (const auto& clock : clocks) {
        SYSTEMTIME before{}, after{};
        TimeStamp time;
        do {
            clock.ask(&before);
            time = clock.get();
            clock.ask(&after);
        } while (before.wSecond != after.wSecond);
        EXPECT_THAT(
            (std::vector{time.year, time.month, time.day, time.hour, time.minute, time.second}),
            ElementsAre(before.wYear, before.wMonth, before.wDay, before.wHour, before.wMinute, before.wSecond));
        EXPECT_GE(time.millisecond, before.wMilliseconds);
        EXPECT_LE(time.millisecond, after.wMilliseconds);
    }
}

}  // namespace
