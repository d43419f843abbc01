#include <gtest/gtest.h>

#include <minizip/zip.h>

#include "LoaderChecks.hpp"
#include "PictureWriters.hpp"
#include "assets/File.hpp"
#include "assets/ImageLoader.hpp"
#include "script/Layer.hpp"
#include "script/Palette.hpp"

namespace vz::test {
namespace {

const Bytes indices = {1, 2, 3, 4};

std::array<Rgb, 256> greys() {
    std::array<Rgb, 256> palette{};
    for (std::uint32_t i = 0; i < 256; ++i) palette[i] = i * 0x010101u;
    return palette;
}

TEST(ImageLoader, ExtensionIsTheExactTextAfterTheFirstDot) {
    ScratchDir dir;
    const Bytes pcx = makePcx(2, 2, indices, greys());
    for (const char* name : {"logo.PCX", "scene.v2.pcx", "noext"}) writeBytes(name, pcx);

    for (const std::string name : {"logo.PCX", "scene.v2.pcx", "noext"}) {
        EXPECT_EQ(failureLog([&] { ImageLoader::LoadLayer32bpp(name); },
                             "ImageLoader::LoadLayer32bpp : unknow file extention"),
                  framed("ImageLoader::LoadLayer32bpp : unknow file extention :" + name));
        EXPECT_EQ(failureLog([&] { ImageLoader::LoadLayer8bpp(name); },
                             "ImageLoader::LoadLayer8bpp : unknow file extention"),
                  framed("ImageLoader::LoadLayer8bpp : unknow file extention :" + name));
        EXPECT_EQ(failureLog([&] { ImageLoader::LoadPalette(name); }, "ImageLoader::LoadPalette : unknow file extention"),
                  framed("ImageLoader::LoadPalette : unknow file extention :" + name));
        EXPECT_EQ(failureLog([&] { ImageLoader::LoadLayerRle(name); },
                             "ImageLoader::LoadLayerRle : we support only pcx files!"),
                  framed("ImageLoader::LoadLayeRle : we support only pcx files! :" + name));
    }
}

TEST(ImageLoader, FormatsAnEntryPointDoesNotServe) {
    ScratchDir dir;
    writeBytes("pic.bmp", makeBmp24(2, 2, {0, 0, 0, 0}));
    writeBytes("pic.gif", makeGif(2, 2, indices, {}));
    failureLog([] { ImageLoader::LoadLayer8bpp("pic.bmp"); }, "ImageLoader::LoadLayer8bpp : unknow file extention");
    failureLog([] { ImageLoader::LoadPalette("pic.jpg"); }, "ImageLoader::LoadPalette : unknow file extention");
    failureLog([] { ImageLoader::LoadLayerRle("pic.gif"); }, "ImageLoader::LoadLayerRle : we support only pcx files!");
}

void addToZip(zipFile zip, const char* name, const Bytes& bytes) {
    zip_fileinfo info{};
    ASSERT_EQ(zipOpenNewFileInZip(zip, name, &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED, Z_DEFAULT_COMPRESSION),
              ZIP_OK);
    ASSERT_EQ(zipWriteInFileInZip(zip, bytes.data(), static_cast<unsigned>(bytes.size())), ZIP_OK);
    ASSERT_EQ(zipCloseFileInZip(zip), ZIP_OK);
}

struct DiskModeAtExit {
    ~DiskModeAtExit() { File::resetToDisk(); }
};

TEST(ImageLoader, PicturesComeFromTheArchive) {
    ScratchDir dir;
    zipFile zip = zipOpen("demo.zip", APPEND_STATUS_CREATE);
    ASSERT_NE(zip, nullptr);
    addToZip(zip, "Data/Logo.pcx", makePcx(2, 2, indices, greys()));
    addToZip(zip, "data/tile.gif", makeGif(2, 2, indices, {0, 0x111111, 0x222222, 0x333333, 0x444444}));
    ASSERT_EQ(zipClose(zip, nullptr), ZIP_OK);
    writeBytes("disk.pcx", makePcx(2, 2, indices, greys()));

    DiskModeAtExit restore;
    File::switchToArchive("demo.zip");
    auto logo = ImageLoader::LoadLayer8bpp("data/logo.pcx");
    EXPECT_EQ(Bytes(logo->pixels, logo->pixels + 4), indices);
    auto tile = ImageLoader::LoadLayer32bpp("data/tile.gif");
    EXPECT_EQ(tile->pixels[3], 0x444444u);
    failureLog([] { ImageLoader::LoadLayer32bpp("disk.pcx"); }, "loadPcx error");
}

}  // namespace
}  // namespace vz::test
