// The declarations of the pixel buffers: layers (empty, or from a picture file), the
// run-length layer, palettes, colours and z-buffers.
#include <cstdint>

#include "assets/ImageLoader.hpp"
#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "core/Zbuffer.hpp"
#include "script/DeclaredSize.hpp"
#include "script/Repository.hpp"
#include "script/ResourceKinds.hpp"
#include "script/TextParser.hpp"

namespace vz {

bool readDeclaredSize(const char* kind, const std::string& token, TextParser& parser, Repository& repository,
                      DeclaredSize& size) {
    if (token == "size") {
        int w = parser.getInt();
        int h = parser.getInt();
        Layer::checkSize(kind, w, h);
        size = {w, h};
        return true;
    }
    if (token == "sizeof") {
        const Layer& layer = repository.aquireAs<Layer>(parser.getTokenCopy());
        size = {layer.width, layer.height};
        return true;
    }
    return false;
}

namespace {

// A picture kind: an empty layer of a declared size, or a picture file.
template <class L, std::unique_ptr<L> (*loadPicture)(const std::string&)>
std::unique_ptr<Resource> buildLayer(TextParser& parser, Repository& repository) {
    std::string token = parser.getTokenCopy();
    DeclaredSize size;
    if (readDeclaredSize(L::staticKind(), token, parser, repository, size))
        return std::make_unique<L>(size.width, size.height);
    return requirePicture(loadPicture(token), token);
}

std::unique_ptr<Resource> buildLayerRle(TextParser& parser, Repository&) {
    std::string file = parser.getTokenCopy();
    return requirePicture(ImageLoader::LoadLayerRle(file), file);
}

std::unique_ptr<Resource> buildZbuffer(TextParser& parser, Repository&) {
    int w = parser.getInt();
    int h = parser.getInt();
    Layer::checkSize(Zbuffer::staticKind(), w, h);
    return std::make_unique<Zbuffer>(w, h);
}

std::unique_ptr<Resource> buildPalette(TextParser& parser, Repository&) {
    std::string file = parser.getTokenCopy();
    return requirePicture(ImageLoader::LoadPalette(file), file);
}

std::unique_ptr<Resource> buildColor(TextParser& parser, Repository&) {
    // The integers come as byte 3, byte 0, byte 1, byte 2 (free byte, blue, green, red).
    static constexpr int shifts[] = {24, 0, 8, 16};
    std::uint32_t value = 0;
    for (int shift : shifts) value |= (static_cast<std::uint32_t>(parser.getInt()) & 0xFF) << shift;
    return std::make_unique<Color>(value);
}

}  // namespace

VZ_RESOURCE_KIND("LayerRle", buildLayerRle)
VZ_RESOURCE_KIND("Layer8bpp", (buildLayer<Layer8bpp, ImageLoader::LoadLayer8bpp>))
VZ_RESOURCE_KIND("Layer32bpp", (buildLayer<Layer32bpp, ImageLoader::LoadLayer32bpp>))
VZ_RESOURCE_KIND("Zbuffer", buildZbuffer)
VZ_RESOURCE_KIND("Palette", buildPalette)
VZ_RESOURCE_KIND("Color", buildColor)

}  // namespace vz
