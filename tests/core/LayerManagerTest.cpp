#include "core/LayerManager.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "core/Layer.hpp"
#include "core/error.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

const std::string screenSlotError = "LayerManager::findEmptyScreenSlot : Out of empty slots";

std::uintptr_t address(const void* p) { return reinterpret_cast<std::uintptr_t>(p); }

// Installs a manager for the layers built during a test, and removes it afterwards.
class InstalledManager {
public:
    InstalledManager(int smallCount, int screenCount, std::int64_t screenSlotSize) {
        LayerManager::install(std::make_unique<LayerManager>(smallCount, screenCount, screenSlotSize));
    }
    ~InstalledManager() { LayerManager::install(nullptr); }
    LayerManager* operator->() const { return LayerManager::current(); }
};

// The marks of the first `count` screen slots.
std::vector<unsigned> screenMarks(const LayerManager& manager, int count) {
    std::vector<unsigned> marks;
    for (int j = 0; j < count; ++j) marks.push_back(manager.screenMark(j));
    return marks;
}

TEST(LayerManagerTest, ScreenRunsNeverTakeTheLastSlotNorStartInTheLastFour) {
    {
        InstalledManager two(4, 2, 64 * 40);
        Layer8bpp first(64, 40);
        EXPECT_EQ(first.pixels, static_cast<const void*>(two->screenPool()));
        EXPECT_EQ(test::errorOf([] { Layer8bpp layer(64, 40); }), screenSlotError);
        EXPECT_EQ(two->screenMark(1), 0u);
    }

    InstalledManager eight(4, 8, 640 * 400);
    Layer32bpp big(640, 400);
    EXPECT_EQ(big.pixels, static_cast<const void*>(eight->screenPool()));
    EXPECT_EQ(test::errorOf([] { Layer32bpp layer(640, 400); }), screenSlotError);  // slots 4-7 are free, yet no room
    EXPECT_EQ(screenMarks(*LayerManager::current(), 8), std::vector<unsigned>({1, 1, 1, 1, 0, 0, 0, 0}));
}

TEST(LayerManagerTest, TextureSizesTakeAlignedSmallSlots) {
    InstalledManager manager(16, 2, 320 * 200);
    Layer8bpp byteTexture(256, 256);
    Layer32bpp smallWordTexture(128, 128);
    Layer32bpp wordTexture(256, 256);
    EXPECT_EQ(byteTexture.pixels, manager->smallPoolBase());
    EXPECT_EQ(address(byteTexture.pixels) % 65536, 0u);
    EXPECT_EQ(address(smallWordTexture.pixels), address(manager->smallPoolBase()) + 65536);
    EXPECT_EQ(address(wordTexture.pixels) % 262144, 0u);
    EXPECT_TRUE(byteTexture.fromSlots && smallWordTexture.fromSlots && wordTexture.fromSlots);
    // The 256 KiB run starts on the first 256 KiB boundary past the two held slots.
    int first = static_cast<int>((address(wordTexture.pixels) - address(manager->smallPoolBase())) / 65536);
    EXPECT_TRUE(first >= 2 && first < 6) << first;
    for (int i = 2; i <= first + 4; ++i) EXPECT_EQ(manager->smallMark(i), i >= first && i < first + 4 ? 3u : 0u) << i;
}

TEST(LayerManagerTest, OtherSizesAreLoggedRawAllocations) {
    test::ScratchDir dir;
    InstalledManager manager(4, 2, 320 * 200);
    test::startLog();
    { Layer32bpp odd(100, 100); }
    auto lines = test::stopLogAndReadLines();
    EXPECT_NE(std::find(lines.begin(), lines.end(), "LayerManager::raw allocation : size = 40000 bytes"), lines.end());
    for (int i = 0; i < 4; ++i) EXPECT_EQ(manager->smallMark(i), 0u);
}

TEST(LayerManagerTest, ReleaseClearsOnlyTheSlotsOfItsOwnAllocation) {
    LayerManager manager(8, 12, 1000);
    void* a = manager.allocate(4000);
    void* b = manager.allocate(4000);
    manager.release(a);
    EXPECT_EQ(screenMarks(manager, 8), std::vector<unsigned>({0, 0, 0, 0, 2, 2, 2, 2}));
    EXPECT_EQ(manager.allocate(4000), a);  // freed slots are reused, with a new mark
    manager.release(b);
    EXPECT_EQ(screenMarks(manager, 8), std::vector<unsigned>({3, 3, 3, 3, 0, 0, 0, 0}));

    void* x = manager.allocate(65536);
    void* y = manager.allocate(65536);
    manager.release(x);
    EXPECT_EQ(manager.smallMark(0), 0u);
    EXPECT_EQ(manager.smallMark(1), 2u);
    manager.release(y);
    EXPECT_EQ(manager.smallMark(1), 0u);

    // Where a screen slot holds a texture, the screen pool is tried first.
    LayerManager both(4, 4, 65536);
    void* p = both.allocate(65536);
    EXPECT_EQ(p, static_cast<const void*>(both.screenPool()));
    EXPECT_EQ(both.screenMark(0), 1u);
    EXPECT_EQ(both.smallMark(0), 0u);
    both.release(p);
    EXPECT_EQ(both.screenMark(0), 0u);
}

}  // namespace
}  // namespace vz
