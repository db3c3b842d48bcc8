#include "base/win32/files.h"

#include "setup/file_steps.h"
#include "setup/flows.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class Files : public UnitTest {
protected:
    // Removes a tree and gives the links that were skipped.
    static std::vector<std::wstring> removeTree(const std::wstring& folder, bool expectedComplete) {
        std::vector<std::wstring> skipped;
        EXPECT_EQ(base::removeTree(folder, [&skipped](const std::wstring& link) { skipped.push_back(link); }),
                  expectedComplete);
        return skipped;
    }
};

TEST_F(Files, FoldersAreMadeWithTheirParents) {
    const std::wstring deep = path(L"a\\b c\\ü");
    EXPECT_TRUE(base::createFolders(deep));
    EXPECT_TRUE(base::folderExists(deep));
    EXPECT_TRUE(base::createFolders(deep)) << "one that is there is as good";
    EXPECT_FALSE(base::createFolders(L""));
    writeFile(path(L"file"), "in the way");
    EXPECT_FALSE(base::createFolders(path(L"file")));
    EXPECT_FALSE(base::createFolders(path(L"file\\below\\it")));
    EXPECT_EQ(readFile(path(L"file")), "in the way");
}

TEST_F(Files, FilesFoldersAndNothingAreToldApart) {
    writeFile(path(L"file"), "x");
    const struct {
        std::wstring path;
        bool isFile, isFolder;
    } cases[] = {
        {path(L"file"), true, false},      {path(L"FILE"), true, false}, {folder_.path(), false, true},
        {path(L"missing"), false, false},  {L"", false, false},          {path(L"file\\below"), false, false},
        {path(L"no\\such"), false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(base::fileExists(c.path), c.isFile);
        EXPECT_EQ(base::folderExists(c.path), c.isFolder);
        EXPECT_EQ(base::pathExists(c.path), c.isFile || c.isFolder);
        EXPECT_FALSE(base::isLink(c.path));
    }
}

TEST_F(Files, OneFileUnderTwoNamesIsTheSame) {
    writeFile(path(L"Name.txt"), "same text");
    writeFile(path(L"twin.txt"), "same text");
    ASSERT_TRUE(CreateHardLinkW(path(L"second name").c_str(), path(L"Name.txt").c_str(), nullptr));
    EXPECT_TRUE(base::isSameFile(path(L"Name.txt"), path(L"nAME.TXT")));
    EXPECT_TRUE(base::isSameFile(path(L"Name.txt"), path(L"second name")));
    EXPECT_TRUE(base::isSameFile(folder_.path(), path(L".")));
    EXPECT_FALSE(base::isSameFile(path(L"Name.txt"), path(L"twin.txt")));
    EXPECT_FALSE(base::isSameFile(path(L"Name.txt"), path(L"missing")));
    EXPECT_FALSE(base::isSameFile(path(L"missing"), path(L"missing")));
    // One that somebody uses without sharing can still be recognised.
    const base::UniqueFile used = base::openFile(path(L"Name.txt"), GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING);
    EXPECT_TRUE(base::isSameFile(path(L"Name.txt"), path(L"second name")));
}

TEST_F(Files, FoldersAreListedWithSizesAndKinds) {
    writeFile(path(L"seven"), "1234567");
    writeFile(path(L".hidden"), "");
    writeFile(path(L"inner\\below"), "not listed");
    ASSERT_TRUE(makeLink(path(L"link"), path(L"inner")));
    std::vector<std::wstring> described;
    for (const base::FolderEntry& entry : base::listFolder(folder_.path())) {
        described.push_back(entry.name + (entry.isFolder ? L" folder" : L" file " + std::to_wstring(entry.size)) +
                            (entry.isLink ? L" link" : L""));
    }
    EXPECT_THAT(described,
                UnorderedElementsAre(L"seven file 7", L".hidden file 0", L"inner folder", L"link folder link"));
    EXPECT_THAT(namesIn(path(L"missing")), IsEmpty());
    EXPECT_THAT(namesIn(path(L"seven")), IsEmpty());
    EXPECT_EQ(base::fileSize(path(L"seven")), 7u);
    EXPECT_EQ(base::fileSize(path(L"missing")), 0u);
    EXPECT_EQ(base::fileSize(path(L"inner")), 0u);
}

TEST_F(Files, SizesBeyond32BitsAreWhole) {
    const base::UniqueFile file = base::openFile(path(L"large"), GENERIC_WRITE, FILE_SHARE_READ, CREATE_NEW);
    LARGE_INTEGER end{};
    end.QuadPart = 0x1'2345'6789;
    ASSERT_TRUE(SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN) && SetEndOfFile(file.get()));
    EXPECT_EQ(base::fileSize(path(L"large")), 0x1'2345'6789u);
    EXPECT_EQ(base::listFolder(folder_.path()).at(0).size, 0x1'2345'6789u);
}

TEST_F(Files, LinksAreFoundBelowTheBaseOnly) {
    base::createFolders(path(L"real\\inner"));
    ASSERT_TRUE(makeLink(path(L"link"), path(L"real")));
    EXPECT_EQ(base::firstLinkBelow(folder_.path(), path(L"real\\inner\\file")), L"");
    EXPECT_EQ(base::firstLinkBelow(folder_.path(), path(L"link")), path(L"link"));
    EXPECT_EQ(base::firstLinkBelow(folder_.path(), path(L"link\\inner\\missing")), path(L"link"));
    EXPECT_EQ(base::firstLinkBelow(path(L"link"), path(L"link\\inner")), L"");
    EXPECT_EQ(base::firstLinkBelow(folder_.path(), path(L"missing\\more")), L"");
}

