// skin_gallery OUTPUT FOLDER: draws the skins of all catalogs of FOLDER, and what skins are made of, as PNG files into
// the folder OUTPUT. skin_gallery OUTPUT FILE.json draws the skins of that catalog only.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "base/win32/files.h"
#include "base/windows_path.h"
#include "tavi/theme/image.h"
#include "tavi/theme/skin_catalog.h"
#include "tools/gallery/sheets.h"

namespace {

using gallery::Skins;

// The skins that sheets of details are drawn in, as far as they are there: quiet, colorful, light.
constexpr const wchar_t* kSamples[] = {L"verdant-ops", L"ruby-black", L"arctic-instrument"};

Skins samplesOf(const Skins& skins) {
    Skins chosen;
    for (const wchar_t* id : kSamples) {
        const auto found = std::ranges::find(skins, id, &tavi::SkinDefinition::id);
        if (found != skins.end()) {
            chosen.push_back(*found);
        }
    }
    return chosen.empty() ? Skins{skins.front()} : chosen;
}

bool writeDetails(const std::wstring& output, const Skins& skins) {
    const Skins samples = samplesOf(skins);
    const bool dialogs = gallery::writeProfileSheet(output, samples) && gallery::writeScaleSheet(output, samples);
    const bool surfaces = gallery::writeShapeSheet(output, samples) && gallery::writeGradientSheet(output);
    return gallery::writePresetSheet(output) && gallery::writeFinishSheet(output) && surfaces && dialogs;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 3) {
        std::fputs("usage: skin_gallery OUTPUT FOLDER|FILE.json\n", stderr);
        return 2;
    }
    const std::wstring output = argv[1];
    const std::wstring source = argv[2];
    const bool isFolder = base::folderExists(source);
    tavi::setPictureFolder(isFolder ? source : base::parentPath(source));
    const Skins skins = isFolder ? tavi::loadSkinFolder(source) : tavi::loadSkinFile(source);
    if (skins.empty()) {
        std::fputs("no skin was found\n", stderr);
        return 1;
    }
    const bool ready = base::createFolders(output + L"\\skins");
    const bool written = ready && gallery::writeSkinSheets(output, skins) && (!isFolder || writeDetails(output, skins));
    if (!written) {
        std::fputs("a picture could not be written\n", stderr);
    }
    return written ? 0 : 1;
}
