#pragma once
// How the 3D rasterizers paint a face: blend mode, rasterizer kind, flags, and the
// layers, look-up table, colour and palette they read. Declared by "add name Material
// file"; the file holds one "key value" line per setting.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/Resource.hpp"

namespace vz {

class Layer32bpp;
class Layer8bpp;
class Palette;
class Repository;

class Material : public Resource {
public:
    static const char* staticKind() { return "Material"; }
    const char* kindName() const override { return staticKind(); }

    // Keys, tried in this order: "color" colourSymbol, "map32bpp" layer, "map8bpp" layer,
    // "lightmap8bpp" layer, "palette" palette, "lut" 32-bit layer, "doubleface" bool,
    // "id" materialId, "rendu" blendMode, "solid" bool, "sprite" (no value: adds 256 to
    // the blend mode, so it must come after "rendu", which overwrites the whole mode).
    // An unknown key is logged and its line skipped; a missing symbol is fatal.
    static std::unique_ptr<Material> load(const std::string& fileName, Repository& repository);

    int rendu = 32;  // blend mode; bit 8 is the sprite flag
    // How the z-buffer renderers treat the depth of this material's faces: 2 tests and
    // writes, 0 tests only, 3 and 1 draw without the z-buffer. No key sets it.
    int zMode = 2;
    int id = 4;  // rasterizer kind ("flatColor")
    bool doubleFace = false;
    bool solid = true;
    Layer32bpp* map32 = nullptr;  // the symbols' data, kept alive by `kept`
    Layer8bpp* map8 = nullptr;
    Layer8bpp* lightmap8 = nullptr;
    Layer32bpp* lut = nullptr;         // 256 x 256 light x colour table
    std::uint32_t color = 0x000000FF;  // copied from the colour symbol
    Palette* palette = nullptr;
    // The layers, table and palette named by the file: they live at least as long as the
    // material, even when a script drops their names.
    std::vector<std::shared_ptr<Resource>> kept;
};

// The material declared under `name`, shared with the repository so that a mesh or a
// component can keep it alive; a missing name or another kind is fatal.
std::shared_ptr<Material> sharedMaterial(Repository& repository, const std::string& name);

}  // namespace vz
