// A resource dropped by "sub" while a running component still draws with it stays alive
// until that component ends: the script cannot make the player touch freed memory.
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

TEST_F(EffectTest, ADroppedLayerLivesUntilItsLastComponentEnds) {
    addColor("red", 0xFF0000);
    writeFile("main.txt",
              "add pic Layer32bpp size 4 4\n"
              "fillColor32bpp pic red constInt 32\n"
              "0 3 0 1 0\n"
              "wait 1\n"
              "sub pic\n");
    Sequencer sequencer("main.txt", show);
    sequencer.run(0.5f);
    std::weak_ptr<Resource> pic = show.repository.find("pic")->shared();
    sequencer.run(1.5f);  // "sub pic": the name is gone ...
    EXPECT_EQ(show.repository.find("pic"), nullptr);
    ASSERT_FALSE(pic.expired());  // ... but the fill still draws into the layer
    EXPECT_EQ(static_cast<Layer32bpp&>(*pic.lock()).pixels[15], 0xFF0000u);
    sequencer.run(3.0f);  // the entry ends: the component and the layer go
    EXPECT_TRUE(pic.expired());
}

}  // namespace
}  // namespace vz::test
