#include "LoaderChecks.hpp"

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

Pixels greyTable(int entries) {
    Pixels table;
    for (int i = 0; i < entries; ++i) table.push_back(static_cast<std::uint32_t>(i) * 0x010101u);
    return table;
}

Bytes load8(const std::string& fileName) {
    auto layer = ImageLoader::LoadLayer8bpp(fileName);
    return Bytes(layer->pixels, layer->pixels + layer->pixelCount());
}

// Noisy pictures fill the 4096-entry dictionary many times over, so the code width
// grows, the dictionary stops growing when full and clear codes restart it.
TEST(GifLoader, DecodesWhatTheEncoderWrote) {
    ScratchDir dir;
    const Bytes wide = noisyIndices(300 * 200, 256, 1);
    writeBytes("wide.gif",
               writers::encodeGif({300, 200, wide, greyTable(256)}, {.controlExtension = true, .lateClear = true}));
    EXPECT_EQ(load8("wide.gif"), wide);
    EXPECT_EQ(ImageLoader::LoadLayer32bpp("wide.gif")->pixels[299 * 200 + 17], wide[299 * 200 + 17] * 0x010101u);

    const Bytes few = noisyIndices(64 * 64, 4, 2);
    writeBytes("few.gif", writers::encodeGif({64, 64, few, greyTable(4)}, {.minimumCodeSize = 2}));
    EXPECT_EQ(load8("few.gif"), few);

    // Interlaced rows stay in the order decoded.
    const Bytes passOrder = {0, 4, 2, 6, 1, 3, 5, 7};
    writeBytes("lace.gif", writers::encodeGif({1, 8, passOrder, greyTable(8)}, {.interlaced = true}));
    EXPECT_EQ(load8("lace.gif"), passOrder);
}

TEST(GifLoader, LayerHasTheScreenSizeAndTheImageIsWrittenRowAfterRow) {
    ScratchDir dir;
    writeBytes("small.gif", writers::encodeGif({2, 2, {1, 2, 3, 4}}, {.screenWidth = 4, .screenHeight = 3}));
    EXPECT_EQ(load8("small.gif"), (Bytes{1, 2, 3, 4, 0, 0, 0, 0, 0, 0, 0, 0}));
    writeBytes("big.gif",
               writers::encodeGif({3, 3, {1, 2, 3, 4, 5, 6, 7, 1, 2}}, {.screenWidth = 2, .screenHeight = 2}));
    EXPECT_EQ(load8("big.gif"), (Bytes{1, 2, 3, 4}));
    // The code stream ends after three of the four pixels: the last one is 0.
    writeBytes("short.gif", writers::encodeGif({2, 2, {5, 6, 7}}));
    EXPECT_EQ(load8("short.gif"), (Bytes{5, 6, 7, 0}));
}

TEST(GifLoader, SixteenColourTableIsReadAs256Entries) {
    ScratchDir dir;
    Bytes file = writers::encodeGif({2, 1, {1, 2}, greyTable(16)}, {.tableEntries = 16});
    writeBytes("cut16.gif", file);
    // Too short to hold 256 entries: the table read runs into the end of the file.
    EXPECT_EQ(failureLog(asLayer8, "cut16.gif", "loadGif error : data ends early in cut16.gif"),
              framed("loadGif error in read_gif, the file was : cut16.gif"));

    // With a comment after the table, entries 16-255 are taken from the comment and the
    // reader goes on from inside it, skipping the bytes it does not know.
    Bytes comment(2 + 8 * 101, 100);  // eight sub-blocks of 100 bytes of 100
    comment[0] = 0x21, comment[1] = 0xFE, comment.push_back(0);
    file.insert(file.begin() + 13 + 48, comment.begin(), comment.end());
    writeBytes("comment16.gif", file);
    auto palette = ImageLoader::LoadPalette("comment16.gif");
    EXPECT_EQ(palette->colors[15], 0x0F0F0Fu);
    EXPECT_EQ(palette->colors[16], 0x21FE64u);
    EXPECT_EQ(palette->colors[17], 0x646464u);
    EXPECT_EQ(ImageLoader::LoadLayer32bpp("comment16.gif")->pixels[1], 0x020202u);
}

TEST(GifLoader, BadFilesGiveTheStepAndTheFile) {
    ScratchDir dir;
    const Bytes good = writers::encodeGif({4, 4, noisyIndices(16, 8, 3), greyTable(8)});
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

    const std::string sizeStep = "loadGif error in get_size, the file was : ";
    const std::string readStep = "loadGif error in read_gif, the file was : ";
    expectRefusals({
        {asLayer32, "sig.gif", "loadGif error", sizeStep},
        {asLayer8, "none.gif", "loadGif error", sizeStep},
        {asLayer8, "zero.gif", "loadGif error : picture size out of range in zero.gif", sizeStep},
        {asLayer32, "trailer.gif", "loadGif error", readStep},
        {asLayer8, "codesize.gif", "loadGif error", readStep},
        {asLayer8, "corrupt.gif", "loadGif error : corrupt picture data in corrupt.gif", readStep},
        {asLayer8, "cut.gif", "loadGif error : data ends early in cut.gif", readStep},
        // The palette entry point has its own texts, except the read step's log line.
        {asPalette, "sig.gif", "loadPaletteGif error", "loadPaletteGif error in get_size, the file was : "},
        {asPalette, "trailer.gif", "loadPaletteGif error", readStep},
    });
}

}  // namespace
}  // namespace vz::test
