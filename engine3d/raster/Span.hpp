#pragma once
// A span: one horizontal run of a polygon. Everything that stays the same over a face
// (target, z-buffer, per-pixel steps, texture, the texel fetch and the blend) is set up
// once; each row then only brings its first pixel, width and start attributes.
//
// Attributes 1-4 run in 16.16 fixed point and the depth in 8.24, all as unsigned words
// so that stepping wraps instead of overflowing; inner loops only add and shift.
#include <cstdint>

#include "engine3d/raster/ScreenPolygon.hpp"

namespace vz::raster {

// The running values of attributes 1-4 in 16.16.
struct Attributes {
    std::uint32_t a[4] = {};
};

// What a texel fetch reads. Textures are addressed by mask (a power of two no larger
// than the texture, at most 256, so a 256 x 256 texture wraps and another size tiles
// its top-left corner) or, for the any-size kind, held at the last column and row.
// Either way no read leaves the texture.
struct TexelSource {
    const void* texels = nullptr;  // std::uint32_t (32-bit maps) or std::uint8_t
    int pitch = 0;
    std::uint32_t maskU = 0, maskV = 0;
    int lastU = 0, lastV = 0;  // the any-size kind's largest column and row
    const std::uint8_t* light = nullptr;
    int lightPitch = 0;
    std::uint32_t lightMaskU = 0, lightMaskV = 0;
    const std::uint32_t* palette = nullptr;
    std::uint32_t colour = 0;  // the flat kinds
};

enum class DepthMode { painter, test, testAndWrite };

template <class P>
struct Span {
    P* target = nullptr;
    std::uint32_t* zbuffer = nullptr;
    int pitch = 0;
    std::uint32_t zword = 0;
    std::uint32_t steps[4] = {};  // attributes 1-4 per pixel, 16.16
    std::uint32_t depthStep = 0;  // attribute 5 per pixel, 8.24
    TexelSource source;
    // Writes n pixels' source colours to `out` and steps the attributes past them.
    void (*fetch)(const Span& span, Attributes& at, P* out, int n) = nullptr;
    // Blends n source pixels onto the target; null when the source simply replaces
    // the target, and the fetch then writes straight into it.
    void (*blend)(P* target, const P* source, int n) = nullptr;
};

// 16.16 and 8.24 words of an attribute, rounded to the nearest and held in the signed
// 32-bit range (NaN gives 0).
std::uint32_t toFixed16(float v);
std::uint32_t toDepth(float v);

// Fills in the per-pixel steps from the polygon's gradients.
template <class P>
void setSteps(Span<P>& span, const float gradients[attributeCount]) {
    for (int i = 0; i < 4; ++i) span.steps[i] = toFixed16(gradients[i]);
    span.depthStep = toDepth(gradients[depthAttribute]);
}

// The blend of a material's rendu: its low byte picks the loop (16, 32, 33 and 35 have
// their own; every other value goes through the general operator loop), bit 8 makes
// black source pixels transparent in the "normal" and general loops. Null for a plain
// "normal".
using Blend32 = void (*)(std::uint32_t* target, const std::uint32_t* source, int n);
Blend32 chooseBlend32(int rendu);
// The 8-bit target has "normal" (32, null) and, for every other rendu, a saturating
// add of the indices.
using Blend8 = void (*)(std::uint8_t* target, const std::uint8_t* source, int n);
Blend8 chooseBlend8(int rendu);

// The loop that draws a row in a depth mode, as a RowSink over a Span<P>.
template <class P>
RowSink rowSink(const Span<P>& span, DepthMode mode);

}  // namespace vz::raster
