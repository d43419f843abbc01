#include "shell/Config.hpp"

#include <cstdint>

#include "core/Layer.hpp"
#include "core/error.hpp"
#include "core/logstream.hpp"
#include "script/TextParser.hpp"

namespace vz {

namespace {

int nextNumber(TextParser& parser) {
    parser.nextLine();
    return parser.getInt();
}

// The display, the band and the pools are sized from these numbers: refuse the ones
// that would make a zero or negative surface, a band outside it, or absurd pools.
void checkSizes(const Config& c, const std::string& fileName) {
    auto fail = [&](const std::string& what) { throw error(fileName + " : " + what); };
    if (c.hardwareWidth < 1 || c.hardwareHeight < 1 || c.hardwareWidth > Layer::maxSide ||
        c.hardwareHeight > Layer::maxSide ||
        static_cast<std::int64_t>(c.hardwareWidth) * c.hardwareHeight > Layer::maxPixels)
        fail("invalid hardware resolution " + std::to_string(c.hardwareWidth) + " * " +
             std::to_string(c.hardwareHeight));
    if (c.windowHeight < 1 || c.topOffset < 0 || c.topOffset + c.windowHeight > c.hardwareHeight)
        fail("the window band (height " + std::to_string(c.windowHeight) + " at row " + std::to_string(c.topOffset) +
             ") does not fit in the hardware height " + std::to_string(c.hardwareHeight));
    if (c.smallSlotCount < 0 || c.smallSlotCount > 16384 || c.screenSlotCount < 0 || c.screenSlotCount > 1024)
        fail("slot counts out of range (" + std::to_string(c.smallSlotCount) + ", " +
             std::to_string(c.screenSlotCount) + ")");
}

}  // namespace

Config Config::read(const std::string& fileName) {
    Config c;
    TextParser parser;
    parser.open(fileName);
    c.hardwareWidth = nextNumber(parser);
    c.hardwareHeight = nextNumber(parser);
    c.windowHeight = nextNumber(parser);
    c.topOffset = nextNumber(parser);
    logout() << "Hardware resolution : " << c.hardwareWidth << " * " << c.hardwareHeight << lend;
    logout() << "Window height : " << c.windowHeight << lend;
    c.smallSlotCount = nextNumber(parser);
    c.screenSlotCount = nextNumber(parser);
    while (parser.nextLine()) {
        const char* word = parser.getToken();
        std::string keyword = word;
        if (keyword == "COUNTERS") {
            c.counters = true;
        } else if (keyword == "NOSOUND") {
            c.nosound = true;
        } else if (keyword == "LOWQUALITY") {
            c.lowQuality = true;
        } else if (keyword == "ARCHIVE") {
            c.archive = true;
            c.archiveName = parser.getTokenCopy();
        }
    }
    parser.close();
    checkSizes(c, fileName);
    return c;
}

}  // namespace vz
