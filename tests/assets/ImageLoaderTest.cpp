#include <gtest/gtest.h>

#include "LoaderChecks.hpp"
#include "PictureWriters.hpp"
#include "assets/File.hpp"
#include "support/ZipWriter.hpp"

namespace vz::test {
namespace {

const Bytes indices = {1, 2, 3, 4};

std::string greyPcx() {
    std::array<Rgb, 256> palette{};
    for (std::uint32_t i = 0; i < 256; ++i) palette[i] = i * 0x010101u;
    const Bytes file = makePcx(2, 2, indices, palette);
    return std::string(file.begin(), file.end());
}

// The extension is the exact text after the first dot, and each entry point serves only
// its formats; the files hold a good PCX picture, so only the name can refuse them.
TEST(ImageLoader, NamesAnEntryPointDoesNotServe) {
    ScratchDir dir;
    const struct {
        EntryPoint load;
        std::string message, log, served;
        std::vector<std::string> otherFormats;
    } entryPoints[] = {
        {asLayer32, "ImageLoader::LoadLayer32bpp : unknow file extention", "", "pcx, gif, bmp, jpg", {}},
        {asLayer8, "ImageLoader::LoadLayer8bpp : unknow file extention", "", "pcx, gif", {"pic.bmp", "pic.jpg"}},
        {asPalette, "ImageLoader::LoadPalette : unknow file extention", "", "pcx, gif", {"pic.bmp", "pic.jpg"}},
        {asLayerRle,
         "ImageLoader::LoadLayerRle : we support only pcx files!",
         "ImageLoader::LoadLayeRle : we support only pcx files!",
         "pcx",
         {"pic.gif", "pic.bmp", "pic.jpg"}},
    };
    for (const auto& entry : entryPoints) {
        std::vector<std::string> names = {"logo.PCX", "scene.v2.pcx", "noext"};
        names.insert(names.end(), entry.otherFormats.begin(), entry.otherFormats.end());
        for (const std::string& name : names) {
            writeFile(name, greyPcx());
            const std::string line =
                entry.message + " (" + name + ": the text after the first dot is not one of " + entry.served + ")";
            expectRefusals({{entry.load, name, line, (entry.log.empty() ? entry.message : entry.log) + " :"}});
        }
    }
}

struct DiskModeAtExit {
    ~DiskModeAtExit() { File::resetToDisk(); }
};

TEST(ImageLoader, PicturesComeFromTheArchive) {
    ScratchDir dir;
    writeZip("demo.zip", {{"Data/Logo.pcx", greyPcx()}});
    writeFile("disk.pcx", greyPcx());
    DiskModeAtExit restore;
    File::switchToArchive("demo.zip");
    auto logo = ImageLoader::LoadLayer8bpp("data/logo.pcx");
    EXPECT_EQ(Bytes(logo->pixels, logo->pixels + 4), indices);
    expectRefusals({{asLayer32, "disk.pcx", "loadPcx error (disk.pcx: the archive demo.zip has no member disk.pcx)",
                     "loadPcx error, the file was : "}});
}

}  // namespace
}  // namespace vz::test
