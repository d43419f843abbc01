#include "effects/palettes/Lut.hpp"

#include <string>

#include "effects/layers/ComponentParams.hpp"
#include "script/Repository.hpp"

namespace vz {

Layer32bpp& lutParam(TextParser& parser, const char* keyword) {
    const std::string name = parser.getTokenCopy();
    Layer32bpp& lut = Repository::instance().aquireAs<Layer32bpp>(name);
    if (lut.pixelCount() < lutEntries)
        componentError(std::string(keyword) + " : " + name + " is " + std::to_string(lut.width) + "x" +
                       std::to_string(lut.height) + ", a lut needs 65536 pixels");
    return lut;
}

}  // namespace vz
