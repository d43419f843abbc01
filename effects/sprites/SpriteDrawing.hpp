#pragma once
// Sprites: pictures pasted onto a 32-bit layer at a normalised position (-1..1 across
// the layer), optionally scaled, clipped to the layer. Every sprite and text drawing
// goes through the placement, clipping and row walking below; the variants differ only
// in how one source pixel meets one target pixel.
#include <cstddef>
#include <cstdint>
#include <optional>

#include "core/Fixed16.hpp"
#include "core/Layer.hpp"
#include "effects/rendu/BlendOperators.hpp"

namespace vz {

struct Sprite {
    int width = 0;  // picture size in pixels (a glyph: the font's width, the cell height)
    int height = 0;
    int px = 0;  // placed top-left corner in target pixels
    int py = 0;
    float scaleX = 1.0f;
    float scaleY = 1.0f;
};

// What clipping leaves to draw: a run of target pixels and where the source starts.
struct SpriteRun {
    int width = 0;  // in target pixels
    int height = 0;
    int dstX = 0;
    int dstY = 0;
    std::uint32_t srcX = 0;  // 16.16 source position of the run's first column and row
    std::uint32_t srcY = 0;
    std::uint32_t stepX = fixed16::one;  // 16.16 source advance per target pixel
    std::uint32_t stepY = fixed16::one;
    bool unscaled() const { return stepX == fixed16::one && stepY == fixed16::one; }
};

// Centres the sprite's scaled size on normalised (x, y):
//   px = floor((x + 1) * (W >> 1) - width * scaleX * 0.5), py likewise.
void placeSprite(Sprite& sprite, const Layer& target, float x, float y);

// Clips a placed sprite to the target. Drawn size trunc(width * scaleX) x
// trunc(height * scaleY); nothing when it is empty, or unless px < W - 1, py < H - 1,
// px > -drawnW and py > -drawnH (a sprite starting on the last column or row is not
// drawn). A left or top overhang moves the source start by the hidden pixels times the
// step; a run reaching past W - 1 is cut to end on the last column. Steps are
// trunc(65536 / scale).
std::optional<SpriteRun> clipSprite(const Sprite& sprite, const Layer& target);

// Calls pixel(targetPixel, sourceIndex) for every pixel of the run, sourceIndex being
// row * stride + column in the picture. Unscaled runs walk both pictures pixel by pixel;
// scaled ones step 16.16 positions (the column's integer part a 16-bit index). Clipping
// keeps the run inside the picture, so sourceIndex never leaves it.
template <class PixelFn>
inline void walkSprite(Layer32bpp& target, const SpriteRun& run, int stride, PixelFn&& pixel) {
    const std::size_t columns = static_cast<std::size_t>(run.width);
    if (run.unscaled()) {
        std::size_t source = static_cast<std::size_t>(fixed16::indexOf(run.srcY)) * stride + fixed16::indexOf(run.srcX);
        for (int y = 0; y < run.height; ++y, source += stride) {
            std::uint32_t* dst = target.row(run.dstY + y) + run.dstX;
            for (std::size_t x = 0; x < columns; ++x) pixel(dst[x], source + x);
        }
        return;
    }
    std::uint32_t sourceY = run.srcY;
    for (int y = 0; y < run.height; ++y, sourceY += run.stepY) {
        std::uint32_t* dst = target.row(run.dstY + y) + run.dstX;
        const std::size_t rowStart = static_cast<std::size_t>(fixed16::indexOf(sourceY)) * stride;
        std::uint32_t sourceX = run.srcX;
        for (std::size_t x = 0; x < columns; ++x, sourceX += run.stepX)
            pixel(dst[x], rowStart + fixed16::indexOf(sourceX));
    }
}

// The plain sprite: a black (0) source pixel leaves the target as it is, any other one
// goes through the rendu operator (chosen once for the whole sprite).
void drawSprite(Layer32bpp& target, const SpriteRun& run, const std::uint32_t* pixels, int stride, int rendu);

// Each picture pixel with an opacity: 0 keeps the target, 32 and above copy the source,
// 1-31 blend by that level. Black is not special. The alpha map's bytes lie at the
// picture's own indices (the same stride).
void drawSpriteAlphaMap(Layer32bpp& target, const SpriteRun& run, const std::uint32_t* pixels,
                        const std::uint8_t* alpha, int stride);
// The same with each pixel's own alpha byte (bits 24-31) as its opacity.
void drawSpriteOwnAlpha(Layer32bpp& target, const SpriteRun& run, const std::uint32_t* pixels, int stride);
// An 8-bit picture through its palette's colours; an index whose colour is black is
// transparent.
void drawSpritePalette(Layer32bpp& target, const SpriteRun& run, const std::uint8_t* indices,
                       const std::uint32_t* colours, int stride);

// Places, clips and draws a plain sprite in one go.
void drawSpriteAt(Layer32bpp& target, Sprite& sprite, float x, float y, const std::uint32_t* pixels, int stride,
                  int rendu);

}  // namespace vz
