// Loading all shipped skins beside building a document of the same bytes with RapidJSON, which reads them into a tree
// and understands nothing. bench.py prints the ratio.
#include <benchmark/benchmark.h>

#include <rapidjson/document.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tavi/theme/skin_reader.h"

namespace {

constexpr size_t kShippedSkins = 58;

size_t skinCount(const std::vector<std::string>& catalogs) {
    size_t count = 0;
    for (const std::string& catalog : catalogs) {
        count += tavi::parseCatalog(catalog, L"").size();
    }
    return count;
}

std::vector<std::string> catalogs() {
    std::vector<std::string> shipped;
    for (const auto& entry : std::filesystem::directory_iterator(VELQUIN_SKINS)) {
        std::ifstream file(entry.path(), std::ios::binary);
        shipped.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return shipped;
}

void skinsOurs(benchmark::State& state) {
    const std::vector<std::string> files = catalogs();
    if (skinCount(files) < kShippedSkins) {
        state.SkipWithError("the catalogs cannot be read");
    }
    for (auto _ : state) {
        for (const std::string& file : files) {
            benchmark::DoNotOptimize(tavi::parseCatalog(file, L"catalog.json"));
        }
    }
}
BENCHMARK(skinsOurs)->Name("skins/ours");

void skinsPeer(benchmark::State& state) {
    const std::vector<std::string> files = catalogs();
    for (auto _ : state) {
        for (const std::string& file : files) {
            rapidjson::Document document;
            document.Parse(file.data(), file.size());
            benchmark::DoNotOptimize(document.IsObject());
        }
    }
}
BENCHMARK(skinsPeer)->Name("skins/peer");

}  // namespace
