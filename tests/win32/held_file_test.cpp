#include "base/win32/held_file.h"

#include <numeric>

#include "base/win32/files.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using base::HeldFile;

class HeldFileTest : public UnitTest {
protected:
    HeldFile write(const std::wstring& file, std::string_view text) const {
        return HeldFile::write(folder_, file, std::as_bytes(std::span(text)));
    }
};

TEST_F(HeldFileTest, CanBeReadButNotChangedWhileItIsHeld) {
    const std::wstring file = path(L"new\\folders\\held.exe");
    const std::wstring other = path(L"other.exe");
    writeFile(other, "planted");
    HeldFile first = write(file, "payload");
    ASSERT_TRUE(first);
    EXPECT_EQ(first.path(), file);
    HeldFile held = std::move(first);
    for (const DWORD access : {DWORD{GENERIC_WRITE}, DWORD{FILE_APPEND_DATA}, DWORD{DELETE}}) {
        constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        EXPECT_FALSE(base::openFile(file, access, kShareAll, OPEN_EXISTING)) << access;
        EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
    }
    EXPECT_FALSE(DeleteFileW(file.c_str()));
    EXPECT_FALSE(MoveFileW(file.c_str(), path(L"elsewhere.exe").c_str()));
    EXPECT_FALSE(MoveFileExW(other.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING));
    EXPECT_FALSE(CopyFileW(other.c_str(), file.c_str(), FALSE));
    EXPECT_EQ(readFile(file), "payload");
    held.release();
    EXPECT_FALSE(held);
    EXPECT_TRUE(DeleteFileW(file.c_str())) << GetLastError();
}

TEST_F(HeldFileTest, HoldsExactlyTheGivenBytesAndNeverWritesThroughWhatStoodThere) {
    const std::wstring file = path(L"held");
    const std::wstring victim = path(L"victim");
    writeFile(victim, "precious, and longer than the payload");
    // A second name of the file; links to files stand on other machines only.
    ASSERT_TRUE(CreateHardLinkW(file.c_str(), victim.c_str(), nullptr));
    // Nothing at all, and beyond the size of one read, with every byte value.
    std::string large(200001, '\0');
    std::iota(large.begin(), large.end(), '\0');
    for (const std::string& bytes : {std::string("payload"), std::string(), large}) {
        const HeldFile held = write(file, bytes);
        ASSERT_TRUE(held);
        EXPECT_EQ(readFile(file), bytes);
    }
    EXPECT_EQ(readFile(victim), "precious, and longer than the payload");
}

TEST_F(HeldFileTest, LinkInThePathIsRefused) {
    base::createFolders(path(L"real\\inner"));
    ASSERT_TRUE(makeLink(L"link", L"real"));
    for (const wchar_t* name : {L"link\\held", L"link\\inner\\held", L"link\\new\\held"}) {
        const HeldFile held = write(path(name), "payload");
        EXPECT_FALSE(held);
        EXPECT_EQ(held.failure(), HeldFile::Failure::linkInPath);
        EXPECT_EQ(held.path(), path(name));
    }
    EXPECT_THAT(namesIn(path(L"real")), testing::ElementsAre(L"inner")) << "something was made behind the link";
    EXPECT_THAT(namesIn(path(L"real\\inner")), testing::IsEmpty());
    // What lies above the base is the caller's own choice; the path is then the real one.
    const HeldFile held = HeldFile::write(path(L"link"), path(L"link\\held"), {});
    EXPECT_TRUE(held);
    EXPECT_EQ(held.path(), path(L"real\\held"));
}

TEST_F(HeldFileTest, PlaceThatCannotBeWrittenToFails) {
    base::createFolders(path(L"folder"));
    writeFile(path(L"file"), "in the way");
    writeFile(path(L"used"), "by another");
    const base::UniqueFile used = base::openFile(path(L"used"), GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    for (const wchar_t* name : {L"folder", L"file\\held", L"used"}) {
        EXPECT_EQ(write(path(name), "payload").failure(), HeldFile::Failure::open);
        EXPECT_NE(GetLastError(), DWORD{ERROR_SUCCESS});
    }
    EXPECT_EQ(readFile(path(L"used")), "by another");
    EXPECT_EQ(base::readWholeFile(path(L"missing")), std::nullopt);
    const base::UniqueFile writer =
        base::openFile(path(L"file"), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    EXPECT_EQ(base::readWholeFile(path(L"file")), std::nullopt) << "somebody may write to it";
}

}  // namespace
