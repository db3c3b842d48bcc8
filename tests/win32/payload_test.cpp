#include "setup/payload.h"

#include "base/win32/files.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using testing::ElementsAre;
using velquin::setup::extractPayload;
using velquin::setup::refreshPayload;

constexpr int32_t kSample = 4001;
constexpr int32_t kEmpty = 4002;
constexpr int32_t kMissing = 4003;

class Payload : public UnitTest {};

TEST_F(Payload, IsWrittenWholeOrNotAtAll) {
    const std::wstring target = path(L"new folder\\ünter\\payload.bin");
    EXPECT_FALSE(extractPayload(kMissing, target));
    EXPECT_FALSE(extractPayload(kEmpty, target));
    EXPECT_FALSE(base::pathExists(path(L"new folder")));
    EXPECT_TRUE(extractPayload(kSample, target));
    writeFile(target, std::string(1000, 'x'));
    EXPECT_TRUE(extractPayload(kSample, target));
    EXPECT_EQ(readFile(target), std::string_view("sample payload\0with a zero byte\xFF", 32));
    const base::UniqueFile held = base::openFile(target, GENERIC_WRITE, 0, OPEN_EXISTING);
    EXPECT_FALSE(extractPayload(kSample, target));
    EXPECT_FALSE(extractPayload(kSample, folder_));
    // The program that carries this test holds no package.
    base::HeldFile package;
    EXPECT_FALSE(velquin::setup::extractMsiPayload(package));
    EXPECT_FALSE(package);
    EXPECT_THAT(log(),
                ElementsAre(L"embedded payload missing: 4003", L"embedded payload empty: 4002",
                            L"embedded payload extracted: " + target, L"embedded payload extracted: " + target,
                            L"embedded payload open failed: " + target, L"embedded payload open failed: " + folder_,
                            L"embedded payload missing: 3001", testing::StartsWith(L"MSI extract failed: ")));
}

TEST_F(Payload, IsRefreshedOnlyWhereItDiffersAndThroughNoLink) {
    const std::wstring target = path(L"cache\\skins\\a.json");
    const std::string_view sample("sample payload\0with a zero byte\xFF", 32);
    EXPECT_FALSE(refreshPayload(kMissing, folder_, target));
    EXPECT_TRUE(refreshPayload(kSample, folder_, target));
    {
        // Who only reads it is not in the way: it is not written again.
        const base::UniqueFile reader = base::openFile(target, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
        EXPECT_TRUE(refreshPayload(kSample, folder_, target));
    }
    // As long as the payload, and with a second name that somebody else cares for.
    writeFile(target, std::string(sample.size(), 'x'));
    ASSERT_TRUE(CreateHardLinkW(path(L"precious").c_str(), target.c_str(), nullptr));
    EXPECT_TRUE(refreshPayload(kSample, folder_, target));
    EXPECT_EQ(readFile(target), sample);
    EXPECT_EQ(readFile(path(L"precious")), std::string(sample.size(), 'x'));
    const std::wstring extracted = L"embedded payload extracted: " + target;
    EXPECT_THAT(log(), ElementsAre(L"embedded payload missing: 4003", extracted, extracted));

    base::createFolders(path(L"elsewhere"));
    if (!makeLink(L"linked", L"elsewhere")) {
        GTEST_SKIP() << "this machine makes no links";
    }
    EXPECT_FALSE(refreshPayload(kSample, folder_, path(L"linked\\skins\\a.json")));
    EXPECT_THAT(namesIn(path(L"elsewhere")), testing::IsEmpty());
    EXPECT_EQ(log().back(), L"embedded payload refused, a link lies in its path: " + path(L"linked"));
}

TEST_F(Payload, FullDiskFails) {
    const std::wstring alwaysFull = LR"(Z:\dev\full)";
    if (!base::openFile(alwaysFull, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING)) {
        GTEST_SKIP() << "this machine has no file that is always full";
    }
    EXPECT_FALSE(extractPayload(kSample, alwaysFull));
    EXPECT_THAT(log(), ElementsAre(L"embedded payload write failed: " + alwaysFull));
}

}  // namespace
