#pragma once
// The source colour of each filler kind at one pixel, read from the running attributes,
// and how many of the attributes the kind steps. Inlined into the row loops, so that a
// span that replaces its target fetches and writes in the same pass as its depth test.
#include <algorithm>
#include <cstddef>

#include "engine3d/raster/Fillers.hpp"
#include "engine3d/raster/Span.hpp"

namespace vz::raster::texels {

// The integer part of a 16.16 word, and a colour channel held in 0-255.
inline int whole(std::uint32_t f) { return static_cast<std::int32_t>(f) >> 16; }
inline std::uint32_t channel(std::uint32_t f) { return static_cast<std::uint32_t>(std::clamp(whole(f), 0, 255)); }

// Offset of the texel at (u, v) in 16.16, masked into the texture.
inline std::ptrdiff_t masked(std::uint32_t u, std::uint32_t v, std::uint32_t maskU, std::uint32_t maskV, int pitch) {
    return static_cast<std::ptrdiff_t>((v >> 16) & maskV) * pitch + ((u >> 16) & maskU);
}

// Colour c with each channel scaled by (light + 1) / 256: two multiplies for the three
// channels; the alpha byte comes out 0.
inline std::uint32_t lit(std::uint32_t c, std::uint32_t light) {
    const std::uint32_t k = light + 1;
    return ((((c & 0xFF00FFu) * k) >> 8) & 0xFF00FFu) | ((((c & 0x00FF00u) * k) >> 8) & 0x00FF00u);
}

struct Flat {
    static constexpr int attributes = 0;
    template <class P>
    static P at(const Span<P>& s, const Attributes&) {
        return static_cast<P>(s.source.colour);
    }
};

// u, v wrap at the mask: a 256 x 256 map wraps, another size tiles its top-left corner.
struct TextureMasked {
    static constexpr int attributes = 2;
    template <class P>
    static P at(const Span<P>& s, const Attributes& a) {
        const TexelSource& t = s.source;
        return static_cast<const P*>(t.texels)[masked(a.a[0], a.a[1], t.maskU, t.maskV, t.pitch)];
    }
};

// The same on a 256 x 256 map, the size the kind is made for: the row and column
// indices are the bytes above the fractions, with no multiply.
struct Texture256 {
    static constexpr int attributes = 2;
    template <class P>
    static P at(const Span<P>& s, const Attributes& a) {
        return static_cast<const P*>(s.source.texels)[((a.a[1] >> 8) & 0xFF00u) | ((a.a[0] >> 16) & 0xFFu)];
    }
    static bool fits(const TexelSource& t) { return t.pitch == 256 && t.maskU == 255 && t.maskV == 255; }
};

// u, v held at the map's borders (the any-size kind).
struct TextureHeld {
    static constexpr int attributes = 2;
    static std::uint32_t at(const Span<std::uint32_t>& s, const Attributes& a) {
        const TexelSource& t = s.source;
        const int column = std::clamp(whole(a.a[0]), 0, t.lastU), row = std::clamp(whole(a.a[1]), 0, t.lastV);
        return static_cast<const std::uint32_t*>(t.texels)[static_cast<std::ptrdiff_t>(row) * t.pitch + column];
    }
};

struct Gouraud {
    static constexpr int attributes = 3;
    static std::uint32_t at(const Span<std::uint32_t>&, const Attributes& a) {
        return channel(a.a[0]) << 16 | channel(a.a[1]) << 8 | channel(a.a[2]);
    }
};

// A palette index from map8bpp, lit by attribute 3 or by the light map at (3, 4).
template <bool LightMap>
struct PaletteLit {
    static constexpr int attributes = LightMap ? 4 : 3;
    static std::uint32_t at(const Span<std::uint32_t>& s, const Attributes& a) {
        const TexelSource& t = s.source;
        const auto* indices = static_cast<const std::uint8_t*>(t.texels);
        const std::uint32_t colour = t.palette[indices[masked(a.a[0], a.a[1], t.maskU, t.maskV, t.pitch)]];
        if constexpr (LightMap)
            return lit(colour, t.light[masked(a.a[2], a.a[3], t.lightMaskU, t.lightMaskV, t.lightPitch)]);
        else
            return lit(colour, channel(a.a[2]));
    }
};

// The 8-bit intensity kind: attribute 1 is the index.
struct Intensity {
    static constexpr int attributes = 1;
    static std::uint8_t at(const Span<std::uint8_t>&, const Attributes& a) {
        return static_cast<std::uint8_t>(channel(a.a[0]));
    }
};

// Calls f with the source of a filler kind on a target of pixel type P; the one place
// that pairs kinds with sources.
template <class P, class F>
decltype(auto) withSource(FillerKind kind, F&& f) {
    if constexpr (sizeof(P) == 1) {
        if (kind == FillerKind::texture8) return f(TextureMasked{});
        return f(Intensity{});
    } else {
        switch (kind) {
        case FillerKind::texture32:
        case FillerKind::flatPattern: return f(TextureMasked{});
        case FillerKind::textureAnysize32: return f(TextureHeld{});
        case FillerKind::gouraud32: return f(Gouraud{});
        case FillerKind::palette8Lit32: return f(PaletteLit<false>{});
        case FillerKind::dualTexture8: return f(PaletteLit<true>{});
        default: return f(Flat{});
        }
    }
}

template <class Source, class P>
inline void step(const Span<P>& s, Attributes& a) {
    for (int k = 0; k < Source::attributes; ++k) a.a[k] += s.steps[k];
}

// n pixels of the source into `out`.
template <class Source, class P>
void fetchRun(const Span<P>& s, Attributes& a, P* out, int n) {
    for (int i = 0; i < n; ++i) {
        out[i] = Source::at(s, a);
        step<Source>(s, a);
    }
}

}  // namespace vz::raster::texels
