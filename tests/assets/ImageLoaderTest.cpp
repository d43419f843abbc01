// Which entry point serves which name. Pictures read from an archive are played by the
// sample demo test's zip run.
#include "LoaderChecks.hpp"

namespace vz::test {
namespace {

std::string greyPcx() {
    const Bytes file = writers::encodePcx({2, 2, {1, 2, 3, 4}, {0, 0x010101, 0x020202, 0x030303, 0x040404}});
    return std::string(file.begin(), file.end());
}

// The extension is the exact text after the first dot, and each entry point serves only
// its formats; the files hold a good PCX picture, so only the name can refuse them.
TEST(ImageLoader, NamesAnEntryPointDoesNotServe) {
    ScratchDir dir;
    const struct {
        EntryPoint load;
        std::string message, log;
        std::vector<std::string> otherFormats;
    } entryPoints[] = {
        {asLayer32, "ImageLoader::LoadLayer32bpp : unknow file extention", "", {}},
        {asLayer8, "ImageLoader::LoadLayer8bpp : unknow file extention", "", {"pic.bmp", "pic.jpg"}},
        {asPalette, "ImageLoader::LoadPalette : unknow file extention", "", {"pic.bmp", "pic.jpg"}},
        {asLayerRle,
         "ImageLoader::LoadLayerRle : we support only pcx files!",
         "ImageLoader::LoadLayeRle : we support only pcx files!",
         {"pic.gif", "pic.bmp", "pic.jpg"}},
    };
    for (const auto& entry : entryPoints) {
        std::vector<std::string> names = {"logo.PCX", "scene.v2.pcx", "noext"};
        names.insert(names.end(), entry.otherFormats.begin(), entry.otherFormats.end());
        for (const std::string& name : names) {
            writeFile(name, greyPcx());
            expectRefusals({{entry.load, name, entry.message, (entry.log.empty() ? entry.message : entry.log) + " :"}});
        }
    }
}

}  // namespace
}  // namespace vz::test
