#include "effects/filters/LayerChecks.hpp"

#include "shell/error.hpp"
#include "shell/logstream.hpp"

namespace vz {

namespace {

std::string sizeText(const Layer& layer) { return std::to_string(layer.width) + "x" + std::to_string(layer.height); }

}  // namespace

void failComponent(const std::string& message) {
    logFramed(message);
    throw error(message);
}

void requireSameSize(const char* keyword, const char* role, const Layer& layer, const Layer& target) {
    if (layer.width == target.width && layer.height == target.height) return;
    failComponent(std::string(keyword) + " : " + role + " is " + sizeText(layer) + ", the target is " +
                  sizeText(target));
}

void requireCovers(const char* keyword, const char* role, const Layer& layer, const Layer& target) {
    if (layer.width >= target.width && layer.height >= target.height) return;
    failComponent(std::string(keyword) + " : " + role + " is " + sizeText(layer) + ", smaller than the target's " +
                  sizeText(target));
}

void requirePixelCount(const char* keyword, const char* role, const Layer& layer, const Layer& target) {
    if (layer.pixelCount() >= target.pixelCount()) return;
    failComponent(std::string(keyword) + " : " + role + " holds " + std::to_string(layer.pixelCount()) +
                  " pixels, the target needs " + std::to_string(target.pixelCount()));
}

void requireDistinct(const char* keyword, const Layer& target, const Layer& source) {
    if (&target != &source) return;
    failComponent(std::string(keyword) + " : target and source must be different layers");
}

}  // namespace vz
