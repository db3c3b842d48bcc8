#include "core/log.h"

#include <algorithm>
#include <thread>

#include "base/win32/files.h"
#include "core/product_paths.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin;
using namespace velquin::test;
using testing::ElementsAre;

class Log : public UnitTest {};

TEST_F(Log, LinesAreAppendedWhereTheyCanBe) {
    writeSetupLog(L"makes its folders");
    {
        // Others may write to it and have the right to rename it meanwhile.
        const base::UniqueFile other =
            base::openFile(setupLogFile(), FILE_APPEND_DATA | DELETE,
                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
        writeSetupLog(L"grün 漢 \U0001F512");
        const std::string line = formatLogLine(localTime(), L"of the other");
        EXPECT_TRUE(base::writeAll(other.get(), std::as_bytes(std::span(line))));
    }
    {
        const base::UniqueFile locked = base::openFile(setupLogFile(), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
        ASSERT_TRUE(locked);
        writeSetupLog(L"dropped");
    }
    writeSetupLog(L"");
    EXPECT_THAT(log(), ElementsAre(L"makes its folders", L"grün 漢 \U0001F512", L"of the other", L""));
    writeFile(path(L"file"), "in the way");
    writeLogBeside(path(L"file\\name.json"), L"dropped");
    EXPECT_EQ(readFile(path(L"file")), "in the way");
}

TEST_F(Log, ThreadsLoseNoLine) {
    constexpr int kLines = 500;
    std::vector<std::wstring> expected;
    std::vector<std::thread> threads;
    for (const std::wstring name : {L"first ", L"second "}) {
        threads.emplace_back([name] {
            for (int i = 0; i < kLines; ++i) {
                writeSetupLog(name + std::to_wstring(i));
            }
        });
        for (int i = 0; i < kLines; ++i) {
            expected.push_back(name + std::to_wstring(i));
        }
    }
    std::ranges::for_each(threads, &std::thread::join);
    EXPECT_THAT(log(), testing::UnorderedElementsAreArray(expected));
}

}  // namespace
