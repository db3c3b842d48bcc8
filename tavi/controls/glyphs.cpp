#include "tavi/controls/glyphs.h"

namespace tavi {

void drawGlyph(HDC /*target*/, const Rect& /*area*/, Glyph /*glyph*/, Color /*color*/) {}

}  // namespace tavi
