#include <gtest/gtest.h>

#include "LoaderChecks.hpp"
#include "PictureWriters.hpp"
#include "assets/ImageLoader.hpp"
#include "script/Layer.hpp"
#include "script/Palette.hpp"

namespace vz::test {
namespace {

Bytes noisyIndices(int count, unsigned colours, unsigned seed) {
    Bytes indices(static_cast<std::size_t>(count));
    for (auto& v : indices) {
        seed = seed * 1103515245u + 12345u;
        v = static_cast<std::uint8_t>((seed >> 16) % colours);
    }
    return indices;
}

std::vector<Rgb> greyTable(int entries) {
    std::vector<Rgb> table;
    for (int i = 0; i < entries; ++i) table.push_back(static_cast<Rgb>(i) * 0x010101u);
    return table;
}

Bytes layerBytes(const Layer8bpp& layer) { return Bytes(layer.pixels, layer.pixels + layer.pixelCount()); }

// Noisy pictures fill the 4096-entry dictionary many times over, so the code width
// grows, the dictionary stops growing when full and clear codes restart it.
TEST(GifLoader, DecodesWhatTheEncoderWrote) {
    ScratchDir dir;
    const Bytes wide = noisyIndices(300 * 200, 256, 1);
    writeBytes("wide.gif", makeGif(300, 200, wide, greyTable(256)));
    auto layer8 = ImageLoader::LoadLayer8bpp("wide.gif");
    ASSERT_EQ(layer8->width, 300);
    EXPECT_EQ(layerBytes(*layer8), wide);
    auto layer32 = ImageLoader::LoadLayer32bpp("wide.gif");
    EXPECT_EQ(layer32->pixels[299 * 200 + 17], wide[299 * 200 + 17] * 0x010101u);

    const Bytes few = noisyIndices(64 * 64, 4, 2);
    writeBytes("few.gif", makeGif(64, 64, few, greyTable(4), {.minimumCodeSize = 2}));
    EXPECT_EQ(layerBytes(*ImageLoader::LoadLayer8bpp("few.gif")), few);
}

TEST(GifLoader, LayerHasTheScreenSizeAndTheImageIsWrittenRowAfterRow) {
    ScratchDir dir;
    writeBytes("small.gif", makeGif(2, 2, {1, 2, 3, 4}, greyTable(8), {.screenWidth = 4, .screenHeight = 3}));
    EXPECT_EQ(layerBytes(*ImageLoader::LoadLayer8bpp("small.gif")), (Bytes{1, 2, 3, 4, 0, 0, 0, 0, 0, 0, 0, 0}));

    writeBytes("big.gif",
               makeGif(3, 3, {1, 2, 3, 4, 5, 6, 7, 1, 2}, greyTable(8), {.screenWidth = 2, .screenHeight = 2}));
    auto clipped = ImageLoader::LoadLayer32bpp("big.gif");
    EXPECT_EQ(std::vector<Rgb>(clipped->pixels, clipped->pixels + 4),
              (std::vector<Rgb>{0x010101, 0x020202, 0x030303, 0x040404}));

    // The code stream ends after three of the four pixels: the last one is 0.
    writeBytes("short.gif", makeGif(2, 2, {5, 6, 7}, greyTable(8)));
    EXPECT_EQ(layerBytes(*ImageLoader::LoadLayer8bpp("short.gif")), (Bytes{5, 6, 7, 0}));
}

TEST(GifLoader, InterlacedRowsStayInTheOrderDecoded) {
    ScratchDir dir;
    const Bytes passOrder = {0, 4, 2, 6, 1, 3, 5, 7};  // rows 0..7 as an interlacing encoder sends them
    writeBytes("lace.gif", makeGif(1, 8, passOrder, greyTable(8), {.interlaced = true}));
    EXPECT_EQ(layerBytes(*ImageLoader::LoadLayer8bpp("lace.gif")), passOrder);
}

TEST(GifLoader, SixteenColourTableIsReadAs256Entries) {
    ScratchDir dir;
    Bytes file = makeGif(2, 1, {1, 2}, greyTable(16), {.globalTableEntries = 16});
    writeBytes("cut16.gif", file);
    // Too short to hold 256 entries: the table read runs into the end of the file.
    EXPECT_EQ(failureLog([] { ImageLoader::LoadLayer8bpp("cut16.gif"); }, "loadGif error : data ends early in cut16.gif"),
              framed("loadGif error in read_gif, the file was : cut16.gif"));

    // With a comment after the table, entries 16-255 are taken from the comment and the
    // reader goes on from inside it, skipping the bytes it does not know.
    Bytes comment = {0x21, 0xFE};
    for (int block = 0; block < 8; ++block) {
        comment.push_back(100);
        comment.insert(comment.end(), 100, 0x05);
    }
    comment.push_back(0);
    file.insert(file.begin() + 13 + 48, comment.begin(), comment.end());
    writeBytes("comment16.gif", file);
    auto palette = ImageLoader::LoadPalette("comment16.gif");
    EXPECT_EQ(palette->colors[15], 0x0F0F0Fu);
    EXPECT_EQ(palette->colors[16], 0x21FE64u);
    EXPECT_EQ(palette->colors[17], 0x050505u);
    auto layer = ImageLoader::LoadLayer32bpp("comment16.gif");
    EXPECT_EQ(layer->pixels[1], 0x020202u);
}

TEST(GifLoader, BadFilesGiveTheStepAndTheFile) {
    ScratchDir dir;
    const Bytes good = makeGif(4, 4, noisyIndices(16, 8, 3), greyTable(8));
    const Bytes start(good.begin(), good.begin() + 13 + 768);  // signature, screen, table
    auto withImage = [&](Bytes tail) {
        Bytes file = start;
        file.insert(file.end(), {0x2C, 0, 0, 0, 0, 4, 0, 4, 0, 0});
        file.insert(file.end(), tail.begin(), tail.end());
        return file;
    };
    writeBytes("sig.gif", Bytes{'G', 'I', 'X', '8', '9', 'a', 4, 0, 4, 0, 0, 0, 0});
    writeBytes("zero.gif", Bytes{'G', 'I', 'F', '8', '9', 'a', 0, 0, 4, 0, 0, 0, 0});
    Bytes trailer = start;
    trailer.push_back(0x3B);
    writeBytes("trailer.gif", trailer);
    writeBytes("codesize.gif", withImage({12, 1, 0, 0}));
    writeBytes("corrupt.gif", withImage({2, 1, 0x3C, 0}));  // clear, then code 7 with nothing before it
    writeBytes("cut.gif", Bytes(good.begin(), good.end() - 10));

    const auto sizeFrame = [](const char* f) { return framed(std::string("loadGif error in get_size, the file was : ") + f); };
    const auto readFrame = [](const char* f) { return framed(std::string("loadGif error in read_gif, the file was : ") + f); };
    EXPECT_EQ(failureLog([] { ImageLoader::LoadLayer32bpp("sig.gif"); }, "loadGif error"), sizeFrame("sig.gif"));
    EXPECT_EQ(failureLog([] { ImageLoader::LoadLayer8bpp("none.gif"); }, "loadGif error"), sizeFrame("none.gif"));
    EXPECT_EQ(failureLog([] { ImageLoader::LoadLayer8bpp("zero.gif"); },
                         "loadGif error : picture size out of range in zero.gif"),
              sizeFrame("zero.gif"));
    EXPECT_EQ(failureLog([] { ImageLoader::LoadLayer32bpp("trailer.gif"); }, "loadGif error"), readFrame("trailer.gif"));
    EXPECT_EQ(failureLog([] { ImageLoader::LoadLayer8bpp("codesize.gif"); }, "loadGif error"), readFrame("codesize.gif"));
    EXPECT_EQ(failureLog([] { ImageLoader::LoadLayer8bpp("corrupt.gif"); },
                         "loadGif error : corrupt picture data in corrupt.gif"),
              readFrame("corrupt.gif"));
    failureLog([] { ImageLoader::LoadLayer8bpp("cut.gif"); }, "loadGif error : data ends early in cut.gif");

    // The palette entry point has its own texts, except the read step's log line.
    EXPECT_EQ(failureLog([] { ImageLoader::LoadPalette("sig.gif"); }, "loadPaletteGif error"),
              framed("loadPaletteGif error in get_size, the file was : sig.gif"));
    EXPECT_EQ(failureLog([] { ImageLoader::LoadPalette("trailer.gif"); }, "loadPaletteGif error"), readFrame("trailer.gif"));
}

}  // namespace
}  // namespace vz::test
