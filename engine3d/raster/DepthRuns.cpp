// The row loops of the three depth modes. The z-buffered ones cut a row into runs: a
// hidden run over the pixels whose stored depth is greater than the span's (unsigned
// comparison), then a visible run over those whose stored depth is less or equal
// (signed comparison), and so on. The two comparisons differ in signedness on purpose:
// a stored depth with the top bit set counts as hidden. A pixel that neither takes
// (the span's depth has the top bit set and the stored one not) is skipped like a
// hidden one, so a row always moves on.
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "engine3d/raster/Span.hpp"

namespace vz::raster {

namespace {

std::uint32_t roundHeld(double v) {
    if (!(v > -2147483648.0)) return v < 0 ? 0x80000000u : 0;  // below the range, or NaN
    if (v >= 2147483647.0) return 0x7FFFFFFFu;
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::llround(v)));
}

template <class P>
void skip(const Span<P>& span, Attributes& at, int n) {
    for (int i = 0; i < 4; ++i) at.a[i] += span.steps[i] * static_cast<std::uint32_t>(n);
}

// Source colours of n pixels onto the target, through the blend when there is one.
template <class P>
void emit(const Span<P>& span, Attributes& at, P* target, int n) {
    if (!span.blend) {
        span.fetch(span, at, target, n);
        return;
    }
    constexpr int chunk = 256;
    P source[chunk];
    while (n > 0) {
        const int k = std::min(n, chunk);
        span.fetch(span, at, source, k);
        span.blend(target, source, k);
        target += k;
        n -= k;
    }
}

template <class P, DepthMode M>
void drawRow(const void* erased, const SpanRow& row) {
    const Span<P>& span = *static_cast<const Span<P>*>(erased);
    const std::ptrdiff_t offset = static_cast<std::ptrdiff_t>(row.y) * span.pitch + row.x;
    P* target = span.target + offset;
    Attributes at;
    for (int i = 0; i < 4; ++i) at.a[i] = toFixed16(row.a[i]);
    if constexpr (M == DepthMode::painter) {
        emit(span, at, target, row.width);
    } else {
        std::uint32_t* z = span.zbuffer + offset;
        std::uint32_t depth = toDepth(row.a[depthAttribute]) | span.zword;
        const std::uint32_t step = span.depthStep;
        const int n = row.width;
        for (int i = 0; i < n;) {
            int hidden = i;
            while (hidden < n && z[hidden] > depth) {
                ++hidden;
                depth += step;
            }
            int visible = hidden;
            while (visible < n && static_cast<std::int32_t>(z[visible]) <= static_cast<std::int32_t>(depth)) {
                if constexpr (M == DepthMode::testAndWrite) z[visible] = depth;
                ++visible;
                depth += step;
            }
            if (visible == i) {  // neither run took pixel i
                hidden = visible = i + 1;
                depth += step;
            }
            skip(span, at, hidden - i);
            if (visible > hidden) emit(span, at, target + hidden, visible - hidden);
            i = visible;
        }
    }
}

template <class P>
RowSink sinkOf(const Span<P>& span, DepthMode mode) {
    switch (mode) {
    case DepthMode::test: return {&span, drawRow<P, DepthMode::test>};
    case DepthMode::testAndWrite: return {&span, drawRow<P, DepthMode::testAndWrite>};
    default: return {&span, drawRow<P, DepthMode::painter>};
    }
}

}  // namespace

std::uint32_t toFixed16(float v) { return roundHeld(double(v) * 65536.0); }
std::uint32_t toDepth(float v) { return roundHeld(double(v) * 16777216.0); }

template <>
RowSink rowSink(const Span<std::uint32_t>& span, DepthMode mode) {
    return sinkOf(span, mode);
}
template <>
RowSink rowSink(const Span<std::uint8_t>& span, DepthMode mode) {
    return sinkOf(span, mode);
}

}  // namespace vz::raster
