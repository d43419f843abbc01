#include "effects/rendu/BulkKernels.hpp"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "effects/rendu/BlendOperators.hpp"

namespace vz {
namespace {

using Pixels = std::vector<std::uint32_t>;
using Bytes = std::vector<std::uint8_t>;

std::vector<const BulkKernelSet*> fastSets() {
    std::vector<const BulkKernelSet*> sets{&sse2Kernels()};
    if (const BulkKernelSet* avx2 = avx2Kernels()) sets.push_back(avx2);
    return sets;
}

// Random pixels whose alpha bytes come in runs of 0, of 32 and above, and of levels, so
// that the grouped fast paths meet every kind of group and mixed ones.
struct RandomRun {
    explicit RandomRun(std::size_t n, unsigned seed) : src(n), dst(n), alpha(n), indices(n), palette(256) {
        std::mt19937 random(seed);
        std::uint32_t kind = 0;
        for (std::size_t i = 0; i < n; ++i) {
            if (random() % 9 == 0) kind = random() % 3;
            const std::uint32_t a = kind == 0 ? 0 : kind == 1 ? 32 + random() % 224 : random() % 32;
            alpha[i] = static_cast<std::uint8_t>(a);
            src[i] = (a << 24) | (random() & 0xFFFFFF);
            dst[i] = random();
            indices[i] = static_cast<std::uint8_t>(random());
        }
        for (auto& colour : palette) colour = random();
    }
    Pixels src, dst;
    Bytes alpha, indices;
    Pixels palette;
};

constexpr std::size_t runLength = 206;  // runs of 203: odd, not a multiple of any vector width

// Runs `call` on the scalar set and on each fast set, at every start offset 0-3 and over
// a few lengths, and expects identical destinations.
template <class Call>
void expectSameAsScalar(Call call) {
    for (unsigned seed = 1; seed <= 3; ++seed) {
        for (std::size_t offset = 0; offset < 4; ++offset) {
            for (std::size_t n : {std::size_t{0}, std::size_t{1}, std::size_t{7}, runLength - 3}) {
                RandomRun reference(runLength, seed);
                call(scalarKernels(), reference, offset, n);
                for (const BulkKernelSet* set : fastSets()) {
                    RandomRun run(runLength, seed);
                    call(*set, run, offset, n);
                    ASSERT_EQ(run.dst, reference.dst)
                        << set->name << " seed " << seed << " offset " << offset << " n " << n;
                }
            }
        }
    }
}

TEST(BulkKernels, FastCopyAndFillMatchScalarForEveryRendu) {
    for (int rendu = -1; rendu <= renduCount; ++rendu) {
        SCOPED_TRACE(rendu);
        expectSameAsScalar([&](const BulkKernelSet& set, RandomRun& run, std::size_t at, std::size_t n) {
            set.copy(run.dst.data() + at, run.src.data() + (3 - at), n, rendu);
        });
        expectSameAsScalar([&](const BulkKernelSet& set, RandomRun& run, std::size_t at, std::size_t n) {
            set.fill(run.dst.data() + at, 0x8C3F91E7, n, rendu);
        });
    }
}

TEST(BulkKernels, FastAlphaRoutinesMatchScalar) {
    expectSameAsScalar([](const BulkKernelSet& set, RandomRun& run, std::size_t at, std::size_t n) {
        set.fillAlphaMap(run.dst.data() + at, 0x11E0A050, run.alpha.data() + (3 - at), n);
    });
    expectSameAsScalar([](const BulkKernelSet& set, RandomRun& run, std::size_t at, std::size_t n) {
        set.copyAlphaMap(run.dst.data() + at, run.src.data() + at, run.alpha.data() + (3 - at), n);
    });
    expectSameAsScalar([](const BulkKernelSet& set, RandomRun& run, std::size_t at, std::size_t n) {
        set.copySourceAlpha(run.dst.data() + at, run.src.data() + (3 - at), n);
    });
    expectSameAsScalar([](const BulkKernelSet& set, RandomRun& run, std::size_t at, std::size_t n) {
        set.addPremultiplied(run.dst.data() + at, run.src.data() + (3 - at), n);
    });
    expectSameAsScalar([](const BulkKernelSet& set, RandomRun& run, std::size_t at, std::size_t n) {
        set.copyPalette(run.dst.data() + at, run.indices.data() + (3 - at), run.palette.data(), n);
    });
}

// The scalar set is the reference of the others; it must itself agree with the
// per-pixel operators wherever the bulk routine is documented to use them.
TEST(BulkKernels, ScalarLevelsAreThePerPixelOperators) {
    RandomRun run(runLength, 7);
    for (int rendu = 0; rendu < renduNormal; ++rendu) {
        Pixels copied = run.dst, filled = run.dst;
        scalarKernels().copy(copied.data(), run.src.data(), runLength, rendu);
        scalarKernels().fill(filled.data(), 0x00C08040, runLength, rendu);
        for (std::size_t i = 0; i < runLength; ++i) {
            ASSERT_EQ(copied[i], blendPixel(rendu, run.src[i], run.dst[i])) << rendu << " " << i;
            ASSERT_EQ(filled[i], blendPixel(rendu, 0x00C08040, run.dst[i])) << rendu << " " << i;
        }
    }
}

// Exact values on short runs of the scalar set, which the fast sets are held to above:
// the saturating forms and the alpha rules at their thresholds (0, levels below 32, 32
// and above), in groups and alone.
TEST(BulkKernels, SaturatingCopiesAndTheFillAdd) {
    const BulkKernelSet& set = scalarKernels();
    for (int rendu : {renduAdd, renduAddNoSat}) {
        Pixels dst(9, 0xC8C8C8C8);
        set.copy(dst.data(), Pixels(9, 0x64646464).data(), dst.size(), rendu);
        EXPECT_EQ(dst, Pixels(9, 0xFFFFFFFF)) << rendu;
    }
    Pixels dst(9, 0x00000010);
    set.copy(dst.data(), Pixels(9, 0x01020305).data(), dst.size(), renduAdd);
    EXPECT_EQ(dst, Pixels(9, 0x01020315));
    Pixels sub(11, 0x10205080);
    set.copy(sub.data(), Pixels(11, 0x20104081).data(), sub.size(), renduSub);
    EXPECT_EQ(sub, Pixels(11, 0x00101000));
    // The fill add takes the per-pixel form: 254 and a carry.
    Pixels filled(10, 0x000000C8);
    set.fill(filled.data(), 0x00000064, filled.size(), renduAdd);
    EXPECT_EQ(filled, Pixels(10, 0x000001FE));
}

TEST(BulkKernels, AlphaRulesAtTheirThresholds) {
    const BulkKernelSet& set = scalarKernels();
    const Bytes alpha = {0, 32, 255, 16, 0, 0, 0, 0, 32, 32, 32, 32, 40, 50, 60, 70, 1};
    const std::size_t n = alpha.size();
    Pixels copied(n, 0x11000000), filled(n, 0x11000000);
    set.copyAlphaMap(copied.data(), Pixels(n, 0x44FFFFFF).data(), alpha.data(), n);
    set.fillAlphaMap(filled.data(), 0x44FFFFFF, alpha.data(), n);
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint32_t expected = alpha[i] == 0    ? 0x11000000
                                       : alpha[i] >= 32 ? 0x44FFFFFF
                                                        : blendPixel(alpha[i], 0x44FFFFFF, 0x11000000);
        EXPECT_EQ(copied[i], expected) << i;
        EXPECT_EQ(filled[i], expected) << i;
    }
    EXPECT_EQ(copied[3], 0x007F7F7Fu);

    const Pixels src = {0x00FFFFFF, 0x20123456, 0xFF654321, 0x10FFFFFF, 0x00ABCDEF, 0x00ABCDEF, 0x00ABCDEF,
                        0x00ABCDEF, 0x21010101, 0x21010101, 0x21010101, 0x21010101, 0x01FFFFFF};
    Pixels dst(src.size(), 0x7F000000);
    set.copySourceAlpha(dst.data(), src.data(), src.size());
    EXPECT_EQ(dst, (Pixels{0x7F000000, 0x20123456, 0xFF654321, 0x007F7F7F, 0x7F000000, 0x7F000000, 0x7F000000,
                           0x7F000000, 0x21010101, 0x21010101, 0x21010101, 0x21010101, 0x7F070707}));

    // Premultiplied: level 16 with a black source halves the destination, from 32 on it
    // is cleared; then the source is added.
    Pixels premultiplied(4, 0x00808080);
    set.addPremultiplied(premultiplied.data(), Pixels{0x00FFFFFF, 0x10010203, 0x20010203, 0x01000001}.data(), 4);
    EXPECT_EQ(premultiplied, (Pixels{0x00808080, 0x10414243, 0x20010203, 0x017C7C7D}));
}

}  // namespace
}  // namespace vz
