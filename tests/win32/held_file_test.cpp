#include "base/win32/held_file.h"

#include <numeric>

#include "base/win32/files.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using base::HeldFile;

std::span<const std::byte> asBytes(std::string_view text) {
    return std::as_bytes(std::span(text));
}

class HeldFileTest : public UnitTest {
protected:
    HeldFile write(const std::wstring& file, std::string_view text) const {
        return HeldFile::write(folder_.path(), file, asBytes(text));
    }
};

TEST_F(HeldFileTest, CanBeReadButNotChangedWhileItIsHeld) {
    const std::wstring file = path(L"new\\folders\\held.exe");
    const std::wstring other = path(L"other.exe");
    writeFile(other, "planted");
    HeldFile held = write(file, "payload");
    ASSERT_TRUE(held);
    EXPECT_EQ(held.failure(), HeldFile::Failure::none);
    EXPECT_EQ(held.path(), file);

    const HeldFile moved = std::move(held);
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    for (const DWORD access : {DWORD{GENERIC_WRITE}, DWORD{FILE_APPEND_DATA}, DWORD{DELETE}}) {
        EXPECT_FALSE(base::openFile(file, access, kShareAll, OPEN_EXISTING)) << access;
        EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
    }
    EXPECT_FALSE(base::openFile(file, GENERIC_WRITE, kShareAll, CREATE_ALWAYS));
    EXPECT_FALSE(DeleteFileW(file.c_str()));
    EXPECT_FALSE(MoveFileW(file.c_str(), path(L"elsewhere.exe").c_str()));
    EXPECT_FALSE(MoveFileExW(other.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING));
    EXPECT_FALSE(CopyFileW(other.c_str(), file.c_str(), FALSE));
    EXPECT_FALSE(ReplaceFileW(file.c_str(), other.c_str(), nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(readFile(file), "payload");
    EXPECT_EQ(readFile(other), "planted");
}

TEST_F(HeldFileTest, IsFreeAfterItsEndAndAfterRelease) {
    const std::wstring file = path(L"held.exe");
    EXPECT_TRUE(write(file, "first"));
    EXPECT_TRUE(DeleteFileW(file.c_str())) << GetLastError();
    HeldFile held = write(file, "second");
    held.release();
    EXPECT_FALSE(held);
    EXPECT_TRUE(DeleteFileW(file.c_str())) << GetLastError();
}

TEST_F(HeldFileTest, HoldsExactlyTheGivenBytes) {
    // Beyond the size of one read, with every byte value, and nothing at all.
    std::string large(200001, '\0');
    std::iota(large.begin(), large.end(), '\0');
    for (const std::string& bytes : {std::string(), std::string("x"), std::string(65536, 'b'), large}) {
        const HeldFile held = write(path(L"held"), bytes);
        ASSERT_TRUE(held);
        EXPECT_EQ(readFile(held.path()), bytes);
    }
}

TEST_F(HeldFileTest, WhatStoodInItsPlaceIsReplacedAndNeverWrittenThrough) {
    const std::wstring victim = path(L"victim");
    const std::wstring file = path(L"held");
    writeFile(victim, "precious, and longer than the payload");
    // A second name of the file; links to files stand on other machines only.
    ASSERT_TRUE(CreateHardLinkW(file.c_str(), victim.c_str(), nullptr));
    const HeldFile held = write(file, "payload");
    ASSERT_TRUE(held);
    EXPECT_EQ(readFile(file), "payload");
    EXPECT_EQ(readFile(victim), "precious, and longer than the payload");
}

TEST_F(HeldFileTest, LinkInThePathIsRefused) {
    base::createFolders(path(L"real\\inner"));
    ASSERT_TRUE(makeLink(path(L"link"), path(L"real")));
    for (const wchar_t* name : {L"link\\held", L"link\\inner\\held", L"link\\new\\held"}) {
        const HeldFile held = write(path(name), "payload");
        EXPECT_FALSE(held);
        EXPECT_EQ(held.failure(), HeldFile::Failure::linkInPath);
        EXPECT_EQ(held.path(), path(name));
    }
    EXPECT_THAT(namesIn(path(L"real")), testing::ElementsAre(L"inner")) << "something was made behind the link";
    EXPECT_THAT(namesIn(path(L"real\\inner")), testing::IsEmpty());
    // What lies above the base is the caller's own choice.
    EXPECT_TRUE(HeldFile::write(path(L"link"), path(L"link\\held"), asBytes("payload")));
}

TEST_F(HeldFileTest, PlaceThatCannotBeWrittenToFails) {
    base::createFolders(path(L"folder"));
    writeFile(path(L"file"), "in the way");
    writeFile(path(L"used"), "by another");
    const base::UniqueFile used = base::openFile(path(L"used"), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    for (const wchar_t* name : {L"folder", L"file\\held", L"used"}) {
        const HeldFile held = write(path(name), "payload");
        EXPECT_FALSE(held);
        EXPECT_EQ(held.failure(), HeldFile::Failure::open);
        EXPECT_NE(GetLastError(), DWORD{ERROR_SUCCESS});
        EXPECT_EQ(held.path(), path(name));
    }
    EXPECT_EQ(readFile(path(L"used")), "by another");
}

TEST_F(HeldFileTest, WholeFilesAreReadOnlyWhereNobodyWrites) {
    writeFile(path(L"empty"), "");
    EXPECT_EQ(base::readWholeFile(path(L"empty")), std::vector<std::byte>());
    EXPECT_EQ(base::readWholeFile(path(L"missing")), std::nullopt);
    EXPECT_EQ(base::readWholeFile(folder_.path()), std::nullopt);
    const base::UniqueFile writer =
        base::openFile(path(L"empty"), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    EXPECT_EQ(base::readWholeFile(path(L"empty")), std::nullopt);
}

}  // namespace
