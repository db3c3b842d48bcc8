#include "tests/win32/support.h"

#include <atomic>
#include <bit>
#include <regex>
#include <span>

#include "base/argument_quoting.h"
#include "base/text.h"
#include "base/win32/files.h"
#include "base/win32/held_file.h"
#include "base/win32/system.h"
#include "base/windows_path.h"
#include "core/product_paths.h"

namespace velquin::test {
namespace {

constexpr DWORD kPatienceMs = 30000;

// In a copy: the file to make when the test has passed. Its exit code alone would not tell that nobody ended it.
constexpr wchar_t kPassedVariable[] = L"VELQUIN_TEST_PASSED";

}  // namespace

std::wstring uniqueName() {
    static std::atomic<int> count = 0;
    return L"velquin-unit-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(GetTickCount64()) + L"-" +
           std::to_wstring(++count);
}

bool waitUntil(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + kPatienceMs;
    while (!condition()) {
        if (GetTickCount64() > end) {
            return false;
        }
        Sleep(10);
    }
    return true;
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

bool makeLink(const std::wstring& link, const std::wstring& target) {
    // Wine only pretends to make symbolic links, but shows those of the system around it, whose own program can make
    // one.
    using UnixName = char*(CDECL*)(const wchar_t*);
    const auto unixName =
        std::bit_cast<UnixName>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name"));
    if (unixName == nullptr) {
        const DWORD kind = base::folderExists(target) ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0;
        return CreateSymbolicLinkW(link.c_str(), target.c_str(), kind) != 0;
    }
    const auto converted = [unixName](const std::wstring& path) {
        char* name = unixName(path.c_str());
        std::wstring text = base::toWide(name != nullptr ? name : "");
        HeapFree(GetProcessHeap(), 0, name);
        return text;
    };
    const std::vector<std::wstring> arguments = {L"ln", L"-s", converted(target),
                                                 converted(base::parentPath(link)) + L"/" + base::fileName(link)};
    std::wstring commandLine = base::joinArguments(arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    // There is no handle to a program of the other system: its deed has to be awaited.
    return CreateProcessW(LR"(Z:\bin\ln)", commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                          &process) &&
           waitUntil([&link] { return base::pathExists(link); });
}

ScopedVariable::ScopedVariable(const wchar_t* name, const wchar_t* value) : name_(name) {
    std::wstring previous(32767, L'\0');
    SetLastError(ERROR_SUCCESS);
    const DWORD length = GetEnvironmentVariableW(name, previous.data(), static_cast<DWORD>(previous.size()));
    if (length > 0 || GetLastError() != ERROR_ENVVAR_NOT_FOUND) {
        previous_ = previous.substr(0, length);
    }
    SetEnvironmentVariableW(name, value);
}

ScopedVariable::~ScopedVariable() {
    SetEnvironmentVariableW(name_, previous_ ? previous_->c_str() : nullptr);
}

TempFolder::TempFolder() : path_(base::joinPath(base::temporaryFolder(), uniqueName())) {
    EXPECT_TRUE(base::createFolders(path_));
}

TempFolder::~TempFolder() {
    base::removeTree(path_, [](const std::wstring& link) { RemoveDirectoryW(link.c_str()); });
}

std::wstring TempFolder::operator/(std::wstring_view name) const {
    return base::joinPath(path_, name);
}

OwnLocalMachine::OwnLocalMachine() : key_(L"Software\\VelquinTests\\" + uniqueName()) {
    base::UniqueRegistryKey key;
    EXPECT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, key_.c_str(), key.put()), ERROR_SUCCESS);
    EXPECT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, key.get()), ERROR_SUCCESS);
}

OwnLocalMachine::~OwnLocalMachine() {
    EXPECT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, key_.c_str()), ERROR_SUCCESS);
}

