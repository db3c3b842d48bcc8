#include "tavi/text/line_breaker.h"

namespace tavi {
namespace {

size_t nextDivision(const MeasuredText& text, size_t position) {
    size_t at = position + 1;
    while (at < text.size() && !text.isDivisible(at)) {
        ++at;
    }
    return at;
}

// Blanks at a line's end belong to it even where they have no room.
size_t behindBlanks(const MeasuredText& text, size_t position) {
    size_t at = position;
    while (at < text.size()) {
        const size_t next = nextDivision(text, at);
        if (text.withoutBlanks(at, next) != at) {
            break;
        }
        at = next;
    }
    return at;
}

// The last places of each kind at which the line may end.
struct Ends {
    size_t reluctant = 0;
    size_t forced = 0;
    size_t wanted = 0;

    void note(Boundary boundary, size_t position) {
        if (boundary == Boundary::kBreak) {
            wanted = position;
        }
        if (boundary >= Boundary::kForced) {
            forced = position;
        }
        reluctant = position;
    }
    size_t best(size_t fallback) const {
        return wanted != 0 ? wanted : forced != 0 ? forced : reluctant != 0 ? reluctant : fallback;
    }
};

size_t lineEnd(const MeasuredText& text, size_t begin, int32_t width) {
    Ends ends;
    for (size_t at = begin; at < text.size();) {
        const size_t next = nextDivision(text, at);
        const size_t visible = text.withoutBlanks(begin, next);
        if (text.width(begin, visible) > width && visible > at) {
            return ends.best(at > begin ? at : next);
        }
        // Blanks at the beginning are no line by themselves.
        if (visible > begin) {
            ends.note(text.boundary(next), next);
        }
        at = next;
    }
    return text.size();
}

}  // namespace

std::vector<TextRange> breakLines(const MeasuredText& text, int32_t width) {
    std::vector<TextRange> lines;
    size_t begin = 0;
    do {
        const size_t end = behindBlanks(text, lineEnd(text, begin, width));
        lines.push_back({begin, end});
        begin = end;
    } while (begin < text.size());
    return lines;
}

size_t longestFit(const MeasuredText& text, size_t begin, int32_t width) {
    size_t end = begin;
    while (end < text.size()) {
        const size_t next = nextDivision(text, end);
        if (text.width(begin, text.withoutBlanks(begin, next)) > width) {
            break;
        }
        end = next;
    }
    return text.withoutBlanks(begin, end);
}

}  // namespace tavi
