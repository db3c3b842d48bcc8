// Sheets of whole dialogs.
#include <windows.h>

#include <algorithm>
#include <array>

#include "tavi/theme/image.h"
#include "tavi/theme/performance_profile.h"
#include "tavi/theme/surface_cache.h"
#include "tools/gallery/sample_dialog.h"
#include "tools/gallery/sheet.h"
#include "tools/gallery/sheets.h"

namespace gallery {
namespace {

using tavi::PerformanceProfile;

constexpr size_t kSkinsPerSheet = 6;

tavi::PixelBuffer sampleOf(const tavi::SkinDefinition& skin, int percent = 100) {
    const SampleDialog dialog(skin, percent);
    const Canvas canvas(dialog.size());
    dialog.paint(canvas.target());
    tavi::surfaceCache().clear();
    return canvas.picture();
}

// The id, or a number for one that is no plain file name: anyone's catalog may be drawn.
std::wstring fileNameOf(const std::wstring& id, size_t index) {
    const bool plain = tavi::isSafePictureName(id) && id.find_first_of(L"/\\.") == std::wstring::npos;
    return plain ? id : std::to_wstring(index + 1);
}

}  // namespace

bool writeSkinSheets(const std::wstring& folder, const Skins& skins) {
    const tavi::Size half{kSampleSize.width / 2, kSampleSize.height / 2};
    Sheet overview({.columns = 4, .count = static_cast<int>(skins.size()), .tile = half});
    bool saved = true;
    for (size_t first = 0; first < skins.size(); first += kSkinsPerSheet) {
        const size_t count = std::min(kSkinsPerSheet, skins.size() - first);
        Sheet sheet({.columns = 2, .count = static_cast<int>(count), .tile = kSampleSize});
        for (size_t i = first; i < first + count; ++i) {
            const std::wstring& id = skins[i].id;
            const tavi::PixelBuffer picture = sampleOf(skins[i]);
            saved = savePng(folder + L"\\skins\\" + fileNameOf(id, i) + L".png", picture) && saved;
            sheet.add(id, picture);
            overview.add(id, halved(picture));
        }
        const std::wstring number = std::to_wstring(first / kSkinsPerSheet + 1);
        saved = sheet.save(folder + L"\\skins-" + (number.size() < 2 ? L"0" : L"") + number + L".png") && saved;
    }
    return overview.save(folder + L"\\overview.png") && saved;
}

bool writeProfileSheet(const std::wstring& folder, const Skins& skins) {
    struct Row {
        PerformanceProfile profile;
        const wchar_t* name;
    };
    constexpr std::array kProfiles{Row{PerformanceProfile::kBestGraphics, L"best-graphics"},
                                   Row{PerformanceProfile::kBalanced, L"balanced"},
                                   Row{PerformanceProfile::kMaximumPerformance, L"maximum-performance"}};
    const int columns = static_cast<int>(kProfiles.size());
    Sheet sheet({.columns = columns, .count = columns * static_cast<int>(skins.size()), .tile = kSampleSize});
    const PerformanceProfile before = tavi::performanceProfile();
    for (const tavi::SkinDefinition& skin : skins) {
        for (const Row& row : kProfiles) {
            tavi::setPerformanceProfile(row.profile);
            sheet.add(skin.id + L", " + row.name, sampleOf(skin));
        }
    }
    tavi::setPerformanceProfile(before);
    return sheet.save(folder + L"\\profiles.png");
}

bool writeScaleSheet(const std::wstring& folder, const Skins& skins) {
    constexpr std::array kPercents{100, 125, 150, 200};
    std::array<tavi::PixelBuffer, kPercents.size()> pictures;
    std::ranges::transform(kPercents, pictures.begin(), [&](int percent) { return sampleOf(skins.front(), percent); });
    // The two small ones side by side, the others below them.
    constexpr int kGap = 16;
    const auto width = [&](size_t i) { return pictures[i].size().width; };
    const auto height = [&](size_t i) { return pictures[i].size().height + kLabelHeight + kGap; };
    const std::array<tavi::Point, kPercents.size()> places{
        tavi::Point{kGap, kGap}, tavi::Point{2 * kGap + width(0), kGap}, tavi::Point{kGap, kGap + height(1)},
        tavi::Point{kGap, kGap + height(1) + height(2)}};
    Sheet sheet({.tile = {width(0) + kGap + width(1), height(1) + height(2) + height(3)}, .gap = kGap});
    for (size_t i = 0; i < kPercents.size(); ++i) {
        sheet.addAt(places[i], skins.front().id + L", " + std::to_wstring(kPercents[i]) + L" %", pictures[i]);
    }
    return sheet.save(folder + L"\\scales.png");
}

}  // namespace gallery
