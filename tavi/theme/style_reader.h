// Reads the styles of a skin: objects within objects become paths with texts.
#pragma once

#include <string>

#include "base/json.h"
#include "tavi/theme/skin_reader.h"

namespace tavi {

// Puts an entry for each control type and variant of `styles`, which is an object of objects of objects, behind those
// that the skin has. Entries without a property are left out.
void readStyles(SkinDefinition& skin, base::Json styles, const SkinPlace& place, SkinReading& reading);

// A number as it stands in a style: whole ones without a point, others with at most 15 digits.
std::string numberText(double number);

}  // namespace tavi
