#include "base/win32/system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/win32/unique_handle.h"

namespace {

TEST(System, TextsOfAnyLengthOrTheirFallback) {
    const wchar_t* name = L"VELQUIN_TEST_VARIABLE";
    // Around the size of the first buffer, and the longest that Windows takes.
    for (const size_t length : {1u, 255u, 256u, 257u, 32766u}) {
        const std::wstring value(length, L'é');
        SetEnvironmentVariableW(name, value.c_str());
        EXPECT_EQ(base::environmentVariable(name, L"default"), value);
    }
    for (const wchar_t* nothing : {L"", static_cast<const wchar_t*>(nullptr)}) {
        SetEnvironmentVariableW(name, nothing);
        EXPECT_EQ(base::environmentVariable(name, L"default"), L"default");
    }
    const std::wstring deep = LR"(C:\)" + std::wstring(250, L'a') + L"\\" + std::wstring(250, L'b');
    EXPECT_EQ(base::fullPathName(deep + LR"(\..\b/c)"), LR"(C:\)" + std::wstring(250, L'a') + LR"(\b\c)");
    EXPECT_EQ(base::fullPathName(L""), L"");
    for (const DWORD code : {ERROR_SUCCESS, ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION}) {
        const std::wstring text = base::errorText(code);
        EXPECT_EQ(text.find_first_of(L"\r\n."), std::wstring::npos) << "one line without a full stop";
        EXPECT_FALSE(text.starts_with(L"error ")) << "Windows has a text for " << code;
    }
    EXPECT_EQ(base::errorText(0xDEADBEEF), L"error 3735928559");
}

struct CountingTraits {
    using Handle = int;
    static Handle none() { return 0; }
    static void close(Handle handle) { closed.push_back(handle); }
    static inline std::vector<int> closed;
};

TEST(UniqueHandle, ClosesEachHandleOnce) {
    {
        base::Unique<CountingTraits> one(1);
        base::Unique<CountingTraits> moved = std::move(one);
        base::Unique<CountingTraits>& itself = moved;
        moved = std::move(itself);
        EXPECT_EQ(moved.get(), 1) << "lost by moving to itself";
        moved = base::Unique<CountingTraits>(2);
        *moved.put() = 3;
        EXPECT_EQ(CountingTraits::closed, (std::vector{1, 2}));
    }
    EXPECT_EQ(CountingTraits::closed, (std::vector{1, 2, 3}));
}

}  // namespace
