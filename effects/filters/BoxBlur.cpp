#include "effects/filters/BoxBlur.hpp"

#include <algorithm>

namespace vz {

namespace {

inline std::int32_t red(std::uint32_t p) { return static_cast<std::int32_t>((p >> 16) & 0xFF); }
inline std::int32_t green(std::uint32_t p) { return static_cast<std::int32_t>((p >> 8) & 0xFF); }
inline std::int32_t blue(std::uint32_t p) { return static_cast<std::int32_t>(p & 0xFF); }

inline std::uint32_t meanPixel(const std::uint32_t* table, std::int32_t r, std::int32_t g, std::int32_t b) {
    return (table[r] << 16) | (table[g] << 8) | table[b];
}

// i modulo length, in 0 .. length - 1 also for negative i.
inline int wrapped(int i, int length) { return (i % length + length) % length; }

// Calls step(position, entering, leaving) for every position of a line, with the index
// of the pixel entering the span and of the one leaving it. Only the two ends pay for
// the wrap-around when the span fits in the line; otherwise every index is wrapped.
template <class Step>
void walkLine(int length, int n, Step step) {
    if (2 * n > length) {
        for (int x = 0; x < length; ++x) step(x, wrapped(x + n, length), wrapped(x - n, length));
        return;
    }
    int x = 0;
    for (; x < n; ++x) step(x, x + n, x - n + length);
    for (; x < length - n; ++x) step(x, x + n, x - n);
    for (; x < length; ++x) step(x, x + n - length, x - n);
}

}  // namespace

BoxBlurTable::BoxBlurTable() : entries_(capacity, 0) { build(4); }

void BoxBlurTable::build(int n) {
    const float reciprocal = 1.0f / static_cast<float>(n + n);
    const int last = 510 * n;
    for (int i = 0; i <= last; ++i)
        entries_[i] = static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<float>(i) * reciprocal) & 0xFF);
}

int boxBlurRadius(int n) { return n <= 0 ? 0 : std::min(n, BoxBlurTable::maxRadius); }

void boxBlurLine(std::uint32_t* dst, const std::uint32_t* src, int length, std::ptrdiff_t stride, int n,
                 const std::uint32_t* table) {
    std::int32_t r = 0, g = 0, b = 0;
    auto at = [&](int i) { return src[i * stride]; };
    auto add = [&](std::uint32_t p) { r += red(p), g += green(p), b += blue(p); };
    auto remove = [&](std::uint32_t p) { r -= red(p), g -= green(p), b -= blue(p); };
    // The span of pixel 0 is -n .. n-1: its left half comes from the line's other end.
    for (int k = 0; k < n; ++k) {
        add(at(wrapped(k, length)));
        add(at(wrapped(length - 1 - k, length)));
    }
    walkLine(length, n, [&](int x, int entering, int leaving) {
        dst[x * stride] = meanPixel(table, r, g, b);
        add(at(entering));
        remove(at(leaving));
    });
}

void boxBlurRows(std::uint32_t* dst, const std::uint32_t* src, int width, int height, int n,
                 const std::uint32_t* table) {
    for (int y = 0; y < height; ++y) {
        const std::ptrdiff_t offset = static_cast<std::ptrdiff_t>(y) * width;
        boxBlurLine(dst + offset, src + offset, width, 1, n, table);
    }
}

void boxBlurColumns(std::uint32_t* dst, const std::uint32_t* src, int width, int height, int n,
                    const std::uint32_t* table, std::int32_t* sums) {
    std::int32_t* r = sums;
    std::int32_t* g = sums + width;
    std::int32_t* b = sums + 2 * width;
    auto row = [&](int y) { return src + static_cast<std::ptrdiff_t>(y) * width; };
    std::fill_n(sums, 3 * static_cast<std::ptrdiff_t>(width), 0);
    for (int k = 0; k < n; ++k) {
        const std::uint32_t* top = row(wrapped(k, height));
        const std::uint32_t* bottom = row(wrapped(height - 1 - k, height));
        for (int x = 0; x < width; ++x) {
            r[x] += red(top[x]) + red(bottom[x]);
            g[x] += green(top[x]) + green(bottom[x]);
            b[x] += blue(top[x]) + blue(bottom[x]);
        }
    }
    walkLine(height, n, [&](int y, int entering, int leaving) {
        std::uint32_t* out = dst + static_cast<std::ptrdiff_t>(y) * width;
        const std::uint32_t* in = row(entering);
        const std::uint32_t* gone = row(leaving);
        for (int x = 0; x < width; ++x) {
            out[x] = meanPixel(table, r[x], g[x], b[x]);
            r[x] += red(in[x]) - red(gone[x]);
            g[x] += green(in[x]) - green(gone[x]);
            b[x] += blue(in[x]) - blue(gone[x]);
        }
    });
}

}  // namespace vz
