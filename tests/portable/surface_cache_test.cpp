#include "tavi/theme/surface_cache.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tavi/theme/active_skin.h"
#include "tavi/theme/image.h"
#include "tests/portable/window_fixture.h"

namespace {

using namespace tavi;

SurfaceKey keyOf(int32_t width, int32_t height = 10) {
    return {.size = {width, height}};
}

// Asks the cache for a picture of the key's size; true when it had to be made.
bool isMade(SurfaceCache& cache, const SurfaceKey& key) {
    bool made = false;
    const SurfacePicture& picture = cache.obtain(key, [&] {
        made = true;
        return PixelBuffer(key.size);
    });
    EXPECT_EQ(picture.pixels.size(), key.size);
    return made;
}

TEST(SurfaceCache, KeepsWhatWasPaintedUntilItIsCleared) {
    SurfaceCache cache(1 << 20);
    EXPECT_TRUE(isMade(cache, keyOf(10)));
    EXPECT_FALSE(isMade(cache, keyOf(10)));
    EXPECT_EQ(std::pair(cache.hits(), cache.misses()), (std::pair<size_t, size_t>(1, 1)));
    EXPECT_GE(cache.bytes(), 10U * 10 * 4);
    cache.clear();
    EXPECT_EQ(std::pair(cache.bytes(), cache.count()), (std::pair<size_t, size_t>(0, 0)));
    EXPECT_TRUE(isMade(cache, keyOf(10)));
}

TEST(SurfaceCache, KeepsThatThereIsNothingToDraw) {
    SurfaceCache cache(1 << 20);
    EXPECT_TRUE(isMade(cache, keyOf(0, 0)));
    EXPECT_FALSE(isMade(cache, keyOf(0, 0)));
    EXPECT_GT(cache.bytes(), 0U) << "pictures without pixels count as well, so that there is an end to them";
}

TEST(SurfaceCache, TellsApartAllThatPixelsDependOn) {
    const std::function<void(SurfaceKey&)> changes[] = {
        [](SurfaceKey&) {},
        [](SurfaceKey& key) { key.layer = SurfaceKey::Layer::kMaterial; },
        [](SurfaceKey& key) { key.profile = PerformanceProfile::kBestGraphics; },
        [](SurfaceKey& key) { key.size.height = 11; },
        [](SurfaceKey& key) { key.windowOffset.y = 1; },
        [](SurfaceKey& key) { key.segments = {{0, 0, 5, 10}}; },
        [](SurfaceKey& key) { key.segments = {{0, 0, 6, 10}}; },
        // These the hash leaves out.
        [](SurfaceKey& key) { key.style.glowRadius = 9; },
        [](SurfaceKey& key) { key.style.noiseSeed = 2; },
        [](SurfaceKey& key) { key.style.nineSlice.bottom = 1; },
        [](SurfaceKey& key) { key.style.tuning.lightAngle = 1; },
        [](SurfaceKey& key) { key.style.image = L"a.png"; },
        [](SurfaceKey& key) { key.style.image = L"b.png"; },
    };
    SurfaceCache cache(1 << 20);
    for (const bool first : {true, false}) {
        for (size_t i = 0; i < std::size(changes); ++i) {
            SurfaceKey key = keyOf(10);
            changes[i](key);
            EXPECT_EQ(isMade(cache, key), first) << "change " << i;
        }
    }
}

TEST(SurfaceCache, ForgetsWhatWasNotUsedForLongest) {
    SurfaceCache measure(1 << 20);
    isMade(measure, keyOf(100, 100));
    SurfaceCache cache(3 * measure.bytes());
    for (const int height : {100, 99, 98}) {
        EXPECT_TRUE(isMade(cache, keyOf(100, height)));
    }
    EXPECT_FALSE(isMade(cache, keyOf(100, 100))) << "used again, so the next is the oldest";
    EXPECT_TRUE(isMade(cache, keyOf(100, 97)));
    EXPECT_EQ(cache.count(), 3U);
    EXPECT_LE(cache.bytes(), 3 * measure.bytes());
    EXPECT_FALSE(isMade(cache, keyOf(100, 100)));
    EXPECT_TRUE(isMade(cache, keyOf(100, 99)));

    EXPECT_TRUE(isMade(cache, keyOf(1000, 1000))) << "larger than the bound: alone";
    EXPECT_EQ(cache.count(), 1U);
    EXPECT_FALSE(isMade(cache, keyOf(1000, 1000)));
    EXPECT_TRUE(isMade(cache, keyOf(10)));
    EXPECT_EQ(cache.count(), 1U);
    EXPECT_LE(cache.bytes(), 3 * measure.bytes());
}

TEST(SurfaceCache, KnowsAnOpaquePart) {
    struct Case {
        std::vector<const char*> rows;  // # is opaque
        Rect part;
    };
    const Case cases[] = {
        {{}, {}},
        {{"#"}, {0, 0, 1, 1}},
        {{"."}, {}},
        {{"####", "####"}, {0, 0, 4, 2}},
        {{".##.", "####", "####", ".##."}, {0, 1, 4, 2}},
        {{"......", ".####.", ".####.", ".####.", "......"}, {1, 1, 4, 3}},
        {{"..#..", ".###.", "#####", ".###.", "..#.."}, {0, 2, 5, 1}},
        {{"##.##", "##.##", "##.##"}, {}},
        {{"###", "#.#", "###", "###", "###"}, {0, 2, 3, 3}},
    };
    for (const Case& each : cases) {
        const int width = each.rows.empty() ? 0 : static_cast<int>(std::string_view(each.rows[0]).size());
        PixelBuffer picture({width, static_cast<int>(each.rows.size())});
        for (size_t i = 0; i < picture.pixels().size(); ++i) {
            const bool opaque = each.rows[i / static_cast<size_t>(width)][i % static_cast<size_t>(width)] == '#';
            picture.pixels()[i] = opaque ? 0xFF000000U : 0xFE000000U;
        }
        EXPECT_EQ(opaquePart(picture), each.part) << testing::PrintToString(each.rows);
    }
}

TEST(PictureName, StaysInsideItsFolder) {
    const std::pair<const wchar_t*, bool> names[] = {
        {L"plate.png", true},
        {L"plates/oak.png", true},
        {L"plates\\oak .x.png", true},
        {L".hidden.png", true},
        {L"com10.png", true},
        {L"console.png", true},
        {L"", false},
        {L"..", false},
        {L"..\\plate.png", false},
        {L"a/../../plate.png", false},
        {L"a\\.. \\plate.png", false},
        {L"a//plate.png", false},
        {L"plates/", false},
        {L"./plate.png", false},
        {L"/plate.png", false},
        {L"\\plate.png", false},
        {L"C:\\plate.png", false},
        {L"C:plate.png", false},
        {L"\\\\server\\share\\plate.png", false},
        {L"\\\\?\\C:\\plate.png", false},
        {L"\\??\\C:\\plate.png", false},
        {L"plate.png:stream", false},
        {L"nul", false},
        {L"a/CON.png", false},
        {L"com1 .png", false},
        {L"pl\tate.png", false},
        {L"pl?te.png", false},
    };
    for (const auto& [name, safe] : names) {
        EXPECT_EQ(isSafePictureName(name), safe) << testing::PrintToString(std::wstring(name));
    }
    EXPECT_FALSE(isSafePictureName(std::wstring(100000, L'a')));
}

// Pictures for another scale or another skin are of no use.
TEST(SurfaceCache, OfTheProcessIsClearedBySkinAndScale) {
    testing_tavi::PlatformStandIn platform;
    const auto tree = WindowTree::create(platform);
    tree->setClient({400, 300}, 96);
    isMade(surfaceCache(), keyOf(10));
    tree->setClient({500, 300}, 96);
    EXPECT_FALSE(isMade(surfaceCache(), keyOf(10)));
    tree->setClient({500, 300}, 144);
    EXPECT_TRUE(isMade(surfaceCache(), keyOf(10)));
    activateSkin(SkinDefinition(activeSkin()));
    EXPECT_TRUE(isMade(surfaceCache(), keyOf(10)));
}

}  // namespace
