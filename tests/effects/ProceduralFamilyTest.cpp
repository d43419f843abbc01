#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "effects/procedural/Bump.hpp"
#include "effects/procedural/Fire.hpp"
#include "effects/procedural/SineTable.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "support/EffectTestSupport.hpp"

namespace vz::test {
namespace {

std::uint64_t checksumOf8(const Layer8bpp& layer) {
    return checksum(Picture{layer.width, layer.height, {layer.pixels, layer.pixels + layer.pixelCount()}});
}

// The resources every line below names, on small layers: a 48 x 32 target of each depth,
// pictures of the same size, a 16 x 16 texture, a 256 x 256 look-up table, a palette of
// distinct colours and an 8 x 8 sprite.
class ProceduralFamily : public EffectTest {
protected:
    ProceduralFamily() {
        addLayer32("screen", 48, 32, grey(0x20));
        addLayer8("screen8", 48, 32);
        fillRandom(addLayer32("pic", 48, 32), 1);
        Layer8bpp& relief = addLayer8("pic8", 48, 32);
        for (int y = 0; y < 32; ++y)
            for (int x = 0; x < 48; ++x) relief.row(y)[x] = static_cast<std::uint8_t>((x - 24) * (x - 24) / 4 + y * 3);
        fillRandom(addLayer32("tiles", 16, 16), 2);
        Layer32bpp& lut = addLayer32("lut", 256, 256);
        std::iota(lut.pixels, lut.pixels + 65536, 0u);
        Palette& palette = addPalette("pal");
        for (int i = 0; i < 256; ++i) palette.colors[i] = static_cast<std::uint32_t>(i) * 0x00010307u;
        addColor("col", 0x00C08040);
        Layer32bpp& star = addLayer32("star", 8, 8);
        for (int i = 0; i < 64; ++i) star.pixels[i] = i % 3 == 0 ? 0 : 0x00405060u + static_cast<std::uint32_t>(i);
    }
    Layer32bpp& screen() { return show.repository.aquireAs<Layer32bpp>("screen"); }
    Layer8bpp& screen8() { return show.repository.aquireAs<Layer8bpp>("screen8"); }
    // The checksums of both targets after `line`, made from fresh seeds, runs at each of
    // `times` (the 32-bit target cleared before each run).
    std::pair<std::uint64_t, std::uint64_t> framesAfter(const std::string& line, const std::vector<float>& times) {
        resetRandomSeeds();
        auto component = make(line);
        for (float t : times) {
            std::fill_n(screen().pixels, screen().pixelCount(), 0);
            component->run(t);
        }
        return {checksumOf(screen()), checksumOf8(screen8())};
    }
};

// Every keyword's frame, pinned: each line run at 0.5 s then 1.25 s of local time (the
// stateful ones step in between), the target's checksum compared.
TEST_F(ProceduralFamily, EveryKeywordDrawsItsPinnedFrame) {
    const std::pair<const char*, std::uint64_t> cases[] = {
        {"flowerPlasma32bpp screen pal constFloat 1", 8711704683775196513ull},
        {"rotozoomKeytrack32bpp screen tiles constFloat 0.6 constFloat 1.5 constInt 16", 14387379779171464044ull},
        {"sorbelFloor32bpp screen tiles constFloat 20", 9479987302478174853ull},
        {"sorbelWarperLight32bpp screen pic8 lut constFloat 3", 17920682326725752181ull},
        {"sorbelWarper32bpp screen pic constFloat 3", 12208621416714465109ull},
        {"displacement32bpp screen pic pic8 constFloat 0.5", 14017744058701587485ull},
        {"kestrilWarper32bpp screen pic constFloat 4 constFloat 2", 11140128381509805234ull},
        {"starFlower32bpp screen col constInt 33", 1372208054709300011ull},
        {"circle32bpp screen col constVector2 0.1 -0.2 constFloat 9.5", 12869447336493763806ull},
        {"dashedCircle32bpp screen col constVector2 0.1 -0.2 constFloat 11", 16803735747558597199ull},
        {"shapeDisc32bpp screen col constVector2 -0.3 0.2 constFloat 7.3 constInt 34", 11337435355693456547ull},
        {"shapeCorona32bpp screen col constVector2 0.5 0 constFloat 12 constInt 24", 5815181868456025859ull},
        {"glimmetDot32bpp screen col 40", 16669133997119591175ull},
        {"glimmetSprite32bpp screen star 12 constInt 33", 8690006393156114963ull},
        {"dynamicSystem32bpp screen col constInt 33", 13061656699129879473ull},
        {"bumpLightmap8bpp screen8 pic8 constVector2 0.2 -0.3", 7237449187337698615ull},
        {"backSinus32bpp screen pal constFloat 1", 8823615545887735860ull},
        {"sinusCircles32bpp screen pal constFloat 1", 12744703255192940398ull},
        {"bigDiscs32bpp screen col constInt 33", 18259547594556558411ull},
        {"rotatedSinusCircles32bpp screen pal constFloat 1 constFloat 0.7", 9770061898397213393ull},
        {"fire8bpp screen8", 11002221911492743455ull},
    };
    for (const auto& [line, expected] : cases) {
        std::fill_n(screen().pixels, screen().pixelCount(), grey(0x20));
        std::fill_n(screen8().pixels, screen8().pixelCount(), 0);
        resetRandomSeeds();
        auto component = make(line);
        component->run(0.5f);
        component->run(1.25f);
        const bool eightBit = std::string(line).find("8bpp screen8") != std::string::npos;
        const std::uint64_t sum = eightBit ? checksumOf8(screen8()) : checksumOf(screen());
        EXPECT_EQ(sum, expected) << line;
    }
}

// The stateful keywords step with the local time, not the frames: 25 and 60 frames a
// second reach the same picture, and a jump back in time shows what a fresh start shows.
TEST_F(ProceduralFamily, StatefulKeywordsFollowTheTimeNotTheFrames) {
    for (const char* line : {"fire8bpp screen8", "dynamicSystem32bpp screen col constInt 32"}) {
        const auto frameAt = [&](const std::vector<float>& times) { return framesAfter(line, times); };
        std::vector<float> slow, fast;
        for (int f = 0; f <= 30; ++f) slow.push_back(f / 25.0f);
        for (int f = 0; f <= 72; ++f) fast.push_back(f / 60.0f);
        EXPECT_EQ(frameAt(slow), frameAt(fast)) << line;
        EXPECT_EQ(frameAt({0.0f, 1.2f, 0.5f}), frameAt({0.5f})) << line;
        // A jump of more than two seconds runs only the last two seconds' steps.
        if (std::string(line).starts_with("fire")) {
            EXPECT_EQ(frameAt({0.0f, 10.0f}), frameAt({0.0f, 2.0f}));
        }
        EXPECT_NE(frameAt({0.5f}), frameAt({1.2f})) << line;
    }
}

// The SIMD kernels and their scalar twins, chosen by the switch the bulk kernels obey,
// draw the same frames.
TEST_F(ProceduralFamily, ScalarSwitchDrawsTheSameFrames) {
    for (const char* line : {"fire8bpp screen8", "bumpLightmap8bpp screen8 pic8 constVector2 0.4 0.1",
                             "rotozoomKeytrack32bpp screen tiles constFloat 2.5 constFloat 0.3 constInt 32"}) {
        const auto fast = framesAfter(line, {0.0f, 0.8f});
        setForceScalar(true);
        const auto scalar = framesAfter(line, {0.0f, 0.8f});
        setForceScalar(false);
        EXPECT_EQ(fast, scalar) << line;
    }
}

// The shapes that must draw nothing at all: far outside, without size, not numbers.
TEST_F(ProceduralFamily, ShapesOutsideOrWithoutSizeDrawNothing) {
    for (const char* line : {"circle32bpp screen col constVector2 9 9 constFloat 5",
                             "circle32bpp screen col constVector2 0 0 constFloat nan",
                             "dashedCircle32bpp screen col constVector2 0 0 constFloat -3",
                             "shapeDisc32bpp screen col constVector2 -5 0 constFloat 90 constInt 32",
                             "shapeCorona32bpp screen col constVector2 0 0 constFloat 0 constInt 32",
                             "shapeDisc32bpp screen col constVector2 inf 0 constFloat 1e30 constInt 32"}) {
        make(line)->run(0);
        EXPECT_EQ(std::count(screen().pixels, screen().pixels + 48 * 32, grey(0x20)), 48 * 32) << line;
    }
}

TEST_F(ProceduralFamily, BadParametersNameTheKeyword) {
    addLayer8("small8", 8, 6);
    const std::pair<const char*, const char*> cases[] = {
        {"fire8bpp screen", "Repository::aquire failure"},
        {"flowerPlasma32bpp screen col constFloat 1", "Repository::aquire failure"},
        {"bumpLightmap8bpp screen8 screen8 constVector2 0 0",
         "bumpLightmap8bpp : target and source must be different layers"},
        {"bumpLightmap8bpp screen8 small8 constVector2 0 0",
         "bumpLightmap8bpp : the relief is 8x6, the target is 48x32"},
        {"glimmetDot32bpp screen col 0", "glimmetDot32bpp : the number of dots 0 is not within 1 to 65536"},
        {"glimmetSprite32bpp screen star 70000 constInt 33",
         "glimmetSprite32bpp : the number of sprites 70000 is not within 1 to 65536"},
    };
    for (const auto& [line, message] : cases) EXPECT_EQ(errorOf([&] { make(line); }), message) << line;
}

// The SSE2 rows against their scalar twins on random rows of every width up to 70, the
// light anywhere from far left to far right and from far above to far below.
TEST(ProceduralKernels, Sse2RowsMatchTheirScalarTwins) {
    std::mt19937 random(12);
    auto bytes = [&](std::size_t n) {
        std::vector<std::uint8_t> v(n);
        for (auto& b : v) b = static_cast<std::uint8_t>(random());
        return v;
    };
    const LightSpot spot(20);
    for (int w = 1; w <= 70; ++w) {
        const auto n = static_cast<std::size_t>(w);
        const auto below = bytes(n), below2 = bytes(n), cooling = bytes(n), up = bytes(n), row = bytes(n),
                   down = bytes(n);
        std::vector<std::uint8_t> scalar(n), sse2(n);
        fireRowScalar(scalar.data(), below.data(), below2.data(), cooling.data(), n);
        fireRowSse2(sse2.data(), below.data(), below2.data(), cooling.data(), n);
        ASSERT_EQ(scalar, sse2) << "fire, width " << w;
        for (int k = 0; k < 20; ++k) {
            const int lightX = static_cast<int>(random() % 2400) - 1200, dy = static_cast<int>(random() % 2400) - 1200;
            bumpRowScalar(scalar.data(), up.data(), row.data(), down.data(), w, lightX, dy, spot);
            bumpRowSse2(sse2.data(), up.data(), row.data(), down.data(), w, lightX, dy, spot);
            ASSERT_EQ(scalar, sse2) << "bump, width " << w << ", light " << lightX << ", " << dy;
        }
    }
}

// The light spot falls off with the square of the distance and reads its border far outside.
TEST(Bump, LightSpotFallsOffToItsBorder) {
    const LightSpot spot(8);
    EXPECT_EQ(spot.at(0, 0), 255);
    EXPECT_EQ(spot.at(4, 0), 64);  // (1 - 1/2)^2 of the light
    EXPECT_EQ(spot.at(0, -8), 0);
    EXPECT_EQ(spot.at(-1000, 3), 0);
}

TEST(SineTable, PhasesOfAnyNumberOfTurns) {
    EXPECT_EQ(sine::phaseOfTurns(-0.25), 3 * sine::steps / 4);
    EXPECT_EQ(sine::phaseOfTurns(12.5), sine::steps / 2);
    EXPECT_EQ(sine::phaseOfTurns(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(sine::phaseOfTurns(std::numeric_limits<double>::infinity()), 0);
}

}  // namespace
}  // namespace vz::test