void setRawValue(HKEY root, const std::wstring& key, const wchar_t* name, DWORD type, std::string_view bytes) {
    base::UniqueRegistryKey opened;
    EXPECT_EQ(RegCreateKeyW(root, key.c_str(), opened.put()), ERROR_SUCCESS);
    // Windows adds a terminator that it finds right behind a text, so something else has to stand there.
    const std::string guarded = std::string(bytes) + "guard";
    EXPECT_EQ(RegSetValueExW(opened.get(), name, 0, type, reinterpret_cast<const BYTE*>(guarded.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
}

std::string bytesOf(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

std::wstring UnitTest::copyOf(const std::wstring& program, std::wstring_view name) const {
    std::wstring copy = path(name);
    EXPECT_TRUE(base::createFolders(base::parentPath(copy)) && CopyFileW(program.c_str(), copy.c_str(), TRUE));
    return copy;
}

void UnitTest::TearDown() {
    if (isCopy() && !HasFailure()) {
        writeFile(base::environmentVariable(kPassedVariable, L""), "");
    }
}

bool UnitTest::passesInCopy(std::wstring_view name) const {
    const std::wstring copy = copyOf(ownFile(), name);
    const std::wstring passed = path(L"passed");
    const ScopedVariable variable(kPassedVariable, passed.c_str());
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    const std::string filter = std::string("--gtest_filter=") + test.test_suite_name() + "." + test.name();
    const Child child(copy, base::toWide(filter));
    return child.exitCode() == 0u && base::fileExists(passed);
}

bool UnitTest::isCopy() {
    return !base::environmentVariable(kPassedVariable, L"").empty();
}

std::vector<std::wstring> UnitTest::log() const {
    std::vector<std::wstring> texts;
    if (!base::fileExists(setupLogFile())) {
        return texts;
    }
    static const std::wregex stamp(LR"(\d{1,2}\.\d{1,2}\.\d{4}  \d{1,2}:\d\d:\d\d)");
    const std::wstring all = base::toWide(readFile(setupLogFile()));
    for (size_t start = 0; start < all.size();) {
        const size_t end = std::min(all.find(L'\n', start), all.size());
        const std::wstring line = all.substr(start, end - start);
        const size_t behindDate = std::min(line.find(L"  "), line.size() - 1) + 2;
        const size_t stampEnd = std::min(line.find(L"  ", behindDate), line.size());
        EXPECT_TRUE(std::regex_match(line.substr(0, stampEnd), stamp)) << "no log line: " << base::toUtf8(line);
        texts.push_back(line.substr(std::min(stampEnd + 2, line.size())));
        start = end + 1;
    }
    return texts;
}

std::wstring closeTarget() {
    return base::joinPath(ownFolder(), L"close_target.exe");
}

Child::Child(const std::wstring& program, const std::wstring& arguments) {
    std::wstring commandLine = base::quoteArgument(program) + L" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &process))
        << "cannot start " << base::toUtf8(commandLine);
    const base::UniqueHandle thread(process.hThread);
    process_.reset(process.hProcess);
}

Child Child::ready(const std::wstring& program, const std::wstring& mode) {
    const std::wstring name = uniqueName();
    const base::UniqueHandle event(CreateEventW(nullptr, TRUE, FALSE, name.c_str()));
    Child child(program, mode + L" " + name);
    EXPECT_EQ(WaitForSingleObject(event.get(), kPatienceMs), WAIT_OBJECT_0) << "it never became ready";
    return child;
}

Child::~Child() {
    if (process_ && runs()) {
        TerminateProcess(process_.get(), 99);
        // Its file can be deleted only when it has ended.
        WaitForSingleObject(process_.get(), kPatienceMs);
    }
}

std::optional<DWORD> Child::exitCode() const {
    DWORD code = 0;
    if (WaitForSingleObject(process_.get(), kPatienceMs) != WAIT_OBJECT_0 ||
        !GetExitCodeProcess(process_.get(), &code)) {
        return std::nullopt;
    }
    return code;
}

}  // namespace velquin::test
