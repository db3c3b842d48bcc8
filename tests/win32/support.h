// What the Windows unit tests share. They run side by side on one machine, so each has a folder and a setup log of its
// own, and every name that others could see is used once.
#pragma once

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/win32/unique_handle.h"

namespace velquin::test {

constexpr DWORD kPatienceMs = 30000;

// A name that no other test, process or run has.
std::wstring uniqueName();

void writeFile(const std::wstring& path, std::string_view bytes);
// All bytes of a file; a missing one fails the test.
std::string readFile(const std::wstring& path);
std::vector<std::wstring> namesIn(const std::wstring& folder);

// As long as it lives, what this process does below HKEY_LOCAL_MACHINE happens in an empty key of its own.
class OwnLocalMachine {
public:
    OwnLocalMachine();
    ~OwnLocalMachine();
    OwnLocalMachine(const OwnLocalMachine&) = delete;
    OwnLocalMachine& operator=(const OwnLocalMachine&) = delete;

private:
    std::wstring key_ = L"Software\\VelquinTests\\" + uniqueName();  // below HKEY_CURRENT_USER
};

// Writes a value below HKEY_LOCAL_MACHINE with just these bytes, whatever its type says about them.
void setRawValue(const std::wstring& key, const wchar_t* name, DWORD type, std::string_view bytes);
// The bytes of a wide text, without a terminator.
std::string bytesOf(std::wstring_view text);

// A test with a folder of its own; %LOCALAPPDATA%, and with it the setup log, lies in it.
class UnitTest : public testing::Test {
protected:
    UnitTest();
    ~UnitTest() override;

    std::wstring path(std::wstring_view name) const;
    // Copies a program into the test's folder, under another name, and gives its path.
    std::wstring copyOf(const std::wstring& program, std::wstring_view name) const;
    // Makes a symbolic link to a folder, both in the test's folder. False where the machine cannot.
    bool makeLink(const std::wstring& name, const std::wstring& target) const;
    // The texts of the setup log's lines, each checked to begin with a time stamp.
    std::vector<std::wstring> log() const;

    const std::wstring folder_;
};

// The helper program tests/tools/close_target.cpp, which lies beside the test program.
std::wstring closeTarget();

// A running program, terminated with the object if it has not ended by itself.
class Child {
public:
    // Starts a copy of close_target in one of its modes and waits until it says that it is ready.
    Child(const std::wstring& program, const std::wstring& mode);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    DWORD id() const { return GetProcessId(process_.get()); }
    bool runs() const { return WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT; }
    // Waits for its end. STILL_ACTIVE when it does not come.
    DWORD exitCode() const;

private:
    base::UniqueHandle process_;
};

}  // namespace velquin::test
