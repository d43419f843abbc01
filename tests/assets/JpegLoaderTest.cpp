#include <algorithm>
#include <cstdlib>

#include "LoaderChecks.hpp"

namespace vz::test {
namespace {

// Whether two colours differ by at most 4 in each colour byte, and not in the alpha
// byte: flat 8 x 8 blocks survive quality 100 within a few levels.
bool near(std::uint32_t a, std::uint32_t b) {
    for (int shift = 0; shift < 32; shift += 8)
        if (std::abs(static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF)) > (shift < 24) * 4)
            return false;
    return true;
}

Bytes jpeg(int width, int height, const Pixels& pixels, writers::JpegColour colour = writers::JpegColour::fullChroma) {
    return writers::encodeJpeg({width, height, pixels}, 100, colour);
}

// The top 8 rows red, the 8 below blue.
Pixels redOverBlue(int width) {
    Pixels rgb(static_cast<std::size_t>(width) * 16, 0x0000FF);
    std::fill_n(rgb.begin(), width * 8, 0xFF0000);
    return rgb;
}

TEST(JpegLoader, ColourAndGreyPictures) {
    ScratchDir dir;
    writeBytes("colour.jpg", jpeg(8, 16, redOverBlue(8)));
    auto colour = ImageLoader::LoadLayer32bpp("colour.jpg");
    ASSERT_EQ(colour->width, 8);
    ASSERT_EQ(colour->height, 16);
    EXPECT_TRUE(near(colour->pixels[0], 0xFF0000)) << std::hex << colour->pixels[0];
    EXPECT_TRUE(near(colour->pixels[127], 0x0000FF)) << std::hex << colour->pixels[127];

    writeBytes("grey.jpg", jpeg(8, 8, Pixels(64, 0x808080), writers::JpegColour::grey));
    auto grey = ImageLoader::LoadLayer32bpp("grey.jpg");
    EXPECT_TRUE(std::all_of(grey->pixels, grey->pixels + 64, [](std::uint32_t p) { return near(p, 0x808080); }));

    // Width 5: 15 bytes of samples and 1 byte of padding per row. The layer takes
    // 3-byte groups straight through, so from the second row on it is out of step.
    writeBytes("odd.jpg", jpeg(5, 16, redOverBlue(5)));
    auto odd = ImageLoader::LoadLayer32bpp("odd.jpg");
    EXPECT_TRUE(near(odd->pixels[4], 0xFF0000));
    EXPECT_TRUE(near(odd->pixels[5], 0x000000)) << std::hex << odd->pixels[5];  // padding, blue, green
    EXPECT_TRUE(near(odd->pixels[6], 0x0000FF)) << std::hex << odd->pixels[6];  // red, blue, green
}

TEST(JpegLoader, FailuresAreLoggedWithTheFileName) {
    ScratchDir dir;
    const Bytes good = jpeg(8, 8, Pixels(64, 0x404040), writers::JpegColour::grey);
    writeBytes("cut.jpg", Bytes(good.begin(), good.begin() + 10));
    // The scan names Huffman tables 3, which the file never defines: the header still
    // parses, decoding cannot start.
    Bytes badTables = good;
    for (std::size_t i = 0; i + 6 < badTables.size(); ++i)
        if (badTables[i] == 0xFF && badTables[i + 1] == 0xDA) badTables[i + 6] = 0x33;
    writeBytes("huffman.jpg", badTables);
    for (const auto& [file, line] : {std::pair{"cut.jpg", "Cannot read JPEG file header from cut.jpg"},
                                     {"missing.jpg", "Cannot read JPEG file header from missing.jpg"},
                                     {"huffman.jpg", "Cannot read image data from huffman.jpg"}})
        EXPECT_EQ(failureLog(asLayer32, file, "loadJpg error"), std::vector<std::string>{line});

    // A file cut inside its image data still loads: the library fills the rest.
    Pixels noise(64 * 64);
    for (std::size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<std::uint32_t>(i * 37 % 251) * 0x010101u;
    const Bytes large = jpeg(64, 64, noise, writers::JpegColour::grey);
    writeBytes("short.jpg", Bytes(large.begin(), large.end() - 200));
    EXPECT_EQ(ImageLoader::LoadLayer32bpp("short.jpg")->width, 64);
}

}  // namespace
}  // namespace vz::test
