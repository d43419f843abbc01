#include <gtest/gtest.h>

#include <algorithm>

#include "LoaderChecks.hpp"
#include "PictureWriters.hpp"

namespace vz::test {
namespace {

// Flat 8 x 8 blocks survive quality 100 within a few levels.
constexpr int tolerance = 4;

// Red, green, blue samples: the top 8 rows red, the 8 below blue.
Bytes redOverBlue(int width) {
    Bytes rgb;
    for (int i = 0; i < width * 16; ++i) {
        const std::uint8_t red = i < width * 8 ? 255 : 0;
        rgb.insert(rgb.end(), {red, 0, static_cast<std::uint8_t>(255 - red)});
    }
    return rgb;
}

TEST(JpegLoader, ColourAndGreyPictures) {
    ScratchDir dir;
    writeBytes("colour.jpg", makeJpeg(8, 16, 3, redOverBlue(8)));
    auto colour = ImageLoader::LoadLayer32bpp("colour.jpg");
    ASSERT_EQ(colour->width, 8);
    ASSERT_EQ(colour->height, 16);
    EXPECT_TRUE(nearColor(colour->pixels[0], 0xFF0000, tolerance)) << std::hex << colour->pixels[0];
    EXPECT_TRUE(nearColor(colour->pixels[127], 0x0000FF, tolerance)) << std::hex << colour->pixels[127];

    writeBytes("grey.jpg", makeJpeg(8, 8, 1, Bytes(64, 0x80)));
    auto grey = ImageLoader::LoadLayer32bpp("grey.jpg");
    EXPECT_TRUE(std::all_of(grey->pixels, grey->pixels + 64, [](Rgb p) { return nearColor(p, 0x808080, tolerance); }));

    // Width 5: 15 bytes of samples and 1 byte of padding per row. The layer takes
    // 3-byte groups straight through, so from the second row on it is out of step.
    writeBytes("odd.jpg", makeJpeg(5, 16, 3, redOverBlue(5)));
    auto odd = ImageLoader::LoadLayer32bpp("odd.jpg");
    EXPECT_TRUE(nearColor(odd->pixels[4], 0xFF0000, tolerance));
    EXPECT_TRUE(nearColor(odd->pixels[5], 0x000000, tolerance)) << std::hex << odd->pixels[5];  // padding, blue, green
    EXPECT_TRUE(nearColor(odd->pixels[6], 0x0000FF, tolerance)) << std::hex << odd->pixels[6];  // red, blue, green
}

TEST(JpegLoader, FailuresAreLoggedWithTheFileName) {
    ScratchDir dir;
    const Bytes good = makeJpeg(8, 8, 1, Bytes(64, 0x40));
    writeBytes("cut.jpg", Bytes(good.begin(), good.begin() + 10));
    // The scan names Huffman tables 3, which the file never defines: the header still
    // parses, decoding cannot start.
    Bytes badTables = good;
    for (std::size_t i = 0; i + 6 < badTables.size(); ++i)
        if (badTables[i] == 0xFF && badTables[i + 1] == 0xDA) badTables[i + 6] = 0x33;
    writeBytes("huffman.jpg", badTables);
    // A file cut inside its image data fails like damaged data, instead of loading with
    // the rest filled in grey.
    Bytes noise(64 * 64);
    for (std::size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<std::uint8_t>(i * 37 % 251);
    const Bytes large = makeJpeg(64, 64, 1, noise);
    writeBytes("short.jpg", Bytes(large.begin(), large.end() - 200));
    const struct {
        std::string file, line, log;
    } cases[] = {
        {"cut.jpg", "loadJpg error (cut.jpg: no JPEG header)", "Cannot read JPEG file header from cut.jpg"},
        {"missing.jpg", "loadJpg error (missing.jpg: No such file or directory)",
         "Cannot read JPEG file header from missing.jpg"},
        {"huffman.jpg", "loadJpg error (huffman.jpg: the image data is damaged or ends early)",
         "Cannot read image data from huffman.jpg"},
        {"short.jpg", "loadJpg error (short.jpg: the image data is damaged or ends early)",
         "Cannot read image data from short.jpg"},
    };
    for (const auto& c : cases) EXPECT_EQ(failureLog(asLayer32, c.file, c.line), std::vector<std::string>{c.log});
}

}  // namespace
}  // namespace vz::test
