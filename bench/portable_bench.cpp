// Benchmarks of the portable code, each beside a peer that does the least such work can be: bench.py prints their
// ratios. A name is "group/ours" or "group/peer".
#include <benchmark/benchmark.h>

#include <libintl.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "base/argument_quoting.h"
#include "base/json_text.h"
#include "base/text.h"
#include "core/configuration.h"
#include "localization/catalog.h"
#include "update/manifest.h"

namespace {

std::wstring sampleText() {
    std::wstring text;
    while (text.size() < 1 << 16) {
        text += L"C:\\Program Files\\Lumora Velquin\\skins\\01.json größer 日本 ";
    }
    return text;
}

void utf8Ours(benchmark::State& state) {
    const std::wstring text = sampleText();
    for (auto _ : state) {
        benchmark::DoNotOptimize(base::toUtf8(text));
    }
}
BENCHMARK(utf8Ours)->Name("utf8/ours");

void utf8Peer(benchmark::State& state) {
    const std::wstring text = sampleText();
    for (auto _ : state) {
        std::string copy;
        copy.reserve(text.size());
        for (const wchar_t c : text) {
            copy.push_back(static_cast<char>(c));
        }
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(utf8Peer)->Name("utf8/peer");

// A file of a megabyte in which the key stands last, as a lookup's worst case.
std::wstring jsonText() {
    std::wstring text = L"{";
    while (text.size() < 1 << 20) {
        text += L"\"name\": \"value with \\\"quotes\\\"\",\n";
    }
    return text + L"\"last\": \"found\"}";
}

void jsonOurs(benchmark::State& state) {
    const std::wstring text = jsonText();
    for (auto _ : state) {
        benchmark::DoNotOptimize(base::readJsonString(text, L"last"));
    }
}
BENCHMARK(jsonOurs)->Name("json_lookup/ours");

void jsonPeer(benchmark::State& state) {
    const std::wstring text = jsonText();
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.find(L"\"last\""));
    }
}
BENCHMARK(jsonPeer)->Name("json_lookup/peer");

void quoteOurs(benchmark::State& state) {
    const std::wstring text = sampleText();
    for (auto _ : state) {
        benchmark::DoNotOptimize(base::quoteArgument(text));
    }
}
BENCHMARK(quoteOurs)->Name("quoting/ours");

void copyByCharacter(benchmark::State& state, const std::wstring& text) {
    for (auto _ : state) {
        std::wstring copy;
        for (const wchar_t c : text) {
            copy.push_back(c);
        }
        benchmark::DoNotOptimize(copy);
    }
}

void quotePeer(benchmark::State& state) {
    copyByCharacter(state, sampleText());
}
BENCHMARK(quotePeer)->Name("quoting/peer");

// A manifest of a megabyte, far larger than any real one.
std::wstring manifestText() {
    std::wstring text = L"{\"version\": \"1.0.189\", \"history\": [";
    while (text.size() < 1 << 20) {
        text +=
            L"{\"version\": \"1.0.188\", \"changes_en\": \"- The setup is quicker.\\n- A click on \\\"More\\\" "
            L"no longer closes the window.\", \"changes_cs\": \"- Rychlejší instalace.\", \"changes_i18n\": {}},\n";
    }
    return text + L"{}]}";
}

void manifestOurs(benchmark::State& state) {
    const std::wstring text = manifestText();
    for (auto _ : state) {
        benchmark::DoNotOptimize(velquin::update::parseUpdateManifest(text, L"1.0.188", L""));
    }
}
BENCHMARK(manifestOurs)->Name("manifest/ours");

void manifestPeer(benchmark::State& state) {
    const std::wstring text = manifestText();
    for (auto _ : state) {
        size_t quotes = 0;
        for (const wchar_t& c : text) {
            quotes += c == L'"';
        }
        benchmark::DoNotOptimize(quotes);
    }
}
BENCHMARK(manifestPeer)->Name("manifest/peer");

// The configuration of somebody with very many volumes, against copying its text character by character.
std::wstring configurationText() {
    velquin::ProductConfig config;
    config.mappings.resize(200, {L"Work", L"D:\\Containers\\größer.hc", L"W", true});
    return velquin::formatProductConfig(config);
}

void configurationOurs(benchmark::State& state) {
    const std::wstring text = configurationText();
    for (auto _ : state) {
        benchmark::DoNotOptimize(velquin::parseProductConfig(text, {}));
    }
}
BENCHMARK(configurationOurs)->Name("configuration/ours");

void configurationPeer(benchmark::State& state) {
    copyByCharacter(state, configurationText());
}
BENCHMARK(configurationPeer)->Name("configuration/peer");

// The texts of the setup in German, against gettext on the same texts. gettext gives a pointer to what it has loaded,
// ours a text of its own in the encoding of Windows.
std::vector<int> setupTexts() {
    std::vector<int> ids;
    for (int id = velquin::text::kClose; id <= velquin::text::kInstallFolderInvalid; ++id) {
        ids.push_back(id);
    }
    return ids;
}

void lookupOurs(benchmark::State& state) {
    const std::vector<int> ids = setupTexts();
    velquin::ProductConfig config;
    config.language = L"de-DE";
    for (auto _ : state) {
        for (const int id : ids) {
            benchmark::DoNotOptimize(velquin::localizedText(config, id, L""));
        }
    }
}
BENCHMARK(lookupOurs)->Name("text_lookup/ours");

void lookupPeer(benchmark::State& state) {
    setenv("LOCPATH", VELQUIN_BENCH_LOCALES, 1);
    setlocale(LC_ALL, "de_DE.UTF-8");
    bindtextdomain("velquin", VELQUIN_BENCH_LOCALES);
    textdomain("velquin");
    velquin::ProductConfig english;
    english.language = L"en-US";
    std::vector<std::string> keys;
    for (const int id : setupTexts()) {
        keys.push_back(base::toUtf8(velquin::localizedText(english, id, L"")));
    }
    if (std::strcmp(gettext(keys.front().c_str()), keys.front().c_str()) == 0) {
        state.SkipWithError("gettext found no German");
    }
    for (auto _ : state) {
        for (const std::string& key : keys) {
            benchmark::DoNotOptimize(gettext(key.c_str()));
        }
    }
}
BENCHMARK(lookupPeer)->Name("text_lookup/peer");

}  // namespace

BENCHMARK_MAIN();
