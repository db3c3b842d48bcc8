// Pictures that skins name, read through the Windows Imaging Component.
#include "tavi/theme/image.h"

#include <array>
#include <cstdint>

#include "tests/win32/support.h"

namespace {

using namespace tavi;
using velquin::test::writeFile;

void append(std::string& bytes, uint32_t value, int count) {
    for (int i = 0; i < count; ++i) {
        bytes += static_cast<char>(value >> 8 * i & 0xFF);
    }
}

// A BMP file of 32 bits a pixel without alpha, its rows bottom-up. `pixels` may be fewer than the header promises.
std::string bitmapFile(uint32_t width, uint32_t height, const std::vector<uint32_t>& pixels) {
    std::string bytes = "BM";
    append(bytes, static_cast<uint32_t>(54 + 4 * pixels.size()), 4);
    append(bytes, 0, 4);
    append(bytes, 54, 4);
    append(bytes, 40, 4);
    append(bytes, width, 4);
    append(bytes, height, 4);
    append(bytes, 1, 2);
    append(bytes, 32, 2);
    for (int i = 0; i < 6; ++i) {
        append(bytes, 0, 4);
    }
    for (const uint32_t pixel : pixels) {
        append(bytes, pixel, 4);
    }
    return bytes;
}

// A PNG file of two pixels: opaque orange, and blue at half its opacity.
constexpr std::array<uint8_t, 74> kPng{
    0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48, 0x44, 0x52, 0x00, 0x00, 0x00,
    0x02, 0x00, 0x00, 0x00, 0x01, 0x08, 0x06, 0x00, 0x00, 0x00, 0xF4, 0x22, 0x7F, 0x8A, 0x00, 0x00, 0x00, 0x11, 0x49,
    0x44, 0x41, 0x54, 0x78, 0x9C, 0x63, 0xF8, 0xDF, 0xC0, 0xF0, 0x9F, 0x81, 0xE1, 0x7F, 0x03, 0x00, 0x12, 0xFA, 0x03,
    0xFE, 0x11, 0x32, 0x9F, 0x89, 0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82};

std::string pngFile() {
    return {kPng.begin(), kPng.end()};
}

class Image : public velquin::test::UnitTest {
protected:
    ~Image() override { setPictureFolder({}); }
};

TEST_F(Image, ReadsPicturesPremultiplied) {
    writeFile(path(L"a.png"), pngFile());
    const auto png = loadPicture(path(L"a.png"));
    ASSERT_TRUE(png);
    EXPECT_EQ(png->size(), (Size{2, 1}));
    EXPECT_EQ(png->pixels()[0], 0xFFFF8000U);
    EXPECT_EQ(png->pixels()[1] >> 24, 0x80U);
    EXPECT_NEAR(static_cast<int>(png->pixels()[1] & 0xFF), 0x80, 1);
    EXPECT_EQ(png->pixels()[1] & 0xFFFF00, 0U);

    writeFile(path(L"b.bmp"), bitmapFile(1, 2, {0x112233, 0x445566}));
    const auto bmp = loadPicture(path(L"b.bmp"));
    ASSERT_TRUE(bmp);
    EXPECT_EQ(bmp->pixels(), (std::vector<Pixel>{0xFF445566, 0xFF112233}));
}

TEST_F(Image, RefusesWhatIsNoPictureOrTooLarge) {
    std::string torn = pngFile();
    torn.resize(30);
    std::string icon("\0\0\1\0\1\0", 6);
    const std::pair<const wchar_t*, std::string> files[] = {
        {L"empty.png", ""},
        {L"text.png", "not a picture"},
        {L"torn.png", torn},
        {L"icon.png", icon},
        {L"huge.bmp", bitmapFile(1 << 20, 1 << 12, {0})},
        {L"flat.bmp", bitmapFile(0, 0, {0})},
    };
    for (const auto& [name, bytes] : files) {
        writeFile(path(name), bytes);
        EXPECT_FALSE(loadPicture(path(name))) << testing::PrintToString(std::wstring(name));
    }
    EXPECT_FALSE(loadPicture(path(L"missing.png")));
    EXPECT_FALSE(loadPicture(folder_));
}

TEST_F(Image, StylesNamePicturesInTheirFolder) {
    EXPECT_EQ(stylePicture(L"a.png"), nullptr) << "no folder";
    writeFile(path(L"skins\\plates\\a.png"), pngFile());
    writeFile(path(L"outside.png"), pngFile());
    setPictureFolder(path(L"skins"));
    const PixelBuffer* const picture = stylePicture(L"plates/a.png");
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->size(), (Size{2, 1}));
    DeleteFileW(path(L"skins\\plates\\a.png").c_str());
    EXPECT_NE(stylePicture(L"plates/a.png"), nullptr) << "kept";
    EXPECT_EQ(stylePicture(L"..\\outside.png"), nullptr);
    EXPECT_EQ(stylePicture(path(L"outside.png")), nullptr);
    setPictureFolder(path(L"skins"));
    EXPECT_EQ(stylePicture(L"plates/a.png"), nullptr) << "forgotten, and the file is gone";
}

}  // namespace
