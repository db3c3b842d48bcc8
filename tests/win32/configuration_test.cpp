#include "core/configuration.h"

#include <thread>

#include "base/win32/files.h"
#include "core/product_paths.h"
#include "tests/win32/support.h"

namespace {

using namespace velquin;
using namespace velquin::test;
using testing::ElementsAre;

class ConfigurationFile : public UnitTest {
protected:
    static ProductConfig named(const std::wstring& language, size_t mappings = 0) {
        ProductConfig config;
        config.language = language;
        config.mappings.resize(mappings, {language, LR"(C:\Daten\größer.hc)", L"X", true});
        normalizeMappings(config);
        return config;
    }
    static bool save(ProductConfig config, const std::optional<std::wstring>& file = std::nullopt) {
        return saveProductConfig(config, file);
    }
};

TEST_F(ConfigurationFile, IsTheUsersOwnUnlessAnotherIsNamed) {
    const ProductConfig defaults = loadProductConfig();
    EXPECT_EQ(defaults.language, L"auto");
    EXPECT_EQ(defaults.veraCryptPath, LR"(C:\Program Files\VeraCrypt\VeraCrypt.exe)");
    EXPECT_FALSE(base::pathExists(configurationFile())) << "reading makes nothing";
    const std::wstring legacy = legacyConfigurationFile();
    writeFile(legacy, "\xEF\xBB\xBF{\"VolumePath\": \"C:\\\\old.hc\", \"DriveLetter\": \"q\", \"Language\": \"cs\"}");
    EXPECT_EQ(loadProductConfig().mappings, (std::vector<Mapping>{{L"Mapping 1", L"C:\\old.hc", L"Q", true}}));
    EXPECT_EQ(loadProductConfig(path(L"missing.json")).language, L"cs") << "whatever the path";
    ASSERT_TRUE(save(named(L"de")));
    EXPECT_EQ(loadProductConfig().language, L"de") << "its own file comes first";
    EXPECT_TRUE(base::fileExists(legacy));
    const std::wstring other = path(L"new folder\\größer.json");
    ProductConfig config = named(L"fr");
    config.mappings = {{L"", L" C:\\größer.hc ", L"x", true}};
    ASSERT_TRUE(saveProductConfig(config, other));
    EXPECT_EQ(config.mappings, (std::vector<Mapping>{{L"Mapping 1", L"C:\\größer.hc", L"X", true}}));
    EXPECT_EQ(loadProductConfig(other), config);
    EXPECT_EQ(loadProductConfig().language, L"de");
    EXPECT_THAT(namesIn(path(L"new folder")), ElementsAre(L"größer.json"));
}

TEST_F(ConfigurationFile, ProgramsThatAreThereAreDetected) {
    for (const wchar_t* name : {L"ProgramFiles", L"ProgramFiles(x86)"}) {
        std::wstring before(MAX_PATH, L'\0');
        before.resize(GetEnvironmentVariableW(name, before.data(), MAX_PATH));
        SetEnvironmentVariableW(name, path(name).c_str());
        const std::wstring program = path(name) + LR"(\VeraCrypt\VeraCrypt.exe)";
        writeFile(program, "program");
        EXPECT_EQ(loadProductConfig().veraCryptPath, program);
        DeleteFileW(program.c_str());
        SetEnvironmentVariableW(name, before.c_str());
    }
}

TEST_F(ConfigurationFile, WhateverItHoldsIsReadQuietly) {
    const std::wstring file = configurationFile();
    std::string wide = "\xFF\xFE";
    wide += bytesOf(LR"({"Language": "größer 漢"})");
    writeFile(file, wide);
    EXPECT_EQ(loadProductConfig().language, L"größer 漢");
    writeFile(file, std::string(300000, '\0') + "{\"Language\": \"behind zeros\"}");
    EXPECT_EQ(loadProductConfig().language, L"behind zeros");
    EXPECT_TRUE(loadProductConfig().origin.damaged) << "that is no JSON";
    // What is there and cannot be read is not missing: a folder, and a pipe, at which a reader would wait.
    EXPECT_TRUE(loadProductConfig(folder_).origin.damaged);
    const std::wstring pipe = LR"(\\.\pipe\)" + uniqueName();
    const base::UniqueFile server(
        CreateNamedPipeW(pipe.c_str(), PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE, 1, 64, 64, 0, nullptr));
    ASSERT_TRUE(server);
    EXPECT_TRUE(loadProductConfig(pipe).origin.damaged);
    writeFile(file, " \r\n");
    EXPECT_FALSE(loadProductConfig().origin.damaged) << "there is nothing in it to lose";
}

TEST_F(ConfigurationFile, OfADamagedOneACopyIsKeptOnce) {
    const std::wstring file = configurationFile();
    const std::string damaged[] = {
        "{\"Language\": \"de\", \"Mappings\": [{\"Name\": \"cut o",
        "{\"Language\": \"de\", \"VeraCryptPath\": \"C:\\\\pr\xE1"
        "ce.exe\"}",  // of another encoding
        std::string(kMaxConfigurationBytes + 1, ' '),
    };
    for (const std::string& bytes : damaged) {
        writeFile(file, bytes);
        ProductConfig config = loadProductConfig();
        EXPECT_TRUE(config.origin.damaged);
        EXPECT_EQ(config.language, bytes.front() == '{' ? L"de" : L"auto") << "what can be read is read";
        EXPECT_TRUE(saveProductConfig(config));
        EXPECT_TRUE(saveProductConfig(config)) << "the second time there is nothing to keep";
        EXPECT_FALSE(loadProductConfig().origin.damaged);
    }
    EXPECT_EQ(readFile(file + L".kept"), damaged[0]);
    EXPECT_EQ(readFile(file + L".kept-2"), damaged[1]);
    EXPECT_EQ(readFile(file + L".kept-3"), damaged[2]);
    EXPECT_FALSE(base::pathExists(file + L".kept-4"));
    // Of the file of the former name, which stays, none is needed.
    DeleteFileW(file.c_str());
    writeFile(legacyConfigurationFile(), damaged[0]);
    ProductConfig legacy = loadProductConfig();
    EXPECT_TRUE(legacy.origin.damaged);
    EXPECT_TRUE(saveProductConfig(legacy));
    EXPECT_FALSE(base::pathExists(file + L".kept-4"));
    // Nor is anything written that could not be read again.
    ProductConfig endless;
    endless.uiState = L"{\"x\": \"" + std::wstring(kMaxConfigurationBytes, L'x') + L"\"}";
    const std::string before = readFile(file);
    EXPECT_FALSE(saveProductConfig(endless));
    EXPECT_EQ(readFile(file), before);
}

TEST_F(ConfigurationFile, InUseItIsWaitedForAndElseKept) {
    const std::wstring file = path(L"c.json");
    ASSERT_TRUE(save(named(L"old"), file));
    const std::string old = readFile(file);
    {
        const base::UniqueFile locked = base::openFile(file, GENERIC_READ, 0, OPEN_EXISTING);
        ProductConfig config = loadProductConfig(file);
        EXPECT_TRUE(config.origin.damaged);
        EXPECT_FALSE(saveProductConfig(config, file)) << "not even a copy can be kept";
        EXPECT_FALSE(save(named(L"new"), file));
    }
    EXPECT_EQ(readFile(file), old);
    EXPECT_THAT(namesIn(folder_), testing::UnorderedElementsAre(L"c.json", L"c.log")) << "no half of a new one is left";
    EXPECT_THAT(readFile(path(L"c.log")),
                testing::HasSubstr("configuration not saved, the file could not be replaced: "));
    // A reader that is done soon is waited for.
    base::UniqueFile reader = base::openFile(file, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
    std::thread done([&reader] {
        Sleep(200);
        reader.reset();
    });
    EXPECT_TRUE(save(named(L"new"), file));
    done.join();
    EXPECT_EQ(loadProductConfig(file).language, L"new");
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(save(named(L"newer"), file)) << "its owner does not want it changed";
    EXPECT_EQ(loadProductConfig(file).language, L"new");
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(ConfigurationFile, ManyWritersAndReadersSeeWholeFiles) {
    const std::wstring file = path(L"c.json");
    const ProductConfig configs[] = {named(L"a", 1), named(L"b", 400)};
    ASSERT_TRUE(save(configs[0], file));
    std::atomic<int> running = 2;
    std::vector<std::jthread> writers;
    for (const ProductConfig& config : configs) {
        writers.emplace_back([&] {
            // A writer that was kept waiting too long by the others fails, and tries again.
            for (int saved = 0; saved < 40;) {
                saved += save(config, file) ? 1 : 0;
            }
            --running;
        });
    }
    int read = 0;
    int torn = 0;
    while (running > 0) {
        const ProductConfig config = loadProductConfig(file);
        const ProductConfig& whole = configs[config.language == L"b" ? 1 : 0];
        torn += !config.origin.damaged && config.mappings != whole.mappings ? 1 : 0;
        ++read;
        Sleep(1);
    }
    EXPECT_EQ(torn, 0) << "of " << read;
    writers.clear();
    EXPECT_FALSE(base::pathExists(file + L".new"));
}

}  // namespace
