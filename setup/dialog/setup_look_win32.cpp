#include <optional>
#include <utility>

#include "base/text.h"
#include "base/windows_path.h"
#include "core/log.h"
#include "core/product_paths.h"
#include "setup/dialog/setup_look.h"
#include "setup/dialog/setup_style_sheet.h"
#include "setup/payload.h"
#include "setup/payload_table.h"
#include "tavi/controls/tooltip_look.h"
#include "tavi/theme/active_skin.h"
#include "tavi/theme/enumeration_names.h"
#include "tavi/theme/performance_profile.h"
#include "tavi/theme/private_fonts.h"
#include "tavi/theme/skin_catalog.h"
#include "tavi/theme/skin_registry.h"

namespace velquin::setup {
namespace {

constexpr std::wstring_view kSkinPayloads = LR"(skins\)";

// Brings the skin catalogs that the setup carries to the user's folder and gives the folder they lie in. What cannot be
// written is missing there.
std::wstring refreshSkinCache() {
    const UserPaths paths = userPaths();
    const std::wstring cache = base::joinPath(paths.dataFolder(), L"setup-skin-cache");
    for (const PayloadEntry& entry : payloadTable()) {
        if (entry.isValid() && std::wstring_view(entry.relativePath).starts_with(kSkinPayloads)) {
            refreshPayload(entry.resourceId, paths.dataFolderBase(), base::joinPath(cache, entry.relativePath));
        }
    }
    return base::joinPath(cache, kSkinPayloads.substr(0, kSkinPayloads.size() - 1));
}

// Once for the process, before its first window.
const std::wstring& skinFolder() {
    static const std::wstring kFolder = [] {
        std::wstring folder = refreshSkinCache();
        tavi::setSkinFolder(folder);
        tavi::useSkinForTooltips();
        return folder;
    }();
    static const tavi::PrivateFonts kFonts(tavi::privateFontFolder());
    return kFolder;
}

// The configured skin. Catalogs are read up to the one that has it, not all of them.
tavi::SkinDefinition setupSkin(const std::wstring& id) {
    if (std::optional<tavi::SkinDefinition> skin = tavi::findSkin(skinFolder(), id)) {
        return *std::move(skin);
    }
    for (const tavi::SkinDefinition& skin : tavi::builtInSkins()) {
        if (skin.id == id) {
            return skin;
        }
    }
    writeSetupLog(L"skin not found, the setup's own look is shown: " + singleLine(id));
    return builtInSetupTheme();
}

}  // namespace

tavi::StyleSheet useSetupLook(const ProductConfig& config) {
    tavi::setPerformanceProfile(tavi::performanceProfileFromName(config.performanceProfile));
    tavi::activateSkin(setupSkin(config.skinId));
    return {setupStyleRules(), tavi::activeSkin()};
}

}  // namespace velquin::setup
