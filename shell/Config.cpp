#include "shell/Config.hpp"

#include <cstdint>

#include "core/Layer.hpp"
#include "core/LayerManager.hpp"
#include "core/MemoryBudget.hpp"
#include "core/error.hpp"
#include "core/logstream.hpp"
#include "script/TextParser.hpp"

namespace vz {

namespace {

// The six numbers and the lines they came from, so that a refusal names its line.
struct Numbers {
    int value[6] = {};
    std::string where[6];
};

int nextNumber(TextParser& parser, Numbers& numbers, int index) {
    parser.nextLine();
    numbers.where[index] = parser.location();
    numbers.value[index] = parser.getInt();
    return numbers.value[index];
}

[[noreturn]] void refuse(const std::string& where, const std::string& what) {
    error refusal(what);
    refusal.locate(where);
    throw refusal;
}

// The display, the band and the pools are sized from these numbers: refuse the ones
// that would make a zero or negative surface, a band outside it, or absurd pools. The
// sums are taken in 64 bits: a top offset near 2^31 must not wrap into a band that fits.
void checkSizes(const Config& c, const Numbers& n) {
    if (!Layer::sizeAccepted(c.hardwareWidth, c.hardwareHeight))
        refuse(n.where[c.hardwareWidth < 1 || c.hardwareWidth > Layer::maxSide ? 0 : 1],
               "invalid hardware resolution " + std::to_string(c.hardwareWidth) + " * " +
                   std::to_string(c.hardwareHeight));
    if (c.windowHeight < 1 || c.topOffset < 0 ||
        std::int64_t{c.topOffset} + std::int64_t{c.windowHeight} > std::int64_t{c.hardwareHeight})
        refuse(n.where[c.windowHeight < 1 ? 2 : 3],
               "the window band (height " + std::to_string(c.windowHeight) + " at row " + std::to_string(c.topOffset) +
                   ") does not fit in the hardware height " + std::to_string(c.hardwareHeight));
    if (c.smallSlotCount < 0 || c.smallSlotCount > 16384 || c.screenSlotCount < 0 || c.screenSlotCount > 1024)
        refuse(n.where[c.smallSlotCount < 0 || c.smallSlotCount > 16384 ? 4 : 5],
               "slot counts out of range (" + std::to_string(c.smallSlotCount) + ", " +
                   std::to_string(c.screenSlotCount) + ")");
    const std::int64_t pools =
        LayerManager::poolBytes(c.smallSlotCount, c.screenSlotCount, std::int64_t{c.windowHeight} * c.hardwareWidth);
    if (pools > MemoryBudget::limit() - MemoryBudget::used())
        refuse(n.where[5], MemoryBudget::refusal("the memory of the slot pools", pools));
}

}  // namespace

Config Config::read(const std::string& fileName) {
    Config c;
    Numbers n;
    TextParser parser;
    parser.open(fileName);
    c.hardwareWidth = nextNumber(parser, n, 0);
    c.hardwareHeight = nextNumber(parser, n, 1);
    c.windowHeight = nextNumber(parser, n, 2);
    c.topOffset = nextNumber(parser, n, 3);
    logout() << "Hardware resolution : " << c.hardwareWidth << " * " << c.hardwareHeight << lend;
    logout() << "Window height : " << c.windowHeight << lend;
    c.smallSlotCount = nextNumber(parser, n, 4);
    c.screenSlotCount = nextNumber(parser, n, 5);
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
    checkSizes(c, n);
    return c;
}

}  // namespace vz
