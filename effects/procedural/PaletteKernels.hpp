#pragma once
// The per-pixel work of the palette plasmas: a row of colour indices made of a few table
// entries (wrapping as bytes do), then shown through a 256-colour palette by the bulk
// palette copy (copyRunPalette). Tables are built once or once a frame; the index loops
// only load and add, and the plain byte ones become wide byte arithmetic.
#include <cstddef>
#include <cstdint>

namespace vz {

// Polar plasma, palette lookup included (a second pass measured slower here): entry
// e = ring << 16 | angle (angle 0-4095); dst[i] = palette[(ring + wave[angle]) AND 255].
void mapPolarPalette(std::uint32_t* dst, const std::uint32_t* entries, std::size_t n, const std::uint8_t* wave,
                     const std::uint32_t* palette);

// Separable plasma: out[x] = columns[x] + row.
void rowIndices(std::uint8_t* out, const std::uint8_t* columns, std::size_t n, std::uint8_t row);

// Interfering rings: out[x] = a[x] + b[x] + c[x].
void ringSumIndices(std::uint8_t* out, const std::uint8_t* a, const std::uint8_t* b, const std::uint8_t* c,
                    std::size_t n);

}  // namespace vz
