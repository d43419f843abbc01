#include "core/Layer.hpp"

#include <cstdlib>
#include <string>

#include "core/LayerManager.hpp"
#include "core/MemoryBudget.hpp"
#include "core/error.hpp"

namespace vz {

void Layer::checkSize(const char* kind, std::int64_t w, std::int64_t h) {
    if (!sizeAccepted(w, h))
        throw error(std::string(kind) + " : invalid size " + std::to_string(w) + "x" + std::to_string(h));
}

Layer::Layer(int w, int h)
    : width(w),
      height(h),
      halfWidth(w >> 1),
      halfHeight(h >> 1),
      unitsPerPixelX(w != 0 ? 2.0f / static_cast<float>(w) : 0.0f),
      unitsPerPixelY(h != 0 ? 2.0f / static_cast<float>(h) : 0.0f) {}

void* Layer::takeMemory(std::int64_t bytes, const char* kind) {
    LayerManager* manager = LayerManager::current();
    if (!manager || !manager->servesFromPool(bytes)) {
        if (!MemoryBudget::take(bytes))
            fatal(MemoryBudget::refusal(
                std::string(kind) + " : " + std::to_string(width) + "x" + std::to_string(height), bytes));
        budgeted_ = bytes;
    }
    try {
        if (manager) {
            fromSlots = true;
            return manager->allocate(bytes);
        }
        fromSlots = false;
        void* block = std::calloc(static_cast<std::size_t>(bytes > 0 ? bytes : 1), 1);
        if (!block) throw error("Layer : out of memory");
        return block;
    } catch (...) {
        MemoryBudget::giveBack(budgeted_);
        budgeted_ = 0;
        throw;
    }
}

void Layer::giveBackMemory(void* memory) {
    MemoryBudget::giveBack(budgeted_);
    budgeted_ = 0;
    if (fromSlots) {
        if (LayerManager* manager = LayerManager::current()) manager->release(memory);
        return;
    }
    std::free(memory);
}

Layer32bpp::Layer32bpp(int w, int h) : Layer(w, h) {
    checkSize("Layer32bpp", w, h);
    pixels = static_cast<std::uint32_t*>(takeMemory(pixelCount() * 4, "Layer32bpp"));
}

Layer32bpp::Layer32bpp(int w, int h, std::uint32_t* view) : Layer(w, h), pixels(view), owns_(false) {}

Layer32bpp::~Layer32bpp() {
    if (owns_) giveBackMemory(pixels);
}

Layer8bpp::Layer8bpp(int w, int h) : Layer(w, h) {
    checkSize("Layer8bpp", w, h);
    pixels = static_cast<std::uint8_t*>(takeMemory(pixelCount(), "Layer8bpp"));
}

Layer8bpp::~Layer8bpp() { giveBackMemory(pixels); }

LayerRle::LayerRle(int w, int h, std::vector<std::uint8_t> packed) : Layer(w, h), data(std::move(packed)) {}

}  // namespace vz
