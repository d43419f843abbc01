#include "core/LayerManager.hpp"

#include <cstdlib>
#include <cstring>

#include "core/MemoryBudget.hpp"
#include "core/error.hpp"
#include "core/logstream.hpp"

namespace vz {

namespace {

std::unique_ptr<LayerManager>& holder() {
    static std::unique_ptr<LayerManager>* manager = new std::unique_ptr<LayerManager>();
    return *manager;
}

// Clears the run of marks equal to the one at `index`, starting there.
void clearRun(std::vector<std::uint32_t>& marks, int index) {
    std::uint32_t mark = marks[index];
    for (int i = index; i < static_cast<int>(marks.size()) && marks[i] == mark; ++i) marks[i] = 0;
}

}  // namespace

LayerManager* LayerManager::current() { return holder().get(); }
void LayerManager::install(std::unique_ptr<LayerManager> manager) { holder() = std::move(manager); }

std::int64_t LayerManager::poolBytes(int smallSlotCount, int screenSlotCount, std::int64_t screenSlotSize) {
    // One spare small slot: the pool is aligned on a slot boundary inside its block.
    const std::int64_t small =
        smallSlotCount > 0 ? (std::int64_t{smallSlotCount} + 1) * std::int64_t{smallSlotSize} : 0;
    const std::int64_t screen = screenSlotCount > 0 && screenSlotSize > 0 ? screenSlotCount * screenSlotSize : 0;
    return small + screen;
}

LayerManager::LayerManager(int smallSlotCount, int screenSlotCount, std::int64_t screenSlotSize)
    : screenSlotSize_(screenSlotSize > 0 ? screenSlotSize : 0) {
    const std::int64_t pools = poolBytes(smallSlotCount, screenSlotCount, screenSlotSize_);
    if (!MemoryBudget::take(pools))
        throw error(MemoryBudget::refusal("LayerManager : the memory of the slot pools", pools));
    budgeted_ = pools;
    // Pools start zeroed so that runs are reproducible; afterwards a slot keeps whatever
    // its previous layer left in it. A pool the heap cannot supply is simply empty.
    if (smallSlotCount > 0) {
        smallBlock_ =
            static_cast<std::uint8_t*>(std::calloc(static_cast<std::size_t>(smallSlotCount) + 1, smallSlotSize));
        if (smallBlock_) {
            auto address = reinterpret_cast<std::uintptr_t>(smallBlock_);
            smallBase_ = smallBlock_ + ((smallSlotSize - address % smallSlotSize) % smallSlotSize);
            smallCount_ = smallSlotCount;
        }
    }
    if (screenSlotCount > 0 && screenSlotSize_ > 0) {
        screenPool_ = static_cast<std::uint8_t*>(
            std::calloc(static_cast<std::size_t>(screenSlotCount), static_cast<std::size_t>(screenSlotSize_)));
        if (screenPool_) screenCount_ = screenSlotCount;
    }
    smallMarks_.assign(static_cast<std::size_t>(smallCount_), 0);
    screenMarks_.assign(static_cast<std::size_t>(screenCount_), 0);
}

LayerManager::~LayerManager() {
    std::free(smallBlock_);
    std::free(screenPool_);
    MemoryBudget::giveBack(budgeted_);
}

void* LayerManager::takeScreenSlot() {
    // The last slot is never considered.
    for (int j = 0; j <= screenCount_ - 2; ++j) {
        if (screenMarks_[j] == 0) {
            screenMarks_[j] = ++screenCounter_;
            return screenPool_ + j * screenSlotSize_;
        }
    }
    throw error("LayerManager::findEmptyScreenSlot : Out of empty slots");
}

void* LayerManager::takeScreenRun() {
    // Four consecutive free slots; the last four slots are never considered.
    int run = 0;
    for (int j = 0; j <= screenCount_ - 5; ++j) {
        run = screenMarks_[j] == 0 ? run + 1 : 0;
        if (run == 4) {
            int first = j - 3;
            ++screenCounter_;
            for (int k = first; k <= j; ++k) screenMarks_[k] = screenCounter_;
            return screenPool_ + first * screenSlotSize_;
        }
    }
    throw error("LayerManager::findEmptyScreenSlot : Out of empty slots");
}

void* LayerManager::takeSmallSlot() {
    for (int i = 0; i <= smallCount_ - 2; ++i) {
        if (smallMarks_[i] == 0) {
            smallMarks_[i] = ++smallCounter_;
            return smallBase_ + static_cast<std::size_t>(i) * smallSlotSize;
        }
    }
    throw error("LayerManager::findEmptySlots64K : Out of empty slots");
}

void* LayerManager::takeSmallRun() {
    // Four free slots whose first one lies on a 256 KiB boundary.
    int run = 0;
    for (int i = 0; i <= smallCount_ - 5; ++i) {
        if (smallMarks_[i] != 0) {
            run = 0;
            continue;
        }
        ++run;
        auto address = reinterpret_cast<std::uintptr_t>(smallBase_ + static_cast<std::size_t>(i) * smallSlotSize);
        if (run == 1 && address % (4 * smallSlotSize) != 0) run = 0;
        if (run == 4) {
            int first = i - 3;
            ++smallCounter_;
            for (int k = first; k <= i; ++k) smallMarks_[k] = smallCounter_;
            return smallBase_ + static_cast<std::size_t>(first) * smallSlotSize;
        }
    }
    throw error("LayerManager::findEmptySlots256K : Out of empty slots");
}

bool LayerManager::servesFromPool(std::int64_t size) const {
    return (screenSlotSize_ > 0 && (size == screenSlotSize_ || size == 4 * screenSlotSize_)) ||
           size == static_cast<std::int64_t>(smallSlotSize) || size == static_cast<std::int64_t>(4 * smallSlotSize);
}

void* LayerManager::allocate(std::int64_t size) {
    if (size == screenSlotSize_ && screenSlotSize_ > 0) return takeScreenSlot();
    if (size == 4 * screenSlotSize_ && screenSlotSize_ > 0) return takeScreenRun();
    if (size == static_cast<std::int64_t>(smallSlotSize)) return takeSmallSlot();
    if (size == static_cast<std::int64_t>(4 * smallSlotSize)) return takeSmallRun();
    logout() << "LayerManager::raw allocation : "
             << "size = " << size << " bytes" << lend;
    // Zeroed so that a layer nobody has drawn into reads the same in every run.
    void* block = std::calloc(static_cast<std::size_t>(size > 0 ? size : 1), 1);
    if (!block) throw error("LayerManager::raw allocation : out of memory");
    return block;
}

void LayerManager::release(void* pointer) {
    auto* p = static_cast<std::uint8_t*>(pointer);
    if (smallCount_ > 0 && p >= smallBase_ && p < smallBase_ + static_cast<std::size_t>(smallCount_) * smallSlotSize) {
        clearRun(smallMarks_, static_cast<int>((p - smallBase_) >> 16));
        return;
    }
    if (screenCount_ > 0 && p >= screenPool_ && p < screenPool_ + screenCount_ * screenSlotSize_) {
        clearRun(screenMarks_, static_cast<int>((p - screenPool_) / screenSlotSize_));
        return;
    }
    std::free(pointer);
}

}  // namespace vz
