#include "setup/startup_command.h"

#include <gtest/gtest.h>

#include "tests/portable/argv_reference.h"

namespace {

using namespace velquin::setup;
using testing_reference::splitArguments;

constexpr wchar_t kConfig[] = LR"(C:\Users\A B\velquin.json)";
constexpr wchar_t kProgram[] = LR"(C:\Program Files\Lumora Velquin\Velquin.exe)";

TEST(StartupCommand, ConfigurationAndProgramAreQuotedWhereNeeded) {
    EXPECT_EQ(startupArguments(kConfig), LR"(--mount --quiet --tray --config "C:\Users\A B\velquin.json")");
    EXPECT_EQ(startupArguments(LR"(C:\d\velquin.json)"), LR"(--mount --quiet --tray --config C:\d\velquin.json)");
    EXPECT_EQ(taskCommand(kProgram, kConfig),
              LR"("C:\Program Files\Lumora Velquin\Velquin.exe" --mount --quiet --tray )"
              LR"(--config "C:\Users\A B\velquin.json")");
}

TEST(StartupCommand, TaskArguments) {
    EXPECT_EQ(createTaskArguments(L"Lumora Velquin", LR"("C:\a b\v.exe" --tray)"),
              LR"(/Create /TN "Lumora Velquin" /TR "\"C:\a b\v.exe\" --tray" /SC ONLOGON /F)");
    EXPECT_EQ(deleteTaskArguments(L"Lumora Velquin"), LR"(/Delete /TN "Lumora Velquin" /F)");
    EXPECT_EQ(queryTaskArguments(L"Lumora - Quenbria VeraCrypt mount"),
              LR"(/Query /TN "Lumora - Quenbria VeraCrypt mount")");
}

// The command passes two parsers: that of schtasks.exe and, at logon, that of the product.
TEST(StartupCommand, TheTaskReadsBackWhatWasMeant) {
    const auto outer = splitArguments(createTaskArguments(L"Lumora Velquin", taskCommand(kProgram, kConfig)));
    ASSERT_EQ(outer.size(), 8u);
    EXPECT_EQ(outer[4], taskCommand(kProgram, kConfig));
    const std::vector<std::wstring> expected = {kProgram, L"--mount", L"--quiet", L"--tray", L"--config", kConfig};
    EXPECT_EQ(splitArguments(outer[4]), expected);
}

}  // namespace
