#include "base/win32/registry.h"

#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using namespace std::string_view_literals;
using base::readRegistryString;

class Registry : public testing::Test {
protected:
    static std::optional<std::wstring> read(uint32_t limitBytes) {
        return readRegistryString(HKEY_LOCAL_MACHINE, L"Key", L"Value", limitBytes);
    }

    OwnLocalMachine machine_;
};

TEST_F(Registry, OnlyTextsWithinTheLimitAreReadAndTheyEndAtTheirFirstTerminator) {
    EXPECT_EQ(read(20), std::nullopt);
    const struct {
        DWORD type;
        std::string bytes;
        std::optional<std::wstring> expected;
    } cases[] = {
        {REG_SZ, bytesOf(L"abc"), L"abc"},
        {REG_SZ, bytesOf(L"abc\0def\0"sv), L"abc"},
        {REG_SZ, bytesOf(L"abc") + 'x', L"abc"},
        {REG_SZ, bytesOf(L"\0"sv), L""},
        {REG_SZ, "", L""},
        {REG_EXPAND_SZ, bytesOf(L"%TEMP%\0"sv), L"%TEMP%"},
        {REG_SZ, bytesOf(L"012345678\0"sv), L"012345678"},
        {REG_SZ, bytesOf(L"0123456789"), L"0123456789"},
        {REG_SZ, bytesOf(L"0123456789\0"sv), std::nullopt},
        {REG_MULTI_SZ, bytesOf(L"abc\0\0"sv), std::nullopt},
        {REG_DWORD, std::string(4, 'a'), std::nullopt},
        {REG_BINARY, bytesOf(L"abc\0"sv), std::nullopt},
        {REG_NONE, bytesOf(L"abc\0"sv), std::nullopt},
    };
    for (const auto& c : cases) {
        setRawValue(L"Key", L"Value", c.type, c.bytes);
        EXPECT_EQ(read(20), c.expected) << c.type << " " << testing::PrintToString(c.bytes);
    }
    // What is written fits what is read, to the last character, and nothing more is stored than its terminator.
    EXPECT_EQ(base::writeRegistryString(HKEY_LOCAL_MACHINE, L"Key", L"Value", L"\u6F22 345678"), 0u);
    EXPECT_EQ(read(18), L"\u6F22 345678");
    EXPECT_EQ(read(16), std::nullopt);
    EXPECT_EQ(base::writeRegistryString(nullptr, L"Key", L"", L"x"), uint32_t{ERROR_INVALID_HANDLE});
    EXPECT_EQ(base::deleteRegistryTree(nullptr, L"Key"), uint32_t{ERROR_INVALID_HANDLE});
    EXPECT_EQ(base::deleteRegistryTree(HKEY_LOCAL_MACHINE, L"Missing"), 0u) << "it counts as deleted";
}

}  // namespace
