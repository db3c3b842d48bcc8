// surface_timer OUT.txt FOLDER: paints the sample dialog in each skin of the folder's catalogs, balanced, and writes
// for each a line with its id, the microseconds of the first frame, which renders all surfaces, and those of the
// quickest frame from kept ones. Fails when such a frame renders anything.
#include <windows.h>

#include <algorithm>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "base/text.h"
#include "base/win32/files.h"
#include "bench/clock.h"
#include "tavi/core/back_buffer.h"
#include "tavi/theme/skin_catalog.h"
#include "tavi/theme/surface_cache.h"
#include "tools/gallery/sample_dialog.h"

namespace {

// All skins in turn, some times: what else the machine does for a while hits no skin in all of its rounds.
constexpr int kTurns = 2;
constexpr int kRounds = 15;

// Microseconds, the least there were.
struct Frames {
    long long first = std::numeric_limits<long long>::max();
    long long again = std::numeric_limits<long long>::max();
};

long long timedFrame(const gallery::SampleDialog& dialog, HDC target) {
    const long long start = bench::microseconds();
    dialog.paint(target);
    GdiFlush();
    return bench::microseconds() - start;
}

// False when a frame from kept surfaces rendered one.
bool timeSkin(const tavi::SkinDefinition& skin, HDC target, Frames& frames) {
    const gallery::SampleDialog dialog(skin);
    tavi::surfaceCache().clear();
    frames.first = std::min(frames.first, timedFrame(dialog, target));
    const size_t rendered = tavi::surfaceCache().misses();
    for (int round = 0; round < kRounds; ++round) {
        frames.again = std::min(frames.again, timedFrame(dialog, target));
    }
    return tavi::surfaceCache().misses() == rendered;
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
    const std::vector<tavi::SkinDefinition> skins = tavi::loadSkinFolder(argv[2]);
    std::vector<Frames> frames(skins.size());
    for (int turn = 0; turn < kTurns; ++turn) {
        for (size_t i = 0; i < skins.size(); ++i) {
            if (!timeSkin(skins[i], buffer.target(), frames[i])) {
                return 1;
            }
        }
    }
    std::string report;
    for (size_t i = 0; i < skins.size(); ++i) {
        report += base::toUtf8(skins[i].id) + " " + std::to_string(frames[i].first) + " " +
                  std::to_string(frames[i].again) + "\n";
    }
    const base::UniqueFile file = base::openFile(argv[1], GENERIC_WRITE, 0, CREATE_ALWAYS);
    return !report.empty() && file && base::writeAll(file.get(), std::as_bytes(std::span(report))) ? 0 : 1;
}
