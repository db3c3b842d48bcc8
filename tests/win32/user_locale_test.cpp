#include <gtest/gtest.h>

#include "core/configuration.h"
#include "localization/catalog.h"
#include "localization/languages.h"

namespace {

// The machine of these tests has the locale that Wine makes of C. Others are met in tests/e2e.
TEST(UserLocale, AConfigurationThatFollowsWindowsGetsItsLanguage) {
    velquin::ProductConfig config;
    EXPECT_EQ(velquin::windowsLanguage(), L"en-US");
    EXPECT_EQ(velquin::effectiveLanguage(config), L"en-US");
    EXPECT_EQ(velquin::localizedText(config, velquin::text::kUninstall), L"Uninstall");
    config.language = L"DE_at";
    EXPECT_EQ(velquin::effectiveLanguage(config), L"de-DE");
    EXPECT_EQ(velquin::localizedText(config, velquin::text::kUninstall), L"Deinstallieren");
}

}  // namespace
