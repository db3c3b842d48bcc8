// Skins from texts, for the tests of their reader.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tavi/theme/skin_reader.h"

namespace testing_tavi {

inline std::vector<tavi::SkinDefinition> read(const std::string& json) {
    return tavi::parseCatalog(json, L"file.json");
}

// A skin with some members beside its id and name.
inline tavi::SkinDefinition skinWith(const std::string& members) {
    const auto skins = read(R"({"id": "i", "name": "n", )" + members + "}");
    EXPECT_EQ(skins.size(), 1u) << members;
    return skins.empty() ? tavi::SkinDefinition() : skins.front();
}

inline std::string member(const std::string& key, const std::string& value) {
    return "\"" + key + "\": " + value;
}
inline std::string object(const std::string& members) {
    return "{" + members + "}";
}

}  // namespace testing_tavi
