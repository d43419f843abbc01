#include "tools/assetgen/NamedPalettes.hpp"

namespace vz::assetgen {

Palette tunnelPlasmaPalette() {
    Palette p;
    fillGradient(p, 0, 255,
                 {{10, 20, 60}, {40, 90, 200}, {160, 60, 200}, {250, 200, 90}, {120, 40, 120}, {10, 20, 60}});
    return p;
}

Palette firePalette() {
    Palette p;
    fillGradient(p, 0, 255, {{0, 0, 0}, {120, 0, 0}, {230, 60, 0}, {255, 170, 20}, {255, 240, 120}, {255, 255, 255}});
    return p;
}

Palette icePalette() {
    Palette p;
    fillGradient(p, 0, 255, {{0, 0, 0}, {0, 10, 90}, {20, 90, 200}, {80, 220, 255}, {200, 250, 255}, {255, 255, 255}});
    return p;
}

Palette rainbowPalette() {
    Palette p;
    fillGradient(
        p, 0, 255,
        {{255, 40, 40}, {255, 220, 40}, {40, 255, 80}, {40, 200, 255}, {120, 40, 255}, {255, 40, 200}, {255, 40, 40}});
    return p;
}

}  // namespace vz::assetgen
