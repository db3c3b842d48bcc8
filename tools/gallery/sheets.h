// The contact sheets, each a function that writes its files into a folder. They answer false when one could not be
// written.
#pragma once

#include <string>
#include <vector>

#include "tavi/theme/skin_definition.h"

namespace gallery {

using Skins = std::vector<tavi::SkinDefinition>;

// skins/ID.png for each, skins-NN.png with six a sheet, overview.png with all at half their size.
bool writeSkinSheets(const std::wstring& folder, const Skins& skins);
// profiles.png: three skins at the three profiles. scales.png: one dialog at four scales.
bool writeProfileSheet(const std::wstring& folder, const Skins& skins);
bool writeScaleSheet(const std::wstring& folder, const Skins& skins);
// shapes.png: the nine shapes in the states of a button, in three skins.
bool writeShapeSheet(const std::wstring& folder, const Skins& skins);
// gradients.png: kinds by directions.
bool writeGradientSheet(const std::wstring& folder);
// presets.png: the materials that skins can name. finishes.png: kinds by finishes.
bool writePresetSheet(const std::wstring& folder);
bool writeFinishSheet(const std::wstring& folder);

}  // namespace gallery
