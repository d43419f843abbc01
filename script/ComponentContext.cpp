#include "script/ComponentContext.hpp"

#include <sstream>

#include "core/SafeNumbers.hpp"
#include "core/error.hpp"
#include "script/Show.hpp"
#include "script/TextParser.hpp"

namespace vz {

namespace {

std::string sizeText(const Layer& layer) { return std::to_string(layer.width) + "x" + std::to_string(layer.height); }

}  // namespace

ComponentContext::ComponentContext(std::string keyword, TextParser& parser, Show& show, Sequencer& sequencer)
    : keyword_(std::move(keyword)), parser_(parser), show_(show), sequencer_(sequencer) {}

Repository& ComponentContext::repository() { return show_.repository; }

const Symbol& ComponentContext::borrow(const Symbol* symbol) {
    borrowed_.push_back(symbol->shared());
    return *symbol;
}

int ComponentContext::integer() { return parser_.getInt(); }

int ComponentContext::integerWithin(const char* name, int low, int high) {
    const int value = integer();
    if (value < low || value > high)
        fail(std::string(name) + " " + std::to_string(value) + " is not within " + std::to_string(low) + " to " +
             std::to_string(high));
    return value;
}

float ComponentContext::real() { return parser_.getFloat(); }

float ComponentContext::realWithin(const char* name, double low, double high) {
    const float value = real();
    if (!finiteWithin(value, low, high)) {
        std::ostringstream what;
        what << name << " " << value << " is not within " << low << " to " << high;
        fail(what.str());
    }
    return value;
}

std::uint8_t ComponentContext::byte() { return static_cast<std::uint8_t>(parser_.getInt()); }

std::string ComponentContext::word() { return parser_.getTokenCopy(); }

void ComponentContext::fail(const std::string& what) const { fatal(keyword_ + " : " + what); }

void ComponentContext::requireSameSize(const char* role, const Layer& layer, const Layer& target) const {
    if (layer.width == target.width && layer.height == target.height) return;
    fail(std::string(role) + " is " + sizeText(layer) + ", the target is " + sizeText(target));
}

void ComponentContext::requireCovers(const char* role, const Layer& layer, const Layer& target) const {
    if (layer.width >= target.width && layer.height >= target.height) return;
    fail(std::string(role) + " is " + sizeText(layer) + ", smaller than the target's " + sizeText(target));
}

void ComponentContext::requirePixelCount(const char* role, const Layer& layer, const Layer& target) const {
    if (layer.pixelCount() >= target.pixelCount()) return;
    fail(std::string(role) + " holds " + std::to_string(layer.pixelCount()) + " pixels, the target needs " +
         std::to_string(target.pixelCount()));
}

void ComponentContext::requireFullTable(const char* role, const Layer& layer) const {
    if (layer.pixelCount() >= 65536) return;
    fail(std::string(role) + " must hold 256x256 entries, it is " + sizeText(layer));
}

void ComponentContext::requireDistinct(const Layer& target, const Layer& source) const {
    if (&target != &source) return;
    fail("target and source must be different layers");
}

}  // namespace vz
