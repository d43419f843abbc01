#pragma once
// Bump mapping of an 8-bit relief under a moving light. A pixel's slope (the differences
// of its neighbours left and right, above and below) tilts it toward or away from the
// light: its brightness is read from a round light spot at its distance from the light,
// less the slope, so a slope rising away from the light faces it and shines. The spot is a table made once; the loops
// only subtract, clamp and look up.
#include <cstdint>
#include <vector>

namespace vz {

// Brightness round a light: 255 at the centre down to 0 at `radius` pixels, in a square
// table with a border of zeros; offsets beyond the border read the border.
class LightSpot {
public:
    explicit LightSpot(int radius);
    int radius() const { return radius_; }
    // The brightness at (dx, dy) pixels from the light.
    std::uint8_t at(int dx, int dy) const;
    const std::uint8_t* values() const { return values_.data(); }
    int side() const { return side_; }

private:
    int radius_;
    int side_;  // 2 radius + 3: the spot and a border of zeros
    std::vector<std::uint8_t> values_;
};

// How far a slope of one level moves a pixel in the spot: smooth reliefs change by only a
// few levels a pixel.
constexpr int slopeGain = 4;

// One row of the lit relief, w pixels: out[x] = spot(x - lightX - gain (row[x+1] -
// row[x-1]), dy - gain (down[x] - up[x])), where dy is the row's distance below the
// light; a missing neighbour at either end is the pixel itself. The SSE2 form makes the
// spot addresses of eight pixels at once in 16-bit lanes and writes 0 at once where no
// slope can bring the light (beyond the spot's radius plus gain x 255); the scalar form
// is its reference.
void bumpRow(std::uint8_t* out, const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, int w,
             int lightX, int dy, const LightSpot& spot);
void bumpRowScalar(std::uint8_t* out, const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, int w,
                   int lightX, int dy, const LightSpot& spot);
void bumpRowSse2(std::uint8_t* out, const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, int w,
                 int lightX, int dy, const LightSpot& spot);

namespace detail {
// Pixels from .. to - 1 of a row by the scalar rule, either end included.
void bumpPixels(std::uint8_t* out, const std::uint8_t* up, const std::uint8_t* row, const std::uint8_t* down, int w,
                int lightX, int dy, const LightSpot& spot, int from, int to);
}  // namespace detail

}  // namespace vz