TEST_F(Files, TreesAreRemovedWithReadOnlyFiles) {
    const std::wstring tree = path(L"tree");
    writeFile(path(L"tree\\a\\b\\deep"), "x");
    writeFile(path(L"tree\\read-only"), "x");
    base::createFolders(path(L"tree\\empty"));
    ASSERT_TRUE(SetFileAttributesW(path(L"tree\\read-only").c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
    EXPECT_THAT(removeTree(tree, true), IsEmpty());
    EXPECT_FALSE(base::pathExists(tree));
    EXPECT_THAT(removeTree(tree, true), IsEmpty()) << "a missing one is removed already";
    writeFile(path(L"file"), "no folder");
    EXPECT_THAT(removeTree(path(L"file"), false), IsEmpty());
    EXPECT_EQ(readFile(path(L"file")), "no folder");
}

TEST_F(Files, WhatIsInUseStaysAndTheRestGoes) {
    const std::wstring used = path(L"tree\\inner\\used");
    writeFile(used, "x");
    writeFile(path(L"tree\\inner\\a free one"), "x");
    writeFile(path(L"tree\\inner\\z free one"), "x");
    writeFile(path(L"tree\\other\\free"), "x");
    {
        const base::UniqueFile held = base::openFile(used, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
        removeTree(path(L"tree"), false);
        EXPECT_THAT(namesIn(path(L"tree")), ElementsAre(L"inner"));
        EXPECT_THAT(namesIn(path(L"tree\\inner")), ElementsAre(L"used"));
    }
    removeTree(path(L"tree"), true);
}

TEST_F(Files, LinksInATreeAreLeftWithWhatTheyLeadTo) {
    writeFile(path(L"outside\\precious"), "kept");
    writeFile(path(L"tree\\inner\\file"), "x");
    const std::wstring link = path(L"tree\\inner\\link");
    const std::wstring root = path(L"root link");
    ASSERT_TRUE(makeLink(link, path(L"outside")));
    ASSERT_TRUE(makeLink(root, path(L"outside")));
    EXPECT_THAT(removeTree(root, false), ElementsAre(root));
    EXPECT_THAT(removeTree(path(L"tree"), false), ElementsAre(link));
    EXPECT_TRUE(base::isLink(link));
    EXPECT_TRUE(base::isLink(root));
    EXPECT_THAT(namesIn(path(L"tree\\inner")), ElementsAre(L"link"));
    EXPECT_EQ(readFile(path(L"outside\\precious")), "kept");

    velquin::setup::removeFolder(path(L"tree"));
    velquin::setup::removeFolder(path(L"missing"));
    writeFile(path(L"plain\\file"), "x");
    velquin::setup::removeFolder(path(L"plain"));
    EXPECT_THAT(log(), ElementsAre(L"link left in place, not followed: " + link,
                                   L"folder not removed completely: " + path(L"tree"),
                                   L"folder not there: " + path(L"missing"), L"folder removed: " + path(L"plain")));
}

TEST_F(Files, PathsMayBeLongerThan260Characters) {
    std::wstring deep = path(L"long");
    while (deep.size() < 600) {
        deep += L"\\" + std::wstring(100, L'd');
    }
    const std::wstring file = deep + L"\\file";
    writeFile(file, "12345");
    EXPECT_EQ(readFile(file), "12345");
    EXPECT_TRUE(base::fileExists(file));
    EXPECT_EQ(base::fileSize(file), 5u);
    EXPECT_THAT(namesIn(deep), ElementsAre(L"file"));
    EXPECT_TRUE(base::isSameFile(file, deep + L"\\FILE"));
    EXPECT_TRUE(velquin::setup::copyFileReplace(file, deep + L"\\more\\copy"));
    // Removing it is not tried: Wine does not tell where a file with so long a path lies, and what cannot be checked
    // stays.
}

TEST_F(Files, CopiesReplaceAndReportWhatFails) {
    const std::wstring source = path(L"source");
    const std::wstring target = path(L"new\\target");
    const std::wstring folder = path(L"folder");
    writeFile(source, "new");
    base::createFolders(folder);
    using velquin::setup::copyFileReplace;
    EXPECT_TRUE(copyFileReplace(source, target));
    writeFile(target, "an older and longer one");
    EXPECT_TRUE(copyFileReplace(source, target));
    EXPECT_EQ(readFile(target), "new");
    EXPECT_TRUE(copyFileReplace(source, path(L"SOURCE")));
    EXPECT_FALSE(copyFileReplace(path(L"missing"), target));
    EXPECT_FALSE(copyFileReplace(source, folder));
    EXPECT_EQ(readFile(target), "new");
    EXPECT_EQ(readFile(source), "new");
    const std::wstring arrow = source + L" -> ";
    EXPECT_THAT(log(), ElementsAre(L"copied: " + arrow + target, L"copied: " + arrow + target,
                                   L"copy not needed, already in place: " + path(L"SOURCE"),
                                   L"missing source: " + path(L"missing"),
                                   testing::StartsWith(L"copy failed: " + arrow + folder + L" : ")));
}

}  // namespace
