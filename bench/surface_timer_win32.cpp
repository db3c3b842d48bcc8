// surface_timer OUT.txt FOLDER: paints the sample dialog in each skin of the folder's catalogs, balanced, and writes
// for each a line with its id, the microseconds of the first frame, which renders all surfaces, and those of the
// quickest frame from kept ones. Fails when such a frame renders anything.
#include <windows.h>

#include <algorithm>
#include <span>
#include <string>

#include "base/text.h"
#include "base/win32/files.h"
#include "bench/clock.h"
#include "tavi/core/back_buffer.h"
#include "tavi/theme/skin_catalog.h"
#include "tavi/theme/surface_cache.h"
#include "tools/gallery/sample_dialog.h"

namespace {

constexpr int kRounds = 60;

long long timedFrame(const gallery::SampleDialog& dialog, HDC target) {
    const long long start = bench::microseconds();
    dialog.paint(target);
    GdiFlush();
    return bench::microseconds() - start;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 3) {
        return 2;
    }
    tavi::BackBuffer buffer;
    if (buffer.fit(nullptr, gallery::kSampleSize) == tavi::BackBuffer::Change::Failed) {
        return 1;
    }
    std::string report;
    for (const tavi::SkinDefinition& skin : tavi::loadSkinFolder(argv[2])) {
        const gallery::SampleDialog dialog(skin);
        tavi::surfaceCache().clear();
        const long long first = timedFrame(dialog, buffer.target());
        const size_t rendered = tavi::surfaceCache().misses();
        long long again = first;
        for (int round = 0; round < kRounds; ++round) {
            again = std::min(again, timedFrame(dialog, buffer.target()));
        }
        if (tavi::surfaceCache().misses() != rendered) {
            return 1;
        }
        report += base::toUtf8(skin.id) + " " + std::to_string(first) + " " + std::to_string(again) + "\n";
    }
    const base::UniqueFile file = base::openFile(argv[1], GENERIC_WRITE, 0, CREATE_ALWAYS);
    return !report.empty() && file && base::writeAll(file.get(), std::as_bytes(std::span(report))) ? 0 : 1;
}
