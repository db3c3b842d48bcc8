#include "core/delayed_delete.h"

#include "base/win32/files.h"
#include "core/pending_renames.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin;
using namespace velquin::test;
using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr wchar_t kKey[] = LR"(SYSTEM\CurrentControlSet\Control\Session Manager)";
constexpr wchar_t kValue[] = L"PendingFileRenameOperations";

// The stored list; nothing when the machine has none.
std::optional<std::wstring> storedList(DWORD* type = nullptr) {
    std::wstring text(1 << 20, L'\0');
    auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(HKEY_LOCAL_MACHINE, kKey, kValue, RRF_RT_ANY, type, text.data(), &bytes) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return text.substr(0, bytes / sizeof(wchar_t));
}

// The list that Windows itself writes to. All processes share it, so its users take turns.
class DelayedDelete : public UnitTest {
protected:
    DelayedDelete() { WaitForSingleObject(turn_.get(), INFINITE); }
    ~DelayedDelete() override {
        cancelDeleteOnReboot(scheduled_);
        ReleaseMutex(turn_.get());
    }

    // Schedules a path, which is taken back at the end of the test.
    bool schedule(const std::wstring& file) {
        scheduled_.push_back(file);
        return scheduleDeleteOnReboot(file);
    }
    static bool isScheduled(const std::wstring& file) {
        const std::vector<std::wstring> strings = parsePendingRenames(storedList().value_or(L""));
        for (size_t i = 0; i + 1 < strings.size(); i += 2) {
            if (strings[i] == LR"(\??\)" + file && strings[i + 1].empty()) {
                return true;
            }
        }
        return false;
    }

    std::vector<std::wstring> scheduled_;

private:
    base::UniqueHandle turn_{CreateMutexW(nullptr, FALSE, L"VelquinTestsPendingRenames")};
};

TEST_F(DelayedDelete, IsScheduledAndTakenBack) {
    const std::wstring mine = path(L"mine ü.exe");
    const std::wstring other = path(L"other.exe");
    std::wstring deep = path(L"deep");
    while (deep.size() < 300) {
        deep += L"\\" + std::wstring(100, L'd');
    }
    for (const std::wstring& file : {mine, other, deep}) {
        writeFile(file, "x");
        EXPECT_TRUE(schedule(file));
        EXPECT_TRUE(isScheduled(file));
        EXPECT_TRUE(base::fileExists(file)) << "it must not go before the restart";
    }
    cancelDeleteOnReboot({mine, deep, path(L"never scheduled")});
    EXPECT_FALSE(isScheduled(mine));
    EXPECT_FALSE(isScheduled(deep));
    EXPECT_TRUE(isScheduled(other));
    EXPECT_THAT(log(), ElementsAre(L"scheduled delete on reboot: " + mine, L"scheduled delete on reboot: " + other,
                                   L"scheduled delete on reboot: " + deep, L"cancelled delete on reboot: " + mine,
                                   L"cancelled delete on reboot: " + deep));
}

TEST_F(DelayedDelete, PathsThatWindowsRefusesFail) {
    EXPECT_FALSE(schedule(L""));
    EXPECT_THAT(log(), IsEmpty());
    const std::wstring endless(40000, L'x');
    EXPECT_FALSE(scheduleDeleteOnReboot(endless));
    EXPECT_THAT(log(), ElementsAre(testing::AllOf(
                           testing::StartsWith(L"schedule delete on reboot failed: " + endless + L" error="),
                           testing::Not(testing::EndsWith(L"=0")))));
}

TEST_F(DelayedDelete, FilesGoNowWhereTheyCan) {
    const std::wstring file = path(L"free");
    const std::wstring used = path(L"used");
    writeFile(file, "x");
    writeFile(used, "x");
    scheduled_ = {file, used};
    EXPECT_TRUE(deleteFileOrScheduleOnReboot(file));
    EXPECT_FALSE(base::fileExists(file));
    EXPECT_TRUE(deleteFileOrScheduleOnReboot(file)) << "a missing one counts as deleted";
    EXPECT_FALSE(isScheduled(file));
    const base::UniqueFile held = base::openFile(used, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    EXPECT_TRUE(deleteFileOrScheduleOnReboot(used));
    EXPECT_TRUE(base::fileExists(used));
    EXPECT_TRUE(isScheduled(used));
    EXPECT_THAT(log(), ElementsAre(L"scheduled delete on reboot: " + used));
}

// Taking back on a list of the test's own making.
class PendingList : public UnitTest {
protected:
    static void store(DWORD type, std::wstring_view list) {
        setRawValue(HKEY_LOCAL_MACHINE, kKey, kValue, type, bytesOf(list));
    }

    OwnLocalMachine machine_;
};

TEST_F(PendingList, EntriesOfOthersStayToTheByte) {
    const auto others = L"\\??\\C:\\other\0\0\\??\\C:\\mine\0!\\??\\C:\\renamed\0\\??\\C:\\mine.old\0\0"sv;
    store(REG_MULTI_SZ,
          std::wstring(L"\\??\\C:\\MINE\0\0"sv) + std::wstring(others) + std::wstring(L"\\??\\C:\\mine\0\0\0"sv));
    cancelDeleteOnReboot({LR"(C:\mine)", LR"(C:\missing)"});
    DWORD type = 0;
    EXPECT_EQ(storedList(&type), std::wstring(others) + L'\0');
    EXPECT_EQ(type, DWORD{REG_MULTI_SZ});
    EXPECT_THAT(log(),
                ElementsAre(LR"(cancelled delete on reboot: C:\MINE)", LR"(cancelled delete on reboot: C:\mine)"));
}

TEST_F(PendingList, GoesWithItsLastEntryAndIsOtherwiseLeftAlone) {
    cancelDeleteOnReboot({LR"(C:\mine)"});
    EXPECT_EQ(storedList(), std::nullopt);
    // A list without its own terminator is not repaired in passing, and what is no list is none of our business.
    for (const auto& [type, list] :
         {std::pair(DWORD{REG_MULTI_SZ}, L"\\??\\C:\\other\0\0"sv), std::pair(DWORD{REG_SZ}, L"\\??\\C:\\mine\0\0\0"sv),
          std::pair(DWORD{REG_BINARY}, L"\\??\\C:\\mine\0\0\0"sv)}) {
        store(type, list);
        cancelDeleteOnReboot({LR"(C:\mine)"});
        DWORD storedType = 0;
        EXPECT_EQ(storedList(&storedType), list);
        EXPECT_EQ(storedType, type);
    }
    const std::wstring refused =
        L"pending deletes cannot be read: error=" + std::to_wstring(DWORD{ERROR_INVALID_DATATYPE});
    EXPECT_THAT(log(), ElementsAre(refused, refused));
    store(REG_MULTI_SZ, L"\\??\\C:\\mine\0\0\0"sv);
    cancelDeleteOnReboot({LR"(C:\mine)"});
    EXPECT_EQ(storedList(), std::nullopt) << "an empty list is no list";
}

}  // namespace
