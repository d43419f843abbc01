#include "LoaderChecks.hpp"
#include "assets/decoders/BmpReport.hpp"

namespace vz::test {
namespace {

Pixels loadQuietly(const std::string& fileName) {
    testing::internal::CaptureStdout();
    auto layer = ImageLoader::LoadLayer32bpp(fileName);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");  // the loaders report nothing
    return Pixels(layer->pixels, layer->pixels + layer->pixelCount());
}

const Pixels table = {0xABCDEF, 0x110000, 0x002200, 0x000033, 0x444444, 0x555555};

TEST(BmpLoader, EveryDepthGivesItsPicture) {
    ScratchDir dir;
    const Pixels pixels = {0x010203, 0x040506, 0x070809, 0x0A0B0C, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};
    writeBytes("wide.bmp", writers::encodeBmp24({4, 2, pixels}));
    EXPECT_EQ(loadQuietly("wide.bmp"), pixels);  // rows come top down

    // Width 1: one byte of padding is not skipped, so the bottom row is read right and
    // each row above starts one byte later than stored.
    writeBytes("narrow.bmp", writers::encodeBmp24({1, 3, {0x102030, 0x405060, 0x708090}}));
    EXPECT_EQ(loadQuietly("narrow.bmp"), (Pixels{0x300040, 0x506000, 0x708090}));

    const Bytes bits1 = {0, 1, 1, 0, 1, 0, 0, 0, 1, 1, 1, 0, 0, 1, 0, 1, 1, 1, 0, 0};
    Pixels mono;
    for (auto bit : bits1) mono.push_back(bit ? 0xFFFFFF : 0);
    writeBytes("mono.bmp", writers::encodeBmpIndexed({10, 2, bits1, {0x000000, 0xFFFFFF}}, 1));
    EXPECT_EQ(loadQuietly("mono.bmp"), mono);

    const Bytes indices = {5, 0, 3, 1, 4, 2};
    Pixels expected;
    for (auto i : indices) expected.push_back(table[i]);
    for (int bitCount : {4, 8}) {
        writeBytes("indexed.bmp", writers::encodeBmpIndexed({3, 2, indices, table}, bitCount));
        EXPECT_EQ(loadQuietly("indexed.bmp"), expected) << bitCount;
    }
}

TEST(BmpLoader, RunLengthData) {
    ScratchDir dir;
    const Bytes rle8 = {3, 1, 0, 0,              // bottom row: three of index 1, end of line
                        0, 2, 2, 0,              // skip two pixels right
                        0, 3, 2, 3, 2, 0, 0, 0,  // three literals (the last falls outside), pad, end of line
                        2, 4, 0, 1};             // two of index 4, end of bitmap
    writeBytes("rle8.bmp", writers::encodeBmpRle({4, 3, {}, table}, 8, rle8));
    // Pixels the stream never reaches are black, not colour 0.
    EXPECT_EQ(loadQuietly("rle8.bmp"), (Pixels{table[4], table[4], 0, 0,  //
                                               0, 0, table[2], table[3],  //
                                               table[1], table[1], table[1], 0}));

    // An odd RLE4 run ends on a high nibble; a literal of three nibbles takes two bytes.
    writeBytes("rle4.bmp", writers::encodeBmpRle({6, 1, {}, table}, 4, {3, 0x12, 0, 3, 0x34, 0x50, 0, 1}));
    EXPECT_EQ(loadQuietly("rle4.bmp"), (Pixels{table[1], table[2], table[1], table[3], table[4], table[5]}));
}

TEST(BmpLoader, HeaderReportAtTheFullLevel) {
    BmpHeader header;
    ASSERT_EQ(readBmpHeader(writers::encodeBmp24({2, 2, {0, 0, 0, 0}}), header), DecodeStatus::ok);
    testing::internal::CaptureStdout();
    printBmpHeaderReport(header, fullReportLevel);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "\n\nFile Type ............ : BM\nFile Size ............ : 70\nBitmap Offset ........ : 54"
              "\nBitmap Header Size ... : 28\nWidth ................ : 2\nHeight ............... : 2"
              "\nPlanes ............... : 1\nBits Per Pixel ....... : 24 <=>BPP_24BIT_TRUECOLOR"
              "\nCompression .......... : BI_RGB <=> uncompressedBitmap Size .......... : 16"
              "\nHResolution .......... : 2835 pixels per meter\nVResolution .......... : 2835 pixels per meter"
              "\nColors ............... : 0\nImportant Colors ..... : 0\n");
}

TEST(BmpLoader, BadFilesGiveTheFramedLogAndTheirText) {
    ScratchDir dir;
    const Bytes good = writers::encodeBmp24({3, 3, Pixels(9, 0x123456)});
    auto changed = [&](std::size_t at, std::uint8_t value) {
        Bytes file = good;
        file[at] = value;
        return file;
    };
    writeBytes("type.bmp", changed(1, 'X'));
    writeBytes("depth.bmp", changed(28, 16));
    writeBytes("huge.bmp", changed(20, 1));  // width 3 + 2^16
    writeBytes("cut.bmp", Bytes(good.begin(), good.end() - 5));
    writeBytes("header.bmp", Bytes(good.begin(), good.begin() + 30));
    writeBytes("rlecut.bmp", writers::encodeBmpRle({4, 3, {}, table}, 8, {3, 1, 0, 0, 0, 5, 1}));

    const struct {
        std::string file, message, printed;
    } cases[] = {
        {"type.bmp", "loadBmp error", "\n\nError : Unsupported file format.\n\nFile : type.bmp\n\n"},
        {"depth.bmp", "loadBmp error", "\nError : Unsupported biBitCount.\n\n"},
        {"missing.bmp", "loadBmp error", ""},
        {"cut.bmp", "loadBmp error : data ends early in cut.bmp", ""},
        {"header.bmp", "loadBmp error : data ends early in header.bmp", ""},
        {"rlecut.bmp", "loadBmp error : data ends early in rlecut.bmp", ""},
        {"huge.bmp", "loadBmp error : picture size out of range in huge.bmp", ""},
    };
    for (const auto& c : cases) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(failureLog(asLayer32, c.file, c.message), framed("loadBmp error, the file was : " + c.file));
        EXPECT_EQ(testing::internal::GetCapturedStdout(), c.printed) << c.file;
    }
}

}  // namespace
}  // namespace vz::test
