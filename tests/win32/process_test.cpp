#include "base/win32/process.h"

#include "base/argument_quoting.h"
#include "base/text.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using base::runProcessAndWait;

constexpr uint32_t kUntouched = 77777;

class Process : public UnitTest {};

TEST_F(Process, OnlyZeroSucceedsAndEveryExitCodeComesWhole) {
    // 259 is what Windows says of a process that still runs.
    for (const uint32_t code : {0u, 1u, 124u, 259u, 1641u, 3010u, 0xFFFFFFFFu}) {
        uint32_t exitCode = kUntouched;
        EXPECT_EQ(runProcessAndWait(closeTarget(), L"exit " + std::to_wstring(code), kPatienceMs, &exitCode, true),
                  code == 0);
        EXPECT_EQ(exitCode, code);
    }
}

TEST_F(Process, ProgramThatCannotStartGivesTheSystemErrorCode) {
    writeFile(path(L"text.exe"), "not a program");
    constexpr std::pair<const wchar_t*, uint32_t> kCases[] = {
        {L"missing.exe", ERROR_FILE_NOT_FOUND},
        {L"no folder\\missing.exe", ERROR_PATH_NOT_FOUND},
        {L"text.exe", ERROR_BAD_EXE_FORMAT},
    };
    for (const auto& [name, error] : kCases) {
        uint32_t exitCode = kUntouched;
        EXPECT_FALSE(runProcessAndWait(path(name), L"exit 0", kPatienceMs, &exitCode, true));
        EXPECT_EQ(exitCode, error);
        EXPECT_FALSE(base::startProcess(path(name), base::quoteArgument(path(name)), true));
        EXPECT_EQ(GetLastError(), error);
    }
}

TEST_F(Process, ProcessPastItsLimitIsEndedWith124) {
    const std::wstring program = copyOf(closeTarget(), L"slow.exe");
    const std::wstring name = uniqueName();
    const base::UniqueHandle ready(CreateEventW(nullptr, TRUE, FALSE, name.c_str()));
    uint32_t exitCode = kUntouched;
    EXPECT_FALSE(runProcessAndWait(program, L"windowless " + name, 1500, &exitCode, true));
    EXPECT_EQ(exitCode, base::kTimedOutExitCode);
    EXPECT_EQ(WaitForSingleObject(ready.get(), 0), WAIT_OBJECT_0) << "it never ran";
    // The file of a running program cannot be deleted. Ending takes a moment, the program would take a minute.
    for (int tries = 0; tries < 100 && !DeleteFileW(program.c_str()); ++tries) {
        Sleep(50);
    }
    EXPECT_EQ(GetFileAttributesW(program.c_str()), INVALID_FILE_ATTRIBUTES) << "it still runs";
}

TEST_F(Process, ArgumentsAreAppendedUnchangedBehindTheQuotedProgram) {
    const std::wstring program = copyOf(closeTarget(), L"blank and é\\tärget Ж.exe");
    const std::wstring output = path(L"line.txt");
    for (const std::wstring_view tail : {L"", LR"( INSTALLFOLDER="C:\a b\\"  "" %PATH% ^& | "unfinished )"}) {
        const std::wstring arguments = L"command-line " + output + std::wstring(tail);
        ASSERT_TRUE(runProcessAndWait(program, arguments, kPatienceMs, nullptr, true));
        EXPECT_EQ(readFile(output), base::toUtf8(L"\"" + program + L"\" " + arguments));
    }
}

TEST_F(Process, OnlyHiddenOnesAreToldToHide) {
    for (const bool hidden : {false, true}) {
        uint32_t exitCode = kUntouched;
        runProcessAndWait(closeTarget(), L"startup -", kPatienceMs, &exitCode, hidden);
        EXPECT_EQ(exitCode, hidden ? 0x110u + SW_HIDE : 0x100u);
    }
}

}  // namespace
