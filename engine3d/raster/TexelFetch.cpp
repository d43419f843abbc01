#include "engine3d/raster/TexelFetch.hpp"

#include <algorithm>

namespace vz::raster {

namespace {

using Fetch32 = decltype(Span<std::uint32_t>::fetch);
using Fetch8 = decltype(Span<std::uint8_t>::fetch);

// The integer part of a 16.16 word.
inline int whole(std::uint32_t f) { return static_cast<std::int32_t>(f) >> 16; }
inline int channel(std::uint32_t f) { return std::clamp(whole(f), 0, 255); }

// Offset of the texel at (u, v) in 16.16, masked into the texture.
inline std::ptrdiff_t masked(std::uint32_t u, std::uint32_t v, std::uint32_t maskU, std::uint32_t maskV, int pitch) {
    return static_cast<std::ptrdiff_t>((v >> 16) & maskV) * pitch + ((u >> 16) & maskU);
}

template <class P>
void flat(const Span<P>& span, Attributes&, P* out, int n) {
    std::fill(out, out + n, static_cast<P>(span.source.colour));
}

template <class P>
void textureMasked(const Span<P>& span, Attributes& at, P* out, int n) {
    const TexelSource& s = span.source;
    const P* texels = static_cast<const P*>(s.texels);
    std::uint32_t u = at.a[0], v = at.a[1];
    const std::uint32_t du = span.steps[0], dv = span.steps[1];
    for (int i = 0; i < n; ++i) {
        out[i] = texels[masked(u, v, s.maskU, s.maskV, s.pitch)];
        u += du;
        v += dv;
    }
    at.a[0] = u;
    at.a[1] = v;
}

void textureHeld(const Span<std::uint32_t>& span, Attributes& at, std::uint32_t* out, int n) {
    const TexelSource& s = span.source;
    const auto* texels = static_cast<const std::uint32_t*>(s.texels);
    std::uint32_t u = at.a[0], v = at.a[1];
    for (int i = 0; i < n; ++i) {
        const int column = std::clamp(whole(u), 0, s.lastU), row = std::clamp(whole(v), 0, s.lastV);
        out[i] = texels[static_cast<std::ptrdiff_t>(row) * s.pitch + column];
        u += span.steps[0];
        v += span.steps[1];
    }
    at.a[0] = u;
    at.a[1] = v;
}

void gouraud32(const Span<std::uint32_t>& span, Attributes& at, std::uint32_t* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[i] = static_cast<std::uint32_t>(channel(at.a[0]) << 16 | channel(at.a[1]) << 8 | channel(at.a[2]));
        for (int k = 0; k < 3; ++k) at.a[k] += span.steps[k];
    }
}

// Ids 7 and 8: a palette index from map8bpp, lit by attribute 3 or by the light map.
template <bool LightMap>
void palette8Lit(const Span<std::uint32_t>& span, Attributes& at, std::uint32_t* out, int n) {
    const TexelSource& s = span.source;
    const auto* texels = static_cast<const std::uint8_t*>(s.texels);
    for (int i = 0; i < n; ++i) {
        const std::uint32_t colour = s.palette[texels[masked(at.a[0], at.a[1], s.maskU, s.maskV, s.pitch)]];
        std::uint32_t light;
        if constexpr (LightMap)
            light = s.light[masked(at.a[2], at.a[3], s.lightMaskU, s.lightMaskV, s.lightPitch)];
        else
            light = static_cast<std::uint32_t>(channel(at.a[2]));
        out[i] = lit(colour, light);
        for (int k = 0; k < 4; ++k) at.a[k] += span.steps[k];
    }
}

void gouraud8(const Span<std::uint8_t>& span, Attributes& at, std::uint8_t* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[i] = static_cast<std::uint8_t>(channel(at.a[0]));
        at.a[0] += span.steps[0];
    }
}

}  // namespace

Fetch32 fetch32(FillerKind kind) {
    switch (kind) {
    case FillerKind::texture32:
    case FillerKind::flatPattern: return textureMasked<std::uint32_t>;
    case FillerKind::textureAnysize32: return textureHeld;
    case FillerKind::gouraud32: return gouraud32;
    case FillerKind::palette8Lit32: return palette8Lit<false>;
    case FillerKind::dualTexture8: return palette8Lit<true>;
    case FillerKind::flat32: return flat<std::uint32_t>;
    default: return nullptr;
    }
}

Fetch8 fetch8(FillerKind kind) {
    switch (kind) {
    case FillerKind::texture8: return textureMasked<std::uint8_t>;
    case FillerKind::gouraud8: return gouraud8;
    default: return nullptr;
    }
}

}  // namespace vz::raster
