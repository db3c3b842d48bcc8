#include "tavi/text/clusters.h"

#include <algorithm>

namespace tavi {

size_t nextCluster(std::wstring_view text, size_t position) {
    return std::min(position + 1, text.size());
}

size_t previousCluster(std::wstring_view text, size_t position) {
    return position > 0 ? std::min(position, text.size()) - 1 : 0;
}

size_t clusterStart(std::wstring_view text, size_t position) {
    return std::min(position, text.size());
}

size_t nextWord(std::wstring_view text, size_t position) {
    return nextCluster(text, position);
}

size_t previousWord(std::wstring_view text, size_t position) {
    return previousCluster(text, position);
}

TextRange wordAt(std::wstring_view text, size_t position) {
    return {position, nextCluster(text, position)};
}

bool startsRightToLeft(std::wstring_view /*text*/) {
    return false;
}

}  // namespace tavi
