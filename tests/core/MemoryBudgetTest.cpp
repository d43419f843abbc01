// The memory budget counts the slot pools and every heap layer for as long as they live.
#include "core/MemoryBudget.hpp"

#include <gtest/gtest.h>

#include "core/Layer.hpp"
#include "core/LayerManager.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

struct BudgetGuard {
    BudgetGuard() { MemoryBudget::setLimit(std::int64_t{1} << 20); }
    ~BudgetGuard() {
        LayerManager::install(nullptr);
        MemoryBudget::setLimit(MemoryBudget::defaultLimit);
    }
};

TEST(MemoryBudget, LayersCountWhileTheyLiveAndPoolsOnlyOnce) {
    BudgetGuard guard;
    const std::int64_t before = MemoryBudget::used();
    { Layer32bpp half(640, 256); }  // 640 KiB, given back when it goes
    Layer32bpp first(640, 256);
    EXPECT_EQ(MemoryBudget::used() - before, 640 << 10);
    EXPECT_EQ(test::errorLineOf([] { Layer32bpp second(640, 256); }),
              "vzplayer: Layer32bpp : 640x256 needs 640 KiB, beyond the memory budget of 1 MiB (640 KiB in use; see "
              "--memory-limit)");
    // A slot pool counts once, when it is made; the layers it serves count nothing more.
    LayerManager::install(std::make_unique<LayerManager>(0, 3, 64 * 64));
    EXPECT_EQ(MemoryBudget::used() - before, (640 << 10) + 3 * 64 * 64);
    { Layer32bpp inSlots(64, 16); }
    EXPECT_EQ(MemoryBudget::used() - before, (640 << 10) + 3 * 64 * 64);
    EXPECT_EQ(
        test::errorLineOf([] { LayerManager pools(0, 64, 16384); }),
        "vzplayer: LayerManager : the memory of the slot pools needs 1 MiB, beyond the memory budget of 1 MiB (652 KiB "
        "in use; see --memory-limit)");
}

}  // namespace
}  // namespace vz
