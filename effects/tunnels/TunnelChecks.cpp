#include "effects/tunnels/TunnelChecks.hpp"

#include <string>

#include "shell/error.hpp"

namespace vz {

namespace {

std::string sizeText(const Layer& layer) { return std::to_string(layer.width) + "x" + std::to_string(layer.height); }

void requireFullTable(const Layer& layer, const char* keyword, const char* what) {
    if (layer.pixelCount() < 65536)
        throw error(std::string(keyword) + " : the " + what + " must hold 256x256 entries, it is " + sizeText(layer));
}

}  // namespace

void requireTexture(const Layer& texture, const char* keyword) { requireFullTable(texture, keyword, "texture"); }

void requireLut(const Layer& lut, const char* keyword) { requireFullTable(lut, keyword, "lut"); }

void requireCoversTarget(const Layer& layer, const Layer& target, const char* keyword, const char* role) {
    if (layer.pixelCount() < target.pixelCount())
        throw error(std::string(keyword) + " : the " + role + " is " + sizeText(layer) + ", smaller than the target " +
                    sizeText(target));
}

}  // namespace vz
