#include "base/win32/registry.h"

#include "base/text.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin::test;
using namespace std::string_view_literals;
using base::readRegistryString;

class Registry : public testing::Test {
protected:
    ~Registry() override { RegDeleteTreeW(HKEY_LOCAL_MACHINE, key_.c_str()); }

    std::optional<std::wstring> read(const wchar_t* name, uint32_t limitBytes = 8192) const {
        return readRegistryString(HKEY_LOCAL_MACHINE, key_, name, limitBytes);
    }
    void setRaw(const wchar_t* name, DWORD type, std::string_view bytes) const {
        setRawValue(HKEY_LOCAL_MACHINE, key_, name, type, bytes);
    }

    const std::wstring key_ = L"Software\\VelquinTests\\" + uniqueName();
};

TEST_F(Registry, WrittenValuesComeBack) {
    const std::wstring below = key_ + L"\\new\\below";
    EXPECT_FALSE(base::registryKeyExists(HKEY_LOCAL_MACHINE, below));
    for (const std::wstring& text : {std::wstring(), std::wstring(LR"("C:\Program Files\ü 漢.exe",0)"),
                                     std::wstring(4095, L'x'), std::wstring(L"shorter")}) {
        for (const wchar_t* name : {L"", L"Name"}) {
            EXPECT_EQ(base::writeRegistryString(HKEY_LOCAL_MACHINE, below, name, text), 0u);
            EXPECT_EQ(readRegistryString(HKEY_LOCAL_MACHINE, below, name, 8192), text);
        }
    }
    EXPECT_TRUE(base::registryKeyExists(HKEY_LOCAL_MACHINE, below));

    EXPECT_EQ(base::writeRegistryNumber(HKEY_LOCAL_MACHINE, key_, L"Number", 0xFFFFFFFF), 0u);
    DWORD number = 0;
    DWORD size = sizeof(number);
    EXPECT_EQ(RegGetValueW(HKEY_LOCAL_MACHINE, key_.c_str(), L"Number", RRF_RT_REG_DWORD, nullptr, &number, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(number, 0xFFFFFFFF);

    // Other programs expect the terminator to be stored with the text.
    EXPECT_EQ(base::writeRegistryString(HKEY_LOCAL_MACHINE, key_, L"Text", L"ab"), 0u);
    DWORD type = 0;
    EXPECT_EQ(RegGetValueW(HKEY_LOCAL_MACHINE, key_.c_str(), L"Text", RRF_RT_ANY, &type, nullptr, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_SZ});
    EXPECT_EQ(size, 3 * sizeof(wchar_t));
}

TEST_F(Registry, OnlyTextsAreReadAndTheyEndAtTheirFirstTerminator) {
    const struct {
        const char* what;
        DWORD type;
        std::string bytes;
        std::optional<std::wstring> expected;
    } cases[] = {
        {"without terminator", REG_SZ, bytesOf(L"abc"), L"abc"},
        {"with one", REG_SZ, bytesOf(L"abc\0"sv), L"abc"},
        {"with two", REG_SZ, bytesOf(L"abc\0\0"sv), L"abc"},
        {"with text behind it", REG_SZ, bytesOf(L"abc\0def\0"sv), L"abc"},
        {"half a character behind it", REG_SZ, bytesOf(L"abc") + 'x', L"abc"},
        {"nothing but a terminator", REG_SZ, bytesOf(L"\0"sv), L""},
        {"nothing at all", REG_SZ, "", L""},
        {"expandable, as stored", REG_EXPAND_SZ, bytesOf(L"%TEMP%\\x\0"sv), L"%TEMP%\\x"},
        {"a list", REG_MULTI_SZ, bytesOf(L"abc\0\0"sv), std::nullopt},
        {"a number", REG_DWORD, std::string(4, 'a'), std::nullopt},
        {"a long number", REG_QWORD, std::string(8, 'a'), std::nullopt},
        {"bytes", REG_BINARY, bytesOf(L"abc\0"sv), std::nullopt},
        {"no type", REG_NONE, bytesOf(L"abc\0"sv), std::nullopt},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        setRaw(L"Value", c.type, c.bytes);
        EXPECT_EQ(read(L"Value"), c.expected);
    }
    EXPECT_EQ(read(L"Missing"), std::nullopt);
    EXPECT_EQ(readRegistryString(HKEY_LOCAL_MACHINE, key_ + L"\\missing", L"Value", 8192), std::nullopt);
}

TEST_F(Registry, NoMoreThanTheLimitIsRead) {
    setRaw(L"Value", REG_SZ, bytesOf(std::wstring(9, L'x') + L'\0'));
    EXPECT_EQ(read(L"Value", 20), std::wstring(9, L'x'));
    EXPECT_EQ(read(L"Value", 18), std::nullopt);
    EXPECT_EQ(read(L"Value", 2), std::nullopt);
    setRaw(L"Value", REG_SZ, bytesOf(std::wstring(10, L'x')));
    EXPECT_EQ(read(L"Value", 20), std::wstring(10, L'x')) << "one that fills the limit without a terminator";
}

TEST_F(Registry, TreesAreDeletedAndMissingOnesCountAsDeleted) {
    base::writeRegistryString(HKEY_LOCAL_MACHINE, key_ + L"\\a\\b", L"", L"x");
    base::writeRegistryString(HKEY_LOCAL_MACHINE, key_ + L"\\beside", L"", L"x");
    EXPECT_EQ(base::deleteRegistryTree(HKEY_LOCAL_MACHINE, key_ + L"\\a"), 0u);
    EXPECT_FALSE(base::registryKeyExists(HKEY_LOCAL_MACHINE, key_ + L"\\a"));
    EXPECT_TRUE(base::registryKeyExists(HKEY_LOCAL_MACHINE, key_ + L"\\beside"));
    EXPECT_EQ(base::deleteRegistryTree(HKEY_LOCAL_MACHINE, key_ + L"\\a"), 0u);
    EXPECT_EQ(base::deleteRegistryTree(HKEY_LOCAL_MACHINE, key_ + L"\\no\\such"), 0u);
}

TEST_F(Registry, FailuresGiveTheWindowsErrorCode) {
    EXPECT_EQ(base::writeRegistryString(nullptr, key_, L"", L"x"), uint32_t{ERROR_INVALID_HANDLE});
    EXPECT_EQ(base::writeRegistryNumber(nullptr, key_, L"", 1), uint32_t{ERROR_INVALID_HANDLE});
    EXPECT_EQ(base::deleteRegistryTree(nullptr, key_), uint32_t{ERROR_INVALID_HANDLE});
    EXPECT_EQ(readRegistryString(nullptr, key_, L"", 100), std::nullopt);
}

}  // namespace
