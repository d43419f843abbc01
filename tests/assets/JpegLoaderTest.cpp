#include <gtest/gtest.h>

#include <algorithm>

#include "LoaderChecks.hpp"
#include "PictureWriters.hpp"
#include "assets/ImageLoader.hpp"
#include "script/Layer.hpp"

namespace vz::test {
namespace {

// Flat 8 x 8 blocks survive quality 100 within a few levels.
constexpr int tolerance = 4;

Bytes colourBands(int width, int height, Rgb top, Rgb bottom) {
    Bytes rgb;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            Rgb c = y < 8 ? top : bottom;
            rgb.insert(rgb.end(), {static_cast<std::uint8_t>(c >> 16), static_cast<std::uint8_t>(c >> 8),
                                   static_cast<std::uint8_t>(c)});
        }
    return rgb;
}

TEST(JpegLoader, ColourAndGreyPictures) {
    ScratchDir dir;
    writeBytes("colour.jpg", makeJpeg(8, 16, 3, colourBands(8, 16, 0xFF0000, 0x0000FF)));
    auto colour = ImageLoader::LoadLayer32bpp("colour.jpg");
    ASSERT_EQ(colour->width, 8);
    ASSERT_EQ(colour->height, 16);
    EXPECT_TRUE(nearColor(colour->pixels[0], 0xFF0000, tolerance)) << std::hex << colour->pixels[0];
    EXPECT_TRUE(nearColor(colour->pixels[8 * 16 - 1], 0x0000FF, tolerance)) << std::hex << colour->pixels[127];

    writeBytes("grey.jpg", makeJpeg(8, 8, 1, Bytes(64, 0x80)));
    auto grey = ImageLoader::LoadLayer32bpp("grey.jpg");
    EXPECT_TRUE(std::all_of(grey->pixels, grey->pixels + 64, [](Rgb p) { return nearColor(p, 0x808080, tolerance); }));
}

TEST(JpegLoader, RowsNotMultipleOfFourBytesComeOutSheared) {
    ScratchDir dir;
    // Width 5: 15 bytes of samples and 1 byte of padding per row. The layer takes
    // 3-byte groups straight through, so from the second row on it is out of step.
    writeBytes("odd.jpg", makeJpeg(5, 16, 3, colourBands(5, 16, 0xFF0000, 0x0000FF)));
    auto layer = ImageLoader::LoadLayer32bpp("odd.jpg");
    const Rgb* second = layer->row(1);
    EXPECT_TRUE(nearColor(layer->pixels[4], 0xFF0000, tolerance));
    EXPECT_TRUE(nearColor(second[0], 0x000000, tolerance)) << std::hex << second[0];  // padding, blue, green
    EXPECT_TRUE(nearColor(second[1], 0x0000FF, tolerance)) << std::hex << second[1];  // red, blue, green
}

// Moves three codes of the first Huffman table to length 1: the header still parses,
// but the table cannot be built when decoding starts.
Bytes breakHuffmanTable(Bytes file) {
    for (std::size_t i = 0; i + 21 < file.size(); ++i) {
        if (file[i] != 0xFF || file[i + 1] != 0xC4) continue;
        std::uint8_t* counts = &file[i + 5];
        for (int length = 1; length < 16; ++length)
            if (counts[length] >= 3) {
                counts[length] -= 3;
                counts[0] += 3;
                return file;
            }
    }
    ADD_FAILURE() << "no Huffman table to break";
    return file;
}

TEST(JpegLoader, FailuresAreLoggedWithTheFileName) {
    ScratchDir dir;
    const Bytes good = makeJpeg(8, 8, 1, Bytes(64, 0x40));
    writeBytes("cut.jpg", Bytes(good.begin(), good.begin() + 10));
    writeBytes("huffman.jpg", breakHuffmanTable(good));

    EXPECT_EQ(failureLog([] { ImageLoader::LoadLayer32bpp("cut.jpg"); }, "loadJpg error"),
              std::vector<std::string>{"Cannot read JPEG file header from cut.jpg"});
    EXPECT_EQ(failureLog([] { ImageLoader::LoadLayer32bpp("missing.jpg"); }, "loadJpg error"),
              std::vector<std::string>{"Cannot read JPEG file header from missing.jpg"});
    EXPECT_EQ(failureLog([] { ImageLoader::LoadLayer32bpp("huffman.jpg"); }, "loadJpg error"),
              std::vector<std::string>{"Cannot read image data from huffman.jpg"});

    // A file cut inside its image data still loads: the library fills the rest.
    Bytes noise(64 * 64);
    for (std::size_t i = 0; i < noise.size(); ++i) noise[i] = static_cast<std::uint8_t>(i * 37 % 251);
    const Bytes large = makeJpeg(64, 64, 1, noise);
    writeBytes("short.jpg", Bytes(large.begin(), large.end() - 200));
    EXPECT_EQ(ImageLoader::LoadLayer32bpp("short.jpg")->width, 64);
}

}  // namespace
}  // namespace vz::test
