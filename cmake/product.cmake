# What names this product, in the one place from which the code, the resource scripts and the installer package take it.
set(PRODUCT_VERSION "1.0.188")
set(PRODUCT_NAME "Lumora Velquin")
set(PRODUCT_SETUP_NAME "Lumora Velquin Setup")
set(PRODUCT_PUBLISHER "Vantorik")
set(PRODUCT_LEGACY_START_MENU_FOLDER "Lumora")
set(PRODUCT_LEGACY_NAME "Lumora - Quenbria VeraCrypt mount")
set(PRODUCT_APP_ID "Vantorik.LumoraVelquin.App")
set(PRODUCT_SETUP_ID "Vantorik.LumoraVelquin.Setup")
set(PRODUCT_APP_DESCRIPTION "Velquin manager")
set(PRODUCT_SETUP_DESCRIPTION "Installer for Velquin")
set(PRODUCT_UPGRADE_CODE "5C8BB41F-68F4-4E58-9076-9D3DF55EBEF5")
# The host that publishes updates. The default lies under a domain name that is reserved and never answers.
set(PRODUCT_UPDATE_HOST "updates.velquin.example" CACHE STRING "host name of the update manifest")

string(REPLACE "." "," PRODUCT_VERSION_COMMAS "${PRODUCT_VERSION}.0")
# Windows Installer tells versions of one product apart by their product code; the same version always has the same.
string(UUID PRODUCT_CODE NAMESPACE "${PRODUCT_UPGRADE_CODE}" NAME "${PRODUCT_VERSION}" TYPE SHA1 UPPER)
