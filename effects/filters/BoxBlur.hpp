#pragma once
// Box blur by running sums: each output pixel is the mean of the 2n pixels from x - n
// to x + n - 1 of its line (one pixel more to the left than to the right), the line
// wrapping around at its ends: indices are taken modulo the line's length, so a radius
// beyond half the line counts pixels more than once. The mean is read from a division
// table, so the cost per pixel is the same whatever the radius.
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vz {

class BoxBlurTable {
public:
    static constexpr int maxRadius = 64;
    // Sums of 2n channels of 255 reach 510 n: 32,640 for the largest radius.
    static constexpr int capacity = 510 * maxRadius + 1;

    BoxBlurTable();  // ready for radius 4

    // Entry i = trunc(i * (1 / (2n))) & 255 for i = 0 .. 510 n, the reciprocal taken once
    // in single precision. 1 <= n <= maxRadius.
    void build(int n);
    const std::uint32_t* entries() const { return entries_.data(); }

private:
    std::vector<std::uint32_t> entries_;
};

// The radius a run uses: 0 (the source is copied as it is) when n <= 0; at most
// maxRadius, the table's room.
int boxBlurRadius(int n);

// One line of `length` pixels, `stride` words apart, blurred with radius n (1 <= n <=
// maxRadius). The result's alpha byte is 0. The plain reference of both directions.
void boxBlurLine(std::uint32_t* dst, const std::uint32_t* src, int length, std::ptrdiff_t stride, int n,
                 const std::uint32_t* table);

// Every row of a width x height picture (dst and src distinct).
void boxBlurRows(std::uint32_t* dst, const std::uint32_t* src, int width, int height, int n,
                 const std::uint32_t* table);

// Every column, walked from top to bottom and wrapping from bottom to top. The same sums
// as boxBlurLine down each column, but kept for all columns at once so the picture is
// read row by row. `sums` holds 3 * width integers. dst and src distinct.
void boxBlurColumns(std::uint32_t* dst, const std::uint32_t* src, int width, int height, int n,
                    const std::uint32_t* table, std::int32_t* sums);

}  // namespace vz
