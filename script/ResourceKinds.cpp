#include "script/ResourceKinds.hpp"

#include <cstring>

#include "assets/ImageLoader.hpp"
#include "engine3d/Scene.hpp"
#include "script/Keytrack.hpp"
#include "script/Layer.hpp"
#include "script/Material.hpp"
#include "script/OffsetsTable.hpp"
#include "script/Palette.hpp"
#include "script/Rawdata.hpp"
#include "script/Repository.hpp"
#include "script/Text.hpp"
#include "script/TextParser.hpp"
#include "script/Zbuffer.hpp"
#include "shell/logstream.hpp"

namespace vz {

namespace {

struct Size {
    int width = 0;
    int height = 0;
};

// "size" w h, or "sizeof" symbol (a layer of any kind): the size a declaration asks
// for. False when the token is not one of these words (it then names a file).
bool readDeclaredSize(const char* kind, const std::string& token, TextParser& parser, Size& size) {
    if (token == "size") {
        int w = parser.getInt();
        int h = parser.getInt();
        Layer::checkSize(kind, w, h);
        size = {w, h};
        return true;
    }
    if (token == "sizeof") {
        const Layer& layer = Repository::instance().aquireAs<Layer>(parser.getTokenCopy());
        size = {layer.width, layer.height};
        return true;
    }
    return false;
}

// A picture kind: an empty layer of a declared size, or a picture file.
template <class L, std::unique_ptr<L> (*loadPicture)(const std::string&)>
std::unique_ptr<Resource> buildLayer(TextParser& parser) {
    std::string token = parser.getTokenCopy();
    Size size;
    if (readDeclaredSize(L::staticKind(), token, parser, size)) return std::make_unique<L>(size.width, size.height);
    return requirePicture(loadPicture(token), token);
}

std::unique_ptr<Resource> buildLayerRle(TextParser& parser) {
    std::string file = parser.getTokenCopy();
    return requirePicture(ImageLoader::LoadLayerRle(file), file);
}

std::unique_ptr<Resource> buildOffsetsTable(TextParser& parser) {
    std::string token = parser.getTokenCopy();
    Size size;
    if (readDeclaredSize(OffsetsTable::staticKind(), token, parser, size))
        return std::make_unique<OffsetsTable>(size.width, size.height);
    std::string fileB = parser.getTokenCopy();
    return OffsetsTable::load(token, fileB);
}

std::unique_ptr<Resource> buildZbuffer(TextParser& parser) {
    int w = parser.getInt();
    int h = parser.getInt();
    Layer::checkSize(Zbuffer::staticKind(), w, h);
    return std::make_unique<Zbuffer>(w, h);
}

std::unique_ptr<Resource> buildPalette(TextParser& parser) {
    std::string file = parser.getTokenCopy();
    return requirePicture(ImageLoader::LoadPalette(file), file);
}

std::unique_ptr<Resource> buildColor(TextParser& parser) {
    // The integers come as byte 3, byte 0, byte 1, byte 2 (free byte, blue, green, red).
    static constexpr int shifts[] = {24, 0, 8, 16};
    std::uint32_t value = 0;
    for (int shift : shifts) value |= (static_cast<std::uint32_t>(parser.getInt()) & 0xFF) << shift;
    return std::make_unique<Color>(value);
}

// Kinds whose loaders belong to the 3D engine and do not exist yet.
[[noreturn]] void notAvailable(const std::string& message) {
    logFramed(message);
    throw error(message);
}
std::unique_ptr<Resource> buildMeshe(TextParser&) { notAvailable("Meshe : 3D meshes are not available yet"); }
std::unique_ptr<Resource> buildMesheMaterial(TextParser&) {
    notAvailable("MesheMaterial : 3D meshes are not available yet");
}
std::unique_ptr<Resource> buildSceneMax(TextParser&) { notAvailable("SceneMax : 3D scenes are not available yet"); }

std::unique_ptr<Resource> buildMaterial(TextParser& parser) { return Material::load(parser.getTokenCopy()); }

std::unique_ptr<Resource> buildScene(TextParser&) { return std::make_unique<Scene>(); }

template <class T>
std::unique_ptr<Resource> buildKeytrack(TextParser& parser) {
    return T::load(parser.getTokenCopy());
}

std::unique_ptr<Resource> buildText(TextParser& parser) { return Text::open(parser.getTokenCopy()); }

std::unique_ptr<Resource> buildRawdata(TextParser& parser) { return Rawdata::load(parser.getTokenCopy()); }

constexpr ResourceKind kinds[] = {
    {"LayerRle", buildLayerRle},
    {"Layer8bpp", buildLayer<Layer8bpp, ImageLoader::LoadLayer8bpp>},
    {"Layer32bpp", buildLayer<Layer32bpp, ImageLoader::LoadLayer32bpp>},
    {"OffsetsTable", buildOffsetsTable},
    {"Zbuffer", buildZbuffer},
    {"Palette", buildPalette},
    {"Color", buildColor},
    {"Meshe", buildMeshe},
    {"MesheMaterial", buildMesheMaterial},
    {"Material", buildMaterial},
    {"Scene", buildScene},
    {"SceneMax", buildSceneMax},
    {"KeytrackSprite", buildKeytrack<KeytrackSprite>},
    {"KeytrackVector3", buildKeytrack<KeytrackVector3>},
    {"KeytrackVector2", buildKeytrack<KeytrackVector2>},
    {"KeytrackFloat", buildKeytrack<KeytrackFloat>},
    {"KeytrackInt", buildKeytrack<KeytrackInt>},
    {"Text", buildText},
    {"Rawdata", buildRawdata},
};

}  // namespace

const ResourceKind* findResourceKind(const char* keyword) {
    for (const ResourceKind& kind : kinds)
        if (std::strcmp(kind.keyword, keyword) == 0) return &kind;
    return nullptr;
}

}  // namespace vz
