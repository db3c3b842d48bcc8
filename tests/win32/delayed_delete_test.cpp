#include "core/delayed_delete.h"

#include "tests/win32/support.h"

namespace {

using namespace velquin;
using namespace velquin::test;
using namespace std::string_view_literals;
using testing::ElementsAre;

constexpr wchar_t kKey[] = LR"(SYSTEM\CurrentControlSet\Control\Session Manager)";
constexpr wchar_t kValue[] = L"PendingFileRenameOperations";

// The stored list; nothing when the machine has none.
std::optional<std::wstring> storedList() {
    std::wstring text(1 << 20, L'\0');
    auto bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(HKEY_LOCAL_MACHINE, kKey, kValue, RRF_RT_ANY, nullptr, text.data(), &bytes) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return text.substr(0, bytes / sizeof(wchar_t));
}

class DelayedDelete : public UnitTest {};

TEST_F(DelayedDelete, TakingBackLeavesAllElseToTheByte) {
    const OwnLocalMachine machine;
    const std::wstring others(L"\\??\\C:\\other\0\0\\??\\C:\\mine\0!\\??\\C:\\renamed\0\\??\\C:\\mine.old\0\0"sv);
    const std::wstring mine(L"\\??\\C:\\MINE\0\0"sv);
    const struct {
        DWORD type;
        std::wstring before;
        std::optional<std::wstring> after;
    } cases[] = {
        {REG_MULTI_SZ, mine + others + mine + L'\0', others + L'\0'},
        {REG_MULTI_SZ, mine + L'\0', std::nullopt},  // an empty list is no list
        {REG_MULTI_SZ, others, others},              // its own terminator is missing, which is not our business
        {REG_SZ, mine + L'\0', mine + L'\0'},
    };
    cancelDeleteOnReboot({LR"(C:\mine)"});
    EXPECT_EQ(storedList(), std::nullopt);
    for (const auto& c : cases) {
        setRawValue(kKey, kValue, c.type, bytesOf(c.before));
        cancelDeleteOnReboot({LR"(C:\mine)", LR"(C:\missing)"});
        EXPECT_EQ(storedList(), c.after);
    }
    const std::wstring cancelled = LR"(cancelled delete on reboot: C:\MINE)";
    EXPECT_THAT(log(), ElementsAre(cancelled, cancelled, cancelled,
                                   testing::StartsWith(L"pending deletes cannot be read: error=")));
}

}  // namespace
