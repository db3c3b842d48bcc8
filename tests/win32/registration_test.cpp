// The install folder that the machine remembers, and the registration that makes it remember.
#include "setup/registration.h"

#include "core/product.h"
#include "core/product_paths.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin;
using namespace velquin::test;
using namespace std::string_view_literals;

class InstallFolderEntry : public UnitTest {
protected:
    OwnLocalMachine machine_;
};

TEST_F(InstallFolderEntry, IsReadNormalisedOrIgnored) {
    EXPECT_EQ(registeredInstallFolder(), std::nullopt);
    const std::wstring longest = L"C:\\" + std::wstring(4096 - 3, L'x');
    const struct {
        DWORD type;
        std::string bytes;
        std::optional<std::wstring> expected;
    } cases[] = {
        {REG_SZ, bytesOf(L"  D:/Apps\\old\\..\\new\\\\ \0"sv), LR"(D:\Apps\new)"},
        {REG_EXPAND_SZ, bytesOf(L"C:\\%ProgramFiles%\\App\0"sv), LR"(C:\%ProgramFiles%\App)"},
        {REG_SZ, bytesOf(longest), longest},
        {REG_SZ, bytesOf(longest + L"x"), std::nullopt},
        {REG_SZ, bytesOf(L"D:\\\0"sv), std::nullopt},
        {REG_SZ, bytesOf(L"\\\\server\\share\\\0"sv), std::nullopt},
        {REG_SZ, bytesOf(L"Apps\\Velquin\0"sv), std::nullopt},
        {REG_SZ, bytesOf(L" \t \0"sv), std::nullopt},
        {REG_SZ, "", std::nullopt},
        {REG_BINARY, bytesOf(L"D:\\Apps\0"sv), std::nullopt},
    };
    for (const auto& c : cases) {
        setRawValue(kUninstallKey, L"InstallLocation", c.type, c.bytes);
        EXPECT_EQ(registeredInstallFolder(), c.expected) << testing::PrintToString(c.bytes);
        EXPECT_EQ(resolveInstallDir(), c.expected.value_or(LR"(C:\Program Files\Lumora Velquin)"));
    }
}

TEST_F(InstallFolderEntry, SizeCountsWholeKibibytesOfWhatIsInstalled) {
    const std::wstring folder = path(L"app");
    writeFile(path(L"app\\Velquin.exe"), std::string(1025, 'a'));            // 2 KiB
    writeFile(path(L"app\\skins\\one.json"), std::string(1000, 'a'));        // 2000 bytes of skins: 2 KiB
    writeFile(path(L"app\\skins\\deep\\two.json"), std::string(1000, 'a'));  //
    writeFile(path(L"app\\assets\\image.png"), "a");                         // 1 KiB
    writeFile(path(L"app\\notes.txt"), std::string(5000, 'a'));              // not ours
    writeFile(path(L"elsewhere\\large"), std::string(50000, 'a'));           // behind a link
    ASSERT_TRUE(makeLink(L"app\\assets\\link", L"elsewhere"));
    ASSERT_TRUE(setup::writeUninstallEntry(folder));
    EXPECT_EQ(registeredInstallFolder(), folder);
    EXPECT_THAT(log(), testing::ElementsAre(L"uninstall entry written: " + folder + L" size=5 KiB"));
}

}  // namespace
