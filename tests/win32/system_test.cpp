#include "base/win32/system.h"

#include "base/text.h"
#include "base/win32/files.h"
#include "base/win32/system_library.h"
#include "base/windows_path.h"
#include "core/product_paths.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using base::environmentVariable;

constexpr wchar_t kVariable[] = L"VELQUIN_TEST_VARIABLE";

class System : public UnitTest {};

TEST_F(System, EnvironmentVariablesOfAnyLengthOrTheDefault) {
    for (const wchar_t* nothing : {static_cast<const wchar_t*>(nullptr), L""}) {
        const ScopedVariable variable(kVariable, nothing);
        EXPECT_EQ(environmentVariable(kVariable, L"default"), L"default");
        EXPECT_EQ(environmentVariable(kVariable, L""), L"");
    }
    // Around the size of the first buffer, and the longest that Windows takes.
    for (const size_t length : {1u, 254u, 255u, 256u, 257u, 1000u, 32766u}) {
        const std::wstring value = std::wstring(length - 1, L'x') + L'é';
        const ScopedVariable variable(kVariable, value.c_str());
        EXPECT_EQ(environmentVariable(kVariable, L"default"), value);
    }
}

TEST_F(System, FoldersOfTheUserFollowTheEnvironment) {
    EXPECT_EQ(velquin::configurationFile(), path(LR"(local\LumoraPrivateMemory\Velquin\velquin.json)"));
    EXPECT_EQ(velquin::setupLogFile(), path(LR"(local\LumoraPrivateMemory\Velquin\velquin.log)"));
    EXPECT_EQ(velquin::passwordFile(), path(LR"(local\LumoraPrivateMemory\Velquin\velquin.password.dpapi)"));
    const ScopedVariable temporary(L"TMP", (folder_.path() + L"\\").c_str());
    EXPECT_EQ(base::temporaryFolder(), folder_.path());
    for (const wchar_t* nothing : {static_cast<const wchar_t*>(nullptr), L""}) {
        const ScopedVariable local(L"LOCALAPPDATA", nothing);
        EXPECT_EQ(velquin::dataFolder(), path(LR"(LumoraPrivateMemory\Velquin)"));
    }
}

TEST_F(System, ProgramsAndPathsAreFull) {
    EXPECT_EQ(base::fileName(base::ownFilePath()), L"win32_tests.exe");
    EXPECT_TRUE(base::fileExists(base::ownFilePath()));
    EXPECT_EQ(base::lowered(base::systemProgram(L"cmd.exe")), LR"(c:\windows\system32\cmd.exe)");
    EXPECT_TRUE(base::fileExists(base::systemProgram(L"msiexec.exe")));
    EXPECT_TRUE(base::fileExists(base::joinPath(base::windowsFolder(), L"explorer.exe")));
    EXPECT_EQ(base::fullPathName(LR"(C:\a\..\b/c)"), LR"(C:\b\c)");
    const std::wstring deep = LR"(C:\)" + std::wstring(250, L'a') + L"\\" + std::wstring(250, L'b');
    EXPECT_EQ(base::fullPathName(deep), deep);
    EXPECT_EQ(base::fullPathName(L""), L"");
}

TEST_F(System, ErrorTextsAreOneLine) {
    for (const DWORD code : {ERROR_SUCCESS, ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION}) {
        const std::wstring text = base::errorText(code);
        EXPECT_EQ(text.find_first_of(L"\r\n"), std::wstring::npos);
        EXPECT_GT(text.size(), 4u);
        EXPECT_NE(text.back(), L'.');
        EXPECT_NE(text.back(), L' ');
        EXPECT_FALSE(text.starts_with(L"error ")) << "Windows has a text for " << code;
    }
    EXPECT_EQ(base::errorText(0xDEADBEEF), L"error 3735928559");
}

TEST_F(System, LibrariesComeFromTheSystemFolderOnly) {
    base::SystemLibrary library(L"msi.dll");
    EXPECT_NE(library.function<int()>("MsiEnumRelatedProductsW"), nullptr);
    EXPECT_EQ(library.function<int()>("NoSuchFunction"), nullptr);
    // A good library that lies elsewhere, even in the current folder, is not taken.
    const std::wstring planted = uniqueName() + L".dll";
    ASSERT_TRUE(CopyFileW(base::systemProgram(L"version.dll").c_str(), path(planted).c_str(), TRUE));
    const std::wstring previous = base::fullPathName(L".");
    ASSERT_TRUE(SetCurrentDirectoryW(folder_.path().c_str()));
    base::SystemLibrary elsewhere(planted.c_str());
    EXPECT_EQ(elsewhere.function<int()>("GetFileVersionInfoW"), nullptr);
    EXPECT_TRUE(SetCurrentDirectoryW(previous.c_str()));
}

struct CountingTraits {
    using Handle = int;
    static Handle none() { return 0; }
    static void close(Handle handle) { closed.push_back(handle); }
    static inline std::vector<int> closed;
};

TEST(UniqueHandle, ClosesEachHandleOnce) {
    using Handle = base::Unique<CountingTraits>;
    CountingTraits::closed.clear();
    {
        Handle one(1);
        Handle moved = std::move(one);
        EXPECT_FALSE(one);
        EXPECT_EQ(moved.get(), 1);
        Handle& itself = moved;
        moved = std::move(itself);
        EXPECT_TRUE(moved) << "lost by moving to itself";
        Handle two(2);
        moved = std::move(two);
        EXPECT_EQ(CountingTraits::closed, std::vector{1});
        *moved.put() = 3;
        EXPECT_EQ(CountingTraits::closed, (std::vector{1, 2}));
    }
    EXPECT_EQ(CountingTraits::closed, (std::vector{1, 2, 3}));
}

}  // namespace
