#include "base/win32/files.h"

#include "setup/file_steps.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using testing::ElementsAre;
using testing::IsEmpty;

class Files : public UnitTest {
protected:
    // Removes a tree and gives the links that were skipped.
    static std::vector<std::wstring> removeTree(const std::wstring& folder, bool expectedComplete,
                                                const std::wstring& base = {}) {
        std::vector<std::wstring> skipped;
        EXPECT_EQ(base::removeTree(
                      folder, [&skipped](const std::wstring& link) { skipped.push_back(link); }, base),
                  expectedComplete);
        return skipped;
    }
};

TEST_F(Files, AreToldApartAndMadeWithTheirFolders) {
    EXPECT_TRUE(base::createFolders(path(L"a\\b c\\ü")));
    EXPECT_TRUE(base::createFolders(path(L"a\\b c\\ü"))) << "one that is there is as good";
    writeFile(path(L"file"), "in the way");
    for (const std::wstring& folder : {std::wstring(), path(L"file"), path(L"file\\below\\it")}) {
        EXPECT_FALSE(base::createFolders(folder));
    }
    EXPECT_EQ(readFile(path(L"file")), "in the way");
    const std::tuple<std::wstring, bool, bool> cases[] = {
        {path(L"FILE"), true, false},     {path(L"a\\b c\\ü"), false, true},    {L"", false, false},
        {path(L"missing"), false, false}, {path(L"file\\below"), false, false},
    };
    for (const auto& [name, isFile, isFolder] : cases) {
        EXPECT_EQ(base::fileExists(name), isFile);
        EXPECT_EQ(base::folderExists(name), isFolder);
        EXPECT_EQ(base::pathExists(name), isFile || isFolder);
    }
}

TEST_F(Files, OneFileUnderTwoNamesIsTheSame) {
    writeFile(path(L"name"), "same text");
    writeFile(path(L"twin"), "same text");
    ASSERT_TRUE(CreateHardLinkW(path(L"second").c_str(), path(L"name").c_str(), nullptr));
    // One that somebody uses without sharing can still be recognised.
    const base::UniqueFile used = base::openFile(path(L"name"), GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING);
    EXPECT_TRUE(base::isSameFile(path(L"second"), path(L"NAME")));
    EXPECT_TRUE(base::isSameFile(folder_, path(L".")));
    EXPECT_FALSE(base::isSameFile(path(L"name"), path(L"twin")));
    EXPECT_FALSE(base::isSameFile(path(L"missing"), path(L"missing")));
}

TEST_F(Files, LinksAreFoundBelowTheBaseOnly) {
    writeFile(path(L"real\\inner\\file"), "kept");
    ASSERT_TRUE(makeLink(L"link", L"real"));
    EXPECT_EQ(base::firstLinkBelow(folder_, path(L"real\\inner\\file")), L"");
    EXPECT_EQ(base::firstLinkBelow(folder_, path(L"link\\inner\\missing")), path(L"link"));
    EXPECT_EQ(base::firstLinkBelow(path(L"link"), path(L"link\\inner")), L"");
    const auto isReal = [](const std::wstring& base, const std::wstring& file) {
        const base::UniqueFile opened = base::openFile(file, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
        return base::liesWhereItSays(opened.get(), base, file);
    };
    EXPECT_TRUE(isReal(folder_, path(L"real\\inner\\file")));
    EXPECT_FALSE(isReal(folder_, path(L"link\\inner\\file")));
    EXPECT_TRUE(isReal(path(L"link"), path(L"link\\inner\\file")));
    EXPECT_THAT(removeTree(path(L"link\\inner"), false, folder_), ElementsAre(path(L"link\\inner")));
    EXPECT_EQ(readFile(path(L"real\\inner\\file")), "kept");
}

TEST_F(Files, TreesAreRemovedButForWhatIsInUse) {
    for (const wchar_t* name : {L"tree\\a\\deep\\file", L"tree\\a\\used", L"tree\\a\\z", L"tree\\b\\read-only"}) {
        writeFile(path(name), "x");
    }
    for (const wchar_t* name : {L"tree\\b\\read-only", L"tree\\b"}) {
        ASSERT_TRUE(SetFileAttributesW(path(name).c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN));
    }
    {
        const base::UniqueFile held =
            base::openFile(path(L"tree\\a\\used"), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
        EXPECT_THAT(removeTree(path(L"tree"), false), IsEmpty());
        EXPECT_THAT(namesIn(path(L"tree")), ElementsAre(L"a"));
        EXPECT_THAT(namesIn(path(L"tree\\a")), ElementsAre(L"used"));
    }
    EXPECT_THAT(removeTree(path(L"tree"), true), IsEmpty());
    EXPECT_FALSE(base::pathExists(path(L"tree")));
    EXPECT_THAT(removeTree(path(L"tree"), true), IsEmpty()) << "a missing one is removed already";
    writeFile(path(L"file"), "no folder");
    EXPECT_THAT(removeTree(path(L"file"), false), IsEmpty());
    EXPECT_EQ(readFile(path(L"file")), "no folder");
}

TEST_F(Files, LinksInATreeAreLeftWithWhatTheyLeadTo) {
    writeFile(path(L"outside\\precious"), "kept");
    writeFile(path(L"tree\\inner\\file"), "x");
    ASSERT_TRUE(makeLink(L"tree\\inner\\link", L"outside") && makeLink(L"root", L"outside"));
    EXPECT_THAT(removeTree(path(L"root"), false), ElementsAre(path(L"root")));
    EXPECT_THAT(removeTree(path(L"tree"), false), ElementsAre(path(L"tree\\inner\\link")));
    EXPECT_TRUE(base::isLink(path(L"root")));
    EXPECT_THAT(namesIn(path(L"tree\\inner")), ElementsAre(L"link"));
    EXPECT_EQ(readFile(path(L"outside\\precious")), "kept");
}

TEST_F(Files, CopiesReplaceAndReportWhatFails) {
    using velquin::setup::copyFileReplace;
    const std::wstring source = path(L"source");
    // Longer than 260 characters.
    const std::wstring target = path(std::wstring(200, L'd') + L"\\" + std::wstring(200, L'e') + L"\\target");
    writeFile(source, "new");
    writeFile(target, "an older and longer one");
    EXPECT_TRUE(copyFileReplace(source, target));
    EXPECT_TRUE(copyFileReplace(source, path(L"SOURCE")));
    EXPECT_FALSE(copyFileReplace(path(L"missing"), target));
    EXPECT_FALSE(copyFileReplace(source, folder_));
    EXPECT_EQ(readFile(target), "new");
    EXPECT_EQ(readFile(source), "new");
    EXPECT_THAT(log(), ElementsAre(L"copied: " + source + L" -> " + target,
                                   L"copy not needed, already in place: " + path(L"SOURCE"),
                                   L"missing source: " + path(L"missing"),
                                   testing::StartsWith(L"copy failed: " + source + L" -> " + folder_ + L" : ")));
}

}  // namespace
