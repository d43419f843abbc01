// Picture decoding is not built yet: every entry point says so with a clear error.
#include "assets/ImageLoader.hpp"

#include "script/Layer.hpp"
#include "script/Palette.hpp"
#include "shell/error.hpp"

namespace vz::ImageLoader {

namespace {
[[noreturn]] void notBuilt(const char* entry, const std::string& fileName) {
    throw error(std::string(entry) + " : picture loading is not available yet (" + fileName + ")");
}
}  // namespace

std::unique_ptr<Layer32bpp> LoadLayer32bpp(const std::string& f) { notBuilt("ImageLoader::LoadLayer32bpp", f); }
std::unique_ptr<Layer8bpp> LoadLayer8bpp(const std::string& f) { notBuilt("ImageLoader::LoadLayer8bpp", f); }
std::unique_ptr<Palette> LoadPalette(const std::string& f) { notBuilt("ImageLoader::LoadPalette", f); }
std::unique_ptr<LayerRle> LoadLayerRle(const std::string& f) { notBuilt("ImageLoader::LoadLayerRle", f); }

}  // namespace vz::ImageLoader
