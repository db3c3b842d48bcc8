// The install folder that the machine remembers, and the registration that makes it remember.
#include "setup/registration.h"

#include "base/win32/registry.h"
#include "core/log.h"
#include "core/product.h"
#include "core/product_paths.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin;
using namespace velquin::test;
using namespace std::string_view_literals;
using testing::ElementsAre;

class InstallFolderEntry : public UnitTest {
protected:
    OwnLocalMachine machine_;
};

TEST_F(InstallFolderEntry, IsReadNormalisedOrIgnored) {
    EXPECT_EQ(registeredInstallFolder(), std::nullopt);
    EXPECT_EQ(resolveInstallDir(), LR"(C:\Program Files\Lumora Velquin)");
    const std::wstring longest(4096 - 3, L'x');
    const struct {
        const char* what;
        DWORD type;
        std::string bytes;
        std::optional<std::wstring> expected;
    } cases[] = {
        {"slashes", REG_SZ, bytesOf(L"D:/Apps/Velquin/\0"sv), LR"(D:\Apps\Velquin)"},
        {"blanks and dots", REG_SZ, bytesOf(L"  C:\\Tools\\old\\..\\new\\\\ \0"sv), LR"(C:\Tools\new)"},
        {"a root", REG_SZ, bytesOf(L"D:\\\0"sv), std::nullopt},
        {"a share's root", REG_SZ, bytesOf(L"\\\\server\\share\\\0"sv), std::nullopt},
        {"no full path", REG_SZ, bytesOf(L"Apps\\Velquin\0"sv), std::nullopt},
        {"unterminated", REG_SZ, bytesOf(L"C:\\Unterminated"), LR"(C:\Unterminated)"},
        {"expandable, as stored", REG_EXPAND_SZ, bytesOf(L"C:\\%ProgramFiles%\\App\0"sv), LR"(C:\%ProgramFiles%\App)"},
        {"as long as is read", REG_SZ, bytesOf(L"C:\\" + longest), L"C:\\" + longest},
        {"longer", REG_SZ, bytesOf(L"C:\\" + longest + L"x"), std::nullopt},
        {"a number", REG_DWORD, std::string(4, 'D'), std::nullopt},
        {"bytes", REG_BINARY, bytesOf(L"D:\\Apps\0"sv), std::nullopt},
        {"empty", REG_SZ, bytesOf(L"\0"sv), std::nullopt},
        {"nothing at all", REG_SZ, "", std::nullopt},
        {"blank", REG_SZ, bytesOf(L" \t \0"sv), std::nullopt},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        setRawValue(HKEY_LOCAL_MACHINE, kUninstallKey, L"InstallLocation", c.type, c.bytes);
        EXPECT_EQ(registeredInstallFolder(), c.expected);
        EXPECT_EQ(resolveInstallDir(), c.expected.value_or(defaultInstallFolder()));
    }
}

TEST_F(InstallFolderEntry, OverridesNestAndComeBeforeIt) {
    base::writeRegistryString(HKEY_LOCAL_MACHINE, kUninstallKey, L"InstallLocation", LR"(C:\Registered)");
    {
        const InstallDirOverride outer(LR"(C:\Outer)");
        {
            const InstallDirOverride inner(LR"(C:\Inner)");
            EXPECT_EQ(installedApp(), LR"(C:\Inner\Velquin.exe)");
            EXPECT_EQ(installedSetup(), LR"(C:\Inner\VelquinSetup.exe)");
            EXPECT_EQ(skinsFolder(), LR"(C:\Inner\skins)");
            EXPECT_EQ(assetsFolder(), LR"(C:\Inner\assets)");
        }
        EXPECT_EQ(resolveInstallDir(), LR"(C:\Outer)");
    }
    EXPECT_EQ(resolveInstallDir(), LR"(C:\Registered)");
}

TEST_F(InstallFolderEntry, SizeCountsWholeKibibytesOfWhatIsInstalled) {
    const std::wstring folder = path(L"app");
    writeFile(path(L"app\\Velquin.exe"), std::string(1025, 'a'));            // 2 KiB
    writeFile(path(L"app\\skins\\one.json"), std::string(1000, 'a'));        // 2000 bytes of skins: 2 KiB
    writeFile(path(L"app\\skins\\deep\\two.json"), std::string(1000, 'a'));  //
    writeFile(path(L"app\\assets\\image.png"), "a");                         // 1 KiB
    writeFile(path(L"app\\notes.txt"), std::string(5000, 'a'));              // not ours
    writeFile(path(L"elsewhere\\large"), std::string(50000, 'a'));           // behind a link
    ASSERT_TRUE(makeLink(path(L"app\\assets\\link"), path(L"elsewhere")));
    const std::wstring before = formatDate(localTime());
    ASSERT_TRUE(setup::writeUninstallEntry(folder));
    DWORD size = 0;
    DWORD bytes = sizeof(size);
    EXPECT_EQ(
        RegGetValueW(HKEY_LOCAL_MACHINE, kUninstallKey, L"EstimatedSize", RRF_RT_REG_DWORD, nullptr, &size, &bytes),
        ERROR_SUCCESS);
    EXPECT_EQ(size, 5u);
    EXPECT_EQ(registeredInstallFolder(), folder);
    EXPECT_THAT(base::readRegistryString(HKEY_LOCAL_MACHINE, kUninstallKey, L"InstallDate", 100),
                testing::Optional(testing::AnyOf(before, formatDate(localTime()))));
    EXPECT_THAT(log(), ElementsAre(L"uninstall entry written: " + folder + L" size=5 KiB"));
}

}  // namespace
