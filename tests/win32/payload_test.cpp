#include "setup/payload.h"

#include "base/win32/files.h"
#include "core/product.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using testing::ElementsAre;
using velquin::setup::extractPayload;

constexpr int32_t kSample = 4001;
constexpr int32_t kEmpty = 4002;
constexpr int32_t kMissing = 4003;
// What payload_sample.bin holds.
constexpr std::string_view kSampleBytes("sample payload\0with a zero byte\xFF", 32);

class Payload : public UnitTest {};

TEST_F(Payload, MissingAndEmptyOnesMakeNoFile) {
    EXPECT_FALSE(extractPayload(kMissing, path(L"new\\missing")));
    EXPECT_FALSE(extractPayload(kEmpty, path(L"new\\empty")));
    EXPECT_FALSE(base::pathExists(path(L"new")));
    EXPECT_THAT(log(), ElementsAre(L"embedded payload missing: 4003", L"embedded payload empty: 4002"));
}

TEST_F(Payload, IsWrittenToNewFoldersAndOverOtherFiles) {
    const std::wstring target = path(L"new folder\\ünter\\payload.bin");
    ASSERT_TRUE(extractPayload(kSample, target));
    EXPECT_EQ(readFile(target), kSampleBytes);
    writeFile(target, std::string(1000, 'x'));
    ASSERT_TRUE(extractPayload(kSample, target));
    EXPECT_EQ(readFile(target), kSampleBytes);
    EXPECT_THAT(log(), ElementsAre(L"embedded payload extracted: " + target, L"embedded payload extracted: " + target));
}

TEST_F(Payload, TargetsThatCannotBeOpenedFail) {
    const std::wstring folder = path(L"folder");
    base::createFolders(folder);
    writeFile(path(L"file"), "in the way");
    const std::wstring belowFile = path(L"file\\payload");
    const std::wstring locked = path(L"locked");
    const base::UniqueFile held = base::openFile(locked, GENERIC_WRITE, 0, CREATE_NEW);
    for (const std::wstring& target : {folder, belowFile, locked}) {
        EXPECT_FALSE(extractPayload(kSample, target));
    }
    EXPECT_THAT(log(),
                ElementsAre(L"embedded payload open failed: " + folder, L"embedded payload open failed: " + belowFile,
                            L"embedded payload open failed: " + locked));
}

TEST_F(Payload, FullDiskFails) {
    const std::wstring alwaysFull = LR"(Z:\dev\full)";
    if (!base::openFile(alwaysFull, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING)) {
        GTEST_SKIP() << "this machine has no file that is always full";
    }
    EXPECT_FALSE(extractPayload(kSample, alwaysFull));
    EXPECT_THAT(log(), ElementsAre(L"embedded payload write failed: " + alwaysFull));
}

TEST_F(Payload, PackageThatTheProgramDoesNotCarryIsNotHeld) {
    base::HeldFile package;
    EXPECT_FALSE(velquin::setup::extractMsiPayload(package));
    EXPECT_FALSE(package);
    EXPECT_THAT(log(),
                ElementsAre(L"embedded payload missing: 3001",
                            L"MSI extract failed: " + path(LR"(local\LumoraPrivateMemory\Velquin\setup-msi-cache\)") +
                                velquin::kVersion + L"-Velquin.msi"));
}

}  // namespace
