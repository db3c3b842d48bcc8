#include "tavi/theme/contrast.h"

#include <algorithm>
#include <cmath>

namespace tavi {
namespace {

// Relative luminance, 0 to 1.
double luminance(Color color) {
    const auto linear = [](int channel) {
        const double share = channel / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(redOf(color)) + 0.7152 * linear(greenOf(color)) + 0.0722 * linear(blueOf(color));
}

}  // namespace

double contrast(Color a, Color b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

}  // namespace tavi
