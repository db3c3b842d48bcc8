// The skins that a program can choose from: those of its catalogs, then the few that the framework has of its own.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tavi/theme/skin_definition.h"

namespace tavi {

// The framework's own skins. The first one is its default look, which is there whatever files are missing.
std::span<const SkinDefinition> builtInSkins();

class SkinRegistry {
public:
    // Of the skins of catalogs, in their order; the built-in ones are put behind them.
    explicit SkinRegistry(std::vector<SkinDefinition> catalogs);

    std::span<const SkinDefinition> skins() const { return skins_; }
    // The first skin of that id. For an unknown id the first skin of all, so that there always is one.
    const SkinDefinition& find(std::wstring_view id) const;

private:
    std::vector<SkinDefinition> skins_;
};

// The folder that skinRegistry() reads, instead of "skins" beside the program. Counts when nobody has asked for the
// registry before.
void setSkinFolder(std::wstring folder);

// The process's registry, built on the first request and only read from then on.
const SkinRegistry& skinRegistry();

}  // namespace tavi
