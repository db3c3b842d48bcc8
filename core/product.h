// The product's names as wide constants. Their source is cmake/product.cmake; file and key names that only the code
// knows stand here.
#pragma once

#include "core/product_config.h"

namespace velquin {

inline constexpr wchar_t kVersion[] = L"" PRODUCT_VERSION;
inline constexpr wchar_t kProductName[] = L"" PRODUCT_NAME;
inline constexpr wchar_t kSetupName[] = L"" PRODUCT_SETUP_NAME;
inline constexpr wchar_t kPublisher[] = L"" PRODUCT_PUBLISHER;
inline constexpr wchar_t kAppUserModelId[] = L"" PRODUCT_APP_ID;
inline constexpr wchar_t kSetupUserModelId[] = L"" PRODUCT_SETUP_ID;
inline constexpr wchar_t kUpgradeCode[] = L"" PRODUCT_UPGRADE_CODE;

inline constexpr wchar_t kAppFileName[] = L"Velquin.exe";
inline constexpr wchar_t kSetupFileName[] = L"VelquinSetup.exe";
inline constexpr wchar_t kShortcutFileName[] = L"" PRODUCT_NAME ".lnk";
inline constexpr wchar_t kLegacyShortcutFileName[] = L"" PRODUCT_LEGACY_NAME ".lnk";
inline constexpr wchar_t kStartMenuFolder[] = L"" PRODUCT_PUBLISHER;
inline constexpr wchar_t kLegacyStartMenuFolder[] = L"" PRODUCT_LEGACY_START_MENU_FOLDER;
inline constexpr wchar_t kTaskName[] = L"" PRODUCT_NAME;
inline constexpr wchar_t kLegacyTaskName[] = L"" PRODUCT_LEGACY_NAME;

// Below HKEY_LOCAL_MACHINE.
inline constexpr wchar_t kUninstallKey[] = LR"(Software\Microsoft\Windows\CurrentVersion\Uninstall\LumoraVelquin)";

}  // namespace velquin
