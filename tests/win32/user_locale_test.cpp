#include <gtest/gtest.h>

#include "core/configuration.h"
#include "localization/languages.h"

namespace {

// The machine of these tests has the locale that Wine makes of C. Others are met in tests/e2e.
TEST(UserLocale, AConfigurationThatFollowsWindowsGetsItsLanguage) {
    velquin::ProductConfig config;
    EXPECT_EQ(velquin::windowsLanguage(), L"en-US");
    EXPECT_EQ(velquin::effectiveLanguage(config), L"en-US");
    config.language = L"DE_at";
    EXPECT_EQ(velquin::effectiveLanguage(config), L"de-DE");
}

}  // namespace
