// What the Windows unit tests share. They run side by side on one machine, so each has a folder and a setup log of its
// own, and every name that others could see is used once.
#pragma once

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/win32/unique_handle.h"

namespace velquin::test {

// A name that no other test, process or run has.
std::wstring uniqueName();

// Asks again and again until `condition` holds; false when it did not within a generous time.
bool waitUntil(const std::function<bool()>& condition);

void writeFile(const std::wstring& path, std::string_view bytes);
// All bytes of a file; a missing one fails the test.
std::string readFile(const std::wstring& path);
std::vector<std::wstring> namesIn(const std::wstring& folder);

// Makes a symbolic link to a file or folder. False where the machine cannot.
bool makeLink(const std::wstring& link, const std::wstring& target);

// Sets an environment variable of this process, or unsets it (null), for its own lifetime.
class ScopedVariable {
public:
    ScopedVariable(const wchar_t* name, const wchar_t* value);
    ~ScopedVariable();
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    const wchar_t* name_;
    std::optional<std::wstring> previous_;
};

// A new folder, removed with the object.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::wstring& path() const { return path_; }
    std::wstring operator/(std::wstring_view name) const;

private:
    std::wstring path_;
};

// As long as it lives, what this process does below HKEY_LOCAL_MACHINE happens in an empty key of its own.
class OwnLocalMachine {
public:
    OwnLocalMachine();
    ~OwnLocalMachine();
    OwnLocalMachine(const OwnLocalMachine&) = delete;
    OwnLocalMachine& operator=(const OwnLocalMachine&) = delete;

private:
    std::wstring key_;  // below HKEY_CURRENT_USER
};

// Writes a value with just these bytes, whatever its type says about them.
void setRawValue(HKEY root, const std::wstring& key, const wchar_t* name, DWORD type, std::string_view bytes);
// The bytes of a wide text, without a terminator.
std::string bytesOf(std::wstring_view text);

// A test with a folder of its own; %LOCALAPPDATA%, and with it the setup log, lies in it.
class UnitTest : public testing::Test {
protected:
    void TearDown() override;

    std::wstring path(std::wstring_view name) const { return folder_ / name; }
    // Copies a program into the test's folder, under another name, and gives its path.
    std::wstring copyOf(const std::wstring& program, std::wstring_view name) const;
    // Runs the current test once more, in a copy of this program at the given path and as a child of this process, and
    // tells whether it passed there. The test asks isCopy() in which of the two it runs.
    bool passesInCopy(std::wstring_view name) const;
    static bool isCopy();
    // The texts of the setup log's lines, each checked to begin with a time stamp.
    std::vector<std::wstring> log() const;

    TempFolder folder_;

private:
    ScopedVariable localAppData_{L"LOCALAPPDATA", (folder_ / L"local").c_str()};
};

// The helper program tests/tools/close_target.cpp, which lies beside the test program.
std::wstring closeTarget();

// A running program, terminated with the object if it has not ended by itself.
class Child {
public:
    Child(const std::wstring& program, const std::wstring& arguments);
    // Starts close_target, or a copy of it, in one of its modes and waits until it says that it is ready.
    static Child ready(const std::wstring& program, const std::wstring& mode);
    ~Child();
    Child(Child&&) = default;
    Child& operator=(Child&&) = delete;

    DWORD id() const { return GetProcessId(process_.get()); }
    bool runs() const { return WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT; }
    // Waits for its end; nothing when it does not come.
    std::optional<DWORD> exitCode() const;

private:
    base::UniqueHandle process_;
};

}  // namespace velquin::test
