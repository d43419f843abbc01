#include "effects/procedural/PaletteKernels.hpp"

#include "effects/procedural/FillInFours.hpp"
#include "effects/procedural/SineTable.hpp"

namespace vz {

void mapPolarPalette(std::uint32_t* dst, const std::uint32_t* entries, std::size_t n, const std::uint8_t* wave,
                     const std::uint32_t* palette) {
    fillInFours(dst, 0, static_cast<std::ptrdiff_t>(n), [=](std::ptrdiff_t i) {
        const std::uint32_t e = entries[i];
        return palette[((e >> 16) + wave[e & sine::mask]) & 0xFFu];
    });
}

void rowIndices(std::uint8_t* out, const std::uint8_t* columns, std::size_t n, std::uint8_t row) {
    for (std::size_t x = 0; x < n; ++x) out[x] = static_cast<std::uint8_t>(columns[x] + row);
}

void ringSumIndices(std::uint8_t* out, const std::uint8_t* a, const std::uint8_t* b, const std::uint8_t* c,
                    std::size_t n) {
    for (std::size_t x = 0; x < n; ++x) out[x] = static_cast<std::uint8_t>(a[x] + b[x] + c[x]);
}

}  // namespace vz
