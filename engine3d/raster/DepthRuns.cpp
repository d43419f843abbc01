// The row loops of the three depth modes. The z-buffered ones cut a row into runs: a
// hidden run over the pixels whose stored depth is greater than the span's (unsigned
// comparison), then a visible run over those whose stored depth is less or equal
// (signed comparison), and so on. The two comparisons differ in signedness on purpose:
// a stored depth with the top bit set ends no hidden run and no visible run, so it is
// skipped or drawn as the run it falls in. A pixel that neither run takes (the span's
// depth has the top bit set and the stored one not) is skipped, so a row always moves on.
//
// A span that replaces its target fetches each texel inside the visible run; a blended
// one fetches a visible run into a buffer and blends it afterwards.
#include <algorithm>
#include <cstddef>

#include "engine3d/raster/Fillers.hpp"
#include "engine3d/raster/Texels.hpp"

namespace vz::raster {

namespace {

template <class P>
void skip(const Span<P>& span, Attributes& at, int n) {
    for (int i = 0; i < 4; ++i) at.a[i] += span.steps[i] * static_cast<std::uint32_t>(n);
}

// The pixels of a source that replaces the target, one at a time.
template <class Source>
struct Direct {
    static constexpr bool perPixel = true;
    template <class P>
    static void run(const Span<P>& span, Attributes& at, P* target, int n) {
        texels::fetchRun<Source>(span, at, target, n);
    }
};

// Source colours of whole runs through the span's fetch, then its blend.
struct Blended {
    static constexpr bool perPixel = false;
    template <class P>
    static void run(const Span<P>& span, Attributes& at, P* target, int n) {
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
};

template <class P, DepthMode M, class Writer, class Source>
void drawRow(const void* erased, const SpanRow& row) {
    // A copy: the target and z-buffer writes could alias the original, which would make
    // the loops reload its fields after every pixel.
    const Span<P> span = *static_cast<const Span<P>*>(erased);
    const std::ptrdiff_t offset = static_cast<std::ptrdiff_t>(row.y) * span.pitch + row.x;
    P* target = span.target + offset;
    Attributes at;
    for (int i = 0; i < Source::attributes; ++i) at.a[i] = toFixed16(row.a[i]);
    const int n = row.width;
    if constexpr (M == DepthMode::painter) {
        Writer::run(span, at, target, n);
        return;
    } else {
        std::uint32_t* z = span.zbuffer + offset;
        // A polygon's next rows lie just below this one, a row of the target further on:
        // ask for their depths early, since a short row is over before a miss is served.
        // (Addresses as integers: the rows ahead may lie past the buffers' end.)
        const std::uintptr_t ahead = 2 * static_cast<std::uintptr_t>(span.pitch);
        __builtin_prefetch(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(z) + ahead * 4));
        __builtin_prefetch(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(target) + ahead * sizeof(P)),
                           1);
        std::uint32_t depth = toDepth(row.a[depthAttribute]) | span.zword;
        const std::uint32_t step = span.depthStep;
        for (int i = 0; i < n;) {
            int hidden = i;
            while (hidden < n && z[hidden] > depth) {
                ++hidden;
                depth += step;
            }
            if (hidden > i) skip(span, at, hidden - i);
            int visible = hidden;
            while (visible < n && static_cast<std::int32_t>(z[visible]) <= static_cast<std::int32_t>(depth)) {
                if constexpr (M == DepthMode::testAndWrite) z[visible] = depth;
                if constexpr (Writer::perPixel) {
                    target[visible] = Source::at(span, at);
                    texels::step<Source>(span, at);
                }
                ++visible;
                depth += step;
            }
            if constexpr (!Writer::perPixel)
                if (visible > hidden) Writer::run(span, at, target + hidden, visible - hidden);
            if (visible == i) {  // neither run took pixel i
                ++visible;
                depth += step;
                skip(span, at, 1);
            }
            i = visible;
        }
    }
}

template <class P, class Writer, class Source>
RowSink sinkOf(const Span<P>& span, DepthMode mode) {
    switch (mode) {
    case DepthMode::test: return {&span, drawRow<P, DepthMode::test, Writer, Source>};
    case DepthMode::testAndWrite: return {&span, drawRow<P, DepthMode::testAndWrite, Writer, Source>};
    default: return {&span, drawRow<P, DepthMode::painter, Writer, Source>};
    }
}

template <class Source, class P>
RowSink sinkFor(Span<P>& span, DepthMode mode) {
    if (span.blend) {
        span.fetch = texels::fetchRun<Source, P>;
        return sinkOf<P, Blended, Source>(span, mode);
    }
    return sinkOf<P, Direct<Source>, Source>(span, mode);
}

}  // namespace

template <class P>
RowSink rowSink(Span<P>& span, FillerKind kind, DepthMode mode) {
    if (kind == FillerKind::texture32 && texels::Texture256::fits(span.source))
        return sinkFor<texels::Texture256>(span, mode);
    return texels::withSource<P>(kind, [&](auto source) { return sinkFor<decltype(source)>(span, mode); });
}

template RowSink rowSink(Span<std::uint32_t>&, FillerKind, DepthMode);
template RowSink rowSink(Span<std::uint8_t>&, FillerKind, DepthMode);

}  // namespace vz::raster
