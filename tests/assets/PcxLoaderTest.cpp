#include "LoaderChecks.hpp"

namespace vz::test {
namespace {

Pixels rampPalette() {
    Pixels palette(256);
    for (std::uint32_t i = 0; i < 256; ++i) palette[i] = i << 16 | (255 - i) << 8 | (i * 7 & 255);
    return palette;
}

// 5 x 3 with runs, single pixels, values that need the run form, and zeros on both
// sides of a row end (the RLE layer cuts its runs there).
const Bytes pcxIndices = {7, 7, 7, 200, 0, 0, 0, 0, 0, 0, 255, 9, 9, 2, 2};

TEST(PcxLoader, EveryEntryPointGivesThePicture) {
    ScratchDir dir;
    const Pixels palette = rampPalette();
    writeBytes("pic.pcx", writers::encodePcx({5, 3, pcxIndices, palette}));
    auto layer32 = ImageLoader::LoadLayer32bpp("pic.pcx");
    ASSERT_EQ(layer32->width, 5);
    ASSERT_EQ(layer32->height, 3);
    for (int i = 0; i < 15; ++i) EXPECT_EQ(layer32->pixels[i], palette[pcxIndices[i]]) << i;
    auto layer8 = ImageLoader::LoadLayer8bpp("pic.pcx");
    EXPECT_EQ(Bytes(layer8->pixels, layer8->pixels + 15), pcxIndices);
    const auto colours = ImageLoader::LoadPalette("pic.pcx")->colors;
    EXPECT_EQ(Pixels(colours.begin(), colours.end()), palette);
    auto rle = ImageLoader::LoadLayerRle("pic.pcx");
    EXPECT_EQ(rle->width, 5);
    EXPECT_EQ(rle->data, (Bytes{3, 7, 1, 200, 1, 0, 5, 0, 1, 255, 2, 9, 2, 2}));

    // 2 x 2: one literal, then a run of 63 that passes the end by 60 bytes; the marker
    // and the palette follow the run.
    Bytes file = writers::encodePcx({2, 2});
    file.resize(128);
    file.insert(file.end(), {5, 0xFF, 9, 12});
    for (int i = 0; i < 256; ++i) file.insert(file.end(), {static_cast<std::uint8_t>(i), 0, 0});
    writeBytes("long.pcx", file);
    auto layer = ImageLoader::LoadLayer8bpp("long.pcx");
    EXPECT_EQ(Bytes(layer->pixels, layer->pixels + 4), (Bytes{5, 9, 9, 9}));
    EXPECT_EQ(ImageLoader::LoadPalette("long.pcx")->colors[3], 0x030000u);
}

TEST(PcxLoader, BadFilesReportTheDecoderAndTheFile) {
    ScratchDir dir;
    const Bytes good = writers::encodePcx({5, 3, pcxIndices, rampPalette()});
    Bytes version = good, huge = good;
    version[1] = 4;
    huge[4] = 0x00, huge[5] = 0x80, huge[8] = 0xFF, huge[9] = 0x7F;  // xmin -32768, xmax 32767
    writeBytes("version.pcx", version);
    writeBytes("cut.pcx", Bytes(good.begin(), good.begin() + 133));
    writeBytes("nopalette.pcx", Bytes(good.begin(), good.end() - 10));
    writeBytes("huge.pcx", huge);

    const std::string layerLog = "loadPcx error, the file was : ", paletteLog = "loadPalettePcx error, the file was : ";
    expectRefusals({
        {asLayer32, "version.pcx", "loadPcx error", layerLog},
        {asLayer8, "missing.pcx", "loadPcx error", layerLog},
        {asPalette, "version.pcx", "loadPalettePcx error", paletteLog},
        {asLayerRle, "cut.pcx", "loadPcx error : data ends early in cut.pcx", layerLog},
        {asPalette, "nopalette.pcx", "loadPalettePcx error : data ends early in nopalette.pcx", paletteLog},
        {asLayer32, "huge.pcx", "loadPcx error : picture size out of range in huge.pcx", layerLog},
    });
}

}  // namespace
}  // namespace vz::test
