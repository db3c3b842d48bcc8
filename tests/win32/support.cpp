#include "tests/win32/support.h"

#include <algorithm>
#include <regex>
#include <span>
#include <sstream>

#include "base/argument_quoting.h"
#include "base/text.h"
#include "base/win32/files.h"
#include "base/win32/held_file.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "core/product_paths.h"

namespace velquin::test {
namespace {

base::UniqueHandle start(const std::wstring& program, std::wstring commandLine, const wchar_t* folder) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, folder,
                               &startup, &process))
        << "cannot start " << base::toUtf8(commandLine);
    const base::UniqueHandle thread(process.hThread);
    return base::UniqueHandle(process.hProcess);
}

}  // namespace

std::wstring uniqueName() {
    static int count = 0;
    return L"velquin-unit-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(GetTickCount64()) + L"-" +
           std::to_wstring(++count);
}

void writeFile(const std::wstring& path, std::string_view bytes) {
    base::createFolders(base::parentPath(path));
    const base::UniqueFile file = base::openFile(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
    EXPECT_TRUE(file && base::writeAll(file.get(), std::as_bytes(std::span(bytes)))) << base::toUtf8(path);
}

std::string readFile(const std::wstring& path) {
    const auto bytes = base::readWholeFile(path);
    EXPECT_TRUE(bytes) << "cannot read " << base::toUtf8(path);
    return bytes ? std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size()) : "";
}

std::vector<std::wstring> namesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    for (const base::FolderEntry& entry : base::listFolder(folder)) {
        names.push_back(entry.name);
    }
    return names;
}

OwnLocalMachine::OwnLocalMachine() {
    base::UniqueRegistryKey key;
    EXPECT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, key_.c_str(), key.put()), ERROR_SUCCESS);
    EXPECT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, key.get()), ERROR_SUCCESS);
}

OwnLocalMachine::~OwnLocalMachine() {
    EXPECT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, key_.c_str()), ERROR_SUCCESS);
}

void setRawValue(const std::wstring& key, const wchar_t* name, DWORD type, std::string_view bytes) {
    base::UniqueRegistryKey opened;
    EXPECT_EQ(RegCreateKeyW(HKEY_LOCAL_MACHINE, key.c_str(), opened.put()), ERROR_SUCCESS);
    // Windows adds a terminator that it finds right behind a text, so something else has to stand there.
    const std::string guarded = std::string(bytes) + "guard";
    EXPECT_EQ(RegSetValueExW(opened.get(), name, 0, type, reinterpret_cast<const BYTE*>(guarded.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
}

std::string bytesOf(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

UnitTest::UnitTest() : folder_(base::joinPath(base::temporaryFolder(), uniqueName())) {
    EXPECT_TRUE(base::createFolders(folder_));
    SetEnvironmentVariableW(L"LOCALAPPDATA", path(L"local").c_str());
}

UnitTest::~UnitTest() {
    base::removeTree(folder_, [](const std::wstring& link) { RemoveDirectoryW(link.c_str()); });
}

std::wstring UnitTest::path(std::wstring_view name) const {
    return base::joinPath(folder_, name);
}

std::wstring UnitTest::copyOf(const std::wstring& program, std::wstring_view name) const {
    std::wstring copy = path(name);
    EXPECT_TRUE(base::createFolders(base::parentPath(copy)) && CopyFileW(program.c_str(), copy.c_str(), TRUE));
    return copy;
}

bool UnitTest::makeLink(const std::wstring& name, const std::wstring& target) const {
    // Wine only pretends to make symbolic links, but shows those of the system around it, whose own program makes one.
    const std::wstring program = LR"(Z:\bin\ln)";
    if (!base::fileExists(program)) {
        return CreateSymbolicLinkW(path(name).c_str(), path(target).c_str(), SYMBOLIC_LINK_FLAG_DIRECTORY) != 0;
    }
    std::wstring names = target + L" " + name;
    std::ranges::replace(names, L'\\', L'/');
    start(program, L"ln -sr " + names, folder_.c_str());
    // There is no handle to a program of the other system: its deed has to be awaited.
    const ULONGLONG end = GetTickCount64() + kPatienceMs;
    while (!base::isLink(path(name)) && GetTickCount64() < end) {
        Sleep(5);
    }
    return base::isLink(path(name));
}

std::vector<std::wstring> UnitTest::log() const {
    std::vector<std::wstring> texts;
    if (!base::fileExists(setupLogFile())) {
        return texts;
    }
    static const std::wregex stamp(LR"(\d{1,2}\.\d{1,2}\.\d{4}  \d{1,2}:\d\d:\d\d  )");
    std::wistringstream lines(base::toWide(readFile(setupLogFile())));
    for (std::wstring line; std::getline(lines, line);) {
        std::wsmatch match;
        EXPECT_TRUE(std::regex_search(line, match, stamp, std::regex_constants::match_continuous))
            << "no log line: " << base::toUtf8(line);
        texts.push_back(match.suffix());
    }
    return texts;
}

std::wstring closeTarget() {
    return base::joinPath(ownFolder(), L"close_target.exe");
}

Child::Child(const std::wstring& program, const std::wstring& mode) {
    const std::wstring name = uniqueName();
    const base::UniqueHandle ready(CreateEventW(nullptr, TRUE, FALSE, name.c_str()));
    process_ = start(program, base::quoteArgument(program) + L" " + mode + L" " + name, nullptr);
    EXPECT_EQ(WaitForSingleObject(ready.get(), kPatienceMs), WAIT_OBJECT_0) << "it never became ready";
}

Child::~Child() {
    // Its file can be deleted only when it has ended.
    TerminateProcess(process_.get(), 99);
    WaitForSingleObject(process_.get(), kPatienceMs);
}

DWORD Child::exitCode() const {
    DWORD code = 0;
    WaitForSingleObject(process_.get(), kPatienceMs);
    EXPECT_TRUE(GetExitCodeProcess(process_.get(), &code));
    return code;
}

}  // namespace velquin::test
