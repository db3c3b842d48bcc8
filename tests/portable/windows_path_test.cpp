#include "base/windows_path.h"

#include <gtest/gtest.h>

#include "tests/portable/path_reference.h"
#include "tests/portable/table.h"

namespace {

using base::lexicallyNormal;
using testing_reference::absoluteFails;
using testing_reference::absoluteInWorkFolder;

TEST(WindowsPath, TakenApart) {
    struct Case {
        const wchar_t *path, *root;
        bool fullyQualified;
        const wchar_t *parent, *name;
    };
    constexpr Case kCases[] = {
        {L"", L"", false, L"", L""},
        {LR"(a\\b)", L"", false, L"a", L"b"},
        {L"C:a", L"C:", false, L"C:", L"a"},
        {LR"(C:\)", LR"(C:\)", true, LR"(C:\)", L""},
        {L"z:/a", L"z:/", true, L"z:/", L"a"},
        {LR"(C:\a\)", LR"(C:\)", true, LR"(C:\a)", L""},
        {LR"(1:\a)", L"", false, L"1:", L"a"},
        {LR"(\\server\share)", LR"(\\server\share)", true, LR"(\\server\share)", L""},
        {L"//s/t/a/b", L"//s/t/", true, L"//s/t/a", L"b"},
        {LR"(\\server\\share)", LR"(\\server\\)", false, LR"(\\server\\)", L"share"},
        {LR"(\\?\C:\a\b)", LR"(\\?\C:\)", false, LR"(\\?\C:\a)", L"b"},
        {LR"(\\?\C:name)", LR"(\\?\C:)", false, LR"(\\?\C:)", L"name"},
        {LR"(\\?\UNC\s\t\a)", LR"(\\?\UNC\s\t\)", false, LR"(\\?\UNC\s\t\)", L"a"},
        {LR"(\\.\pipe\a)", LR"(\\.\pipe\)", false, LR"(\\.\pipe\)", L"a"},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.path));
        EXPECT_EQ(base::rootLength(c.path), std::wstring_view(c.root).size());
        EXPECT_EQ(base::isFullyQualified(c.path), c.fullyQualified);
        EXPECT_EQ(base::parentPath(c.path), c.parent);
        EXPECT_EQ(base::fileName(c.path), c.name);
    }
}

TEST(WindowsPath, JoinedAndWithAnotherExtension) {
    testing_table::expectEach([](const std::wstring& folder) { return base::joinPath(folder, L"b"); },
                              {{L"", L"b"}, {L"C:\\", L"C:\\b"}, {L"C:/a/", L"C:/a/b"}, {L"a", L"a\\b"}});
    const testing_table::Pairs extensions = {
        {LR"(C:\a.b\velquin)", LR"(C:\a.b\velquin.log)"},
        {L"a.b.c", L"a.b.log"},
        {L"C:/a.b/.hidden", L"C:/a.b/.hidden.log"},
        {LR"(a\..)", LR"(a\...log)"},
    };
    testing_table::expectEach([](const std::wstring& path) { return base::withExtension(path, L".log"); }, extensions);
}

TEST(WindowsPath, LexicallyNormal) {
    const testing_table::Pairs pairs = {
        {L"", L""},
        {L"a/..", L"."},
        {L"../a//../../b", LR"(..\..\b)"},
        {LR"(C:\a\.\b\..\c\)", LR"(C:\a\c\)"},
        {LR"(C:\..\..\a)", LR"(C:\a)"},
        {LR"(C:a\..\..\b)", LR"(C:..\b)"},
        {L"//server/share/../a/", LR"(\\server\share\a\)"},
        {LR"(\\?\C:\a\..\.\b\)", LR"(\\?\C:\a\..\.\b\)"},
        // A component may not turn into a drive.
        {LR"(a\..\C:\b)", LR"(.\C:\b)"},
    };
    testing_table::expectEach(lexicallyNormal, pairs);
}

TEST(WindowsPath, NormalizingFolderTexts) {
    const auto onMachine = [](const std::wstring& text) { return base::normalizePathText(text, absoluteInWorkFolder); };
    const testing_table::Pairs pairs = {
        {L" \t\r\n", L""},
        {LR"(  D:/Apps\Velquin/ )", LR"(D:\Apps\Velquin)"},
        {LR"(C:\\\)", LR"(C:\)"},
        {L"--desktop", LR"(C:\Work\--desktop)"},
        {L"../Apps/", LR"(C:\Apps)"},
        {L"D:Apps", LR"(D:\Apps)"},
        {LR"(\\server\share\a\..\..\..\b\)", LR"(\\server\share\b)"},
    };
    testing_table::expectEach(onMachine, pairs);
    const auto unresolved = [](const std::wstring& text) { return base::normalizePathText(text, absoluteFails); };
    testing_table::expectEach(unresolved, {{L" a/../Apps/Velquin/ ", LR"(Apps\Velquin)"}, {L"ab/", LR"(ab\)"}});
}

TEST(WindowsPath, ExtendedLength) {
    const std::wstring rest(300, L'n');
    const testing_table::Pairs pairs = {
        {L"C:\\" + rest.substr(0, 244), L"C:\\" + rest.substr(0, 244)},
        {L"C:\\" + rest.substr(0, 245), LR"(\\?\C:\)" + rest.substr(0, 245)},
        {L"C:/a/../" + rest, LR"(\\?\C:\)" + rest},
        {L"//server/share/" + rest, LR"(\\?\UNC\server\share\)" + rest},
        {LR"(\\?\C:\)" + rest, LR"(\\?\C:\)" + rest},
    };
    testing_table::expectEach(base::extendedLengthPath, pairs);
}

TEST(WindowsPath, RandomPathsKeepTheirProperties) {
    std::mt19937 random(42);
    for (int round = 0; round < 20000; ++round) {
        const std::wstring path = testing_table::randomText(random, L"\\\\\\///...C::abc?", 14);
        SCOPED_TRACE(testing::PrintToString(path));
        const std::wstring normal = lexicallyNormal(path);
        ASSERT_EQ(lexicallyNormal(normal), normal);
        for (const auto& absolute : {absoluteInWorkFolder, absoluteFails}) {
            const std::wstring folder = base::normalizePathText(path, absolute);
            ASSERT_EQ(base::normalizePathText(folder, absolute), folder);
            ASSERT_EQ(folder.find(L'/'), std::wstring::npos);
            ASSERT_FALSE(folder.size() >= 4 && folder.ends_with(L'\\'));
        }
        if (base::isFullyQualified(path)) {
            // Walking up ends at the root, and each step down again leads to the same place.
            const std::wstring parent = base::parentPath(path);
            const std::wstring name = base::fileName(path);
            ASSERT_GE(parent.size(), base::rootLength(path));
            ASSERT_TRUE(name.empty() || lexicallyNormal(base::joinPath(parent, name)) == normal);
        }
    }
}

}  // namespace
