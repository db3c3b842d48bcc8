#include "base/win32/process.h"

#include <thread>

#include "base/argument_quoting.h"
#include "base/text.h"
#include "base/windows_path.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using base::runProcessAndWait;

constexpr uint32_t kLimitMs = 30000;
constexpr uint32_t kUntouched = 77777;

class Process : public UnitTest {};

// The handle of the process with this executable name, once there is one.
base::UniqueHandle openByName(const std::wstring& name) {
    base::UniqueHandle handle;
    waitUntil([&] {
        std::vector<base::RunningProcess> processes;
        base::listProcesses(processes);
        for (const base::RunningProcess& process : processes) {
            if (process.fileName == name) {
                handle.reset(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process.id));
            }
        }
        return static_cast<bool>(handle);
    });
    return handle;
}

TEST_F(Process, OnlyZeroSucceedsAndEveryExitCodeComesWhole) {
    // 259 is what Windows says of a process that still runs, 124 what this program says of one that it ended.
    for (const uint32_t code : {0u, 1u, 124u, 256u, 259u, 1641u, 3010u, 0xC0000005u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(code);
        const std::wstring arguments = L"exit " + std::to_wstring(code);
        uint32_t exitCode = kUntouched;
        EXPECT_EQ(runProcessAndWait(closeTarget(), arguments, kLimitMs, &exitCode, true), code == 0);
        EXPECT_EQ(exitCode, code);
        EXPECT_EQ(runProcessAndWait(closeTarget(), arguments, kLimitMs, nullptr, true), code == 0);
    }
}

TEST_F(Process, ProgramThatCannotStartGivesTheSystemErrorCode) {
    writeFile(path(L"text.exe"), "not a program");
    const struct {
        const wchar_t* name;
        uint32_t error;
    } cases[] = {
        {L"missing.exe", ERROR_FILE_NOT_FOUND},
        {L"no folder\\missing.exe", ERROR_PATH_NOT_FOUND},
        {L"text.exe", ERROR_BAD_EXE_FORMAT},
    };
    for (const auto& [name, error] : cases) {
        SCOPED_TRACE(base::toUtf8(name));
        uint32_t exitCode = kUntouched;
        EXPECT_FALSE(runProcessAndWait(path(name), L"exit 0", kLimitMs, &exitCode, true));
        EXPECT_EQ(exitCode, error);
        EXPECT_FALSE(runProcessAndWait(path(name), L"", kLimitMs, nullptr, false));
        EXPECT_FALSE(base::startProcess(path(name), base::quoteArgument(path(name)), true));
        EXPECT_EQ(GetLastError(), error);
    }
}

TEST_F(Process, ProcessPastItsLimitIsEndedWith124) {
    const std::wstring name = uniqueName() + L".exe";
    const std::wstring program = copyOf(closeTarget(), name);
    bool succeeded = true;
    uint32_t exitCode = kUntouched;
    std::thread runner(
        [&] { succeeded = runProcessAndWait(program, L"windowless " + uniqueName(), 1500, &exitCode, true); });
    const base::UniqueHandle process = openByName(name);
    runner.join();
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(exitCode, base::kTimedOutExitCode);
    ASSERT_TRUE(process);
    EXPECT_EQ(WaitForSingleObject(process.get(), kLimitMs), WAIT_OBJECT_0) << "it still runs";
    DWORD own = 0;
    EXPECT_TRUE(GetExitCodeProcess(process.get(), &own));
    EXPECT_EQ(own, base::kTimedOutExitCode);
}

TEST_F(Process, ArgumentsAreAppendedUnchangedBehindTheQuotedProgram) {
    const std::wstring program = copyOf(closeTarget(), L"blank and é\\tärget Ж.exe");
    const std::wstring output = path(L"line.txt");
    for (const std::wstring_view tail :
         {L"", LR"( INSTALLFOLDER="C:\a b\\" /qn)", LR"(  "" %PATH% ^& | "unfinished )"}) {
        const std::wstring arguments = L"command-line " + output + std::wstring(tail);
        ASSERT_TRUE(runProcessAndWait(program, arguments, kLimitMs, nullptr, true));
        EXPECT_EQ(readFile(output), base::toUtf8(L"\"" + program + L"\" " + arguments));
    }
}

TEST_F(Process, HiddenOnesAreToldToHideOthersAreNot) {
    uint32_t exitCode = kUntouched;
    runProcessAndWait(closeTarget(), L"startup -", kLimitMs, &exitCode, true);
    EXPECT_EQ(exitCode, 0x110u + SW_HIDE);
    runProcessAndWait(closeTarget(), L"startup -", kLimitMs, &exitCode, false);
    EXPECT_EQ(exitCode, 0x100u);
}

TEST_F(Process, StartedProcessRunsOnAndInheritsNoHandle) {
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    const std::wstring file = path(L"mine");
    base::UniqueFile held(CreateFileW(file.c_str(), GENERIC_WRITE, 0, &inheritable, CREATE_NEW, 0, nullptr));
    ASSERT_TRUE(held);
    const std::wstring program = copyOf(closeTarget(), uniqueName() + L".exe");
    const std::wstring eventName = uniqueName();
    const base::UniqueHandle ready(CreateEventW(nullptr, TRUE, FALSE, eventName.c_str()));
    ASSERT_TRUE(base::startProcess(program, base::quoteArgument(program) + L" windowless " + eventName, true));
    EXPECT_EQ(WaitForSingleObject(ready.get(), kLimitMs), WAIT_OBJECT_0);
    held.reset();
    EXPECT_TRUE(DeleteFileW(file.c_str())) << "the child holds the file open, error " << GetLastError();
    base::UniqueHandle process = openByName(base::fileName(program));
    ASSERT_TRUE(process);
    EXPECT_EQ(WaitForSingleObject(process.get(), 0), DWORD{WAIT_TIMEOUT});
    process.reset(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, GetProcessId(process.get())));
    EXPECT_TRUE(TerminateProcess(process.get(), 0));
    WaitForSingleObject(process.get(), kLimitMs);
}

}  // namespace
