#include "script/Material.hpp"

#include <cstring>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "core/logstream.hpp"
#include "script/Repository.hpp"
#include "script/ResourceKinds.hpp"
#include "script/TextParser.hpp"
#include "script/TokenConversions.hpp"

namespace vz {

namespace {

// The symbol named by the next token, of kind T; the material keeps it alive.
template <class T>
T* take(Material& material, TextParser& parser, Repository& repository) {
    const Symbol& symbol = *repository.aquire(parser.getTokenCopy());
    T* data = &Repository::dataAs<T>(symbol);
    material.kept.push_back(symbol.shared());
    return data;
}

// Applies one key whose value is the rest of the parser's line; false for an unknown key.
bool applyKey(Material& material, const char* key, TextParser& parser, Repository& repository) {
    auto is = [key](const char* text) { return std::strcmp(key, text) == 0; };
    if (is("color"))
        material.color = repository.aquireAs<Color>(parser.getTokenCopy()).value;
    else if (is("map32bpp"))
        material.map32 = take<Layer32bpp>(material, parser, repository);
    else if (is("map8bpp"))
        material.map8 = take<Layer8bpp>(material, parser, repository);
    else if (is("lightmap8bpp"))
        material.lightmap8 = take<Layer8bpp>(material, parser, repository);
    else if (is("palette"))
        material.palette = take<Palette>(material, parser, repository);
    else if (is("lut"))
        material.lut = take<Layer32bpp>(material, parser, repository);
    else if (is("doubleface"))
        material.doubleFace = token2bool(parser.getToken());
    else if (is("id"))
        material.id = token2materialId(parser.getToken());
    else if (is("rendu"))
        material.rendu = token2rendu(parser.getToken());
    else if (is("solid"))
        material.solid = token2bool(parser.getToken());
    else if (is("sprite"))
        material.rendu += 256;
    else
        return false;
    return true;
}

}  // namespace

std::unique_ptr<Material> Material::load(const std::string& fileName, Repository& repository) {
    TextParser parser;
    parser.open(fileName);
    auto material = std::make_unique<Material>();
    while (parser.nextLine()) {
        std::string key = parser.getTokenCopy();
        if (!applyKey(*material, key.c_str(), parser, repository))
            logout() << "ResourceMaterial : unknow key " << key << lend;
    }
    return material;
}

std::shared_ptr<Material> sharedMaterial(Repository& repository, const std::string& name) {
    const Symbol& symbol = *repository.aquire(name);
    Repository::dataAs<Material>(symbol);
    return std::static_pointer_cast<Material>(symbol.shared());
}

namespace {

std::unique_ptr<Resource> buildMaterial(TextParser& parser, Repository& repository) {
    return Material::load(parser.getTokenCopy(), repository);
}

}  // namespace

VZ_RESOURCE_KIND("Material", buildMaterial)

}  // namespace vz
