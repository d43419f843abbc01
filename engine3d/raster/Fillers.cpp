#include "engine3d/raster/Fillers.hpp"

#include <algorithm>
#include <cmath>

#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "engine3d/raster/EdgeWalk.hpp"
#include "engine3d/raster/TexelFetch.hpp"
#include "script/Material.hpp"

namespace vz::raster {

namespace {

// Corners farther out than this cannot be walked in 16.16; the front end clips every
// face to the target, so only a malformed face gets here, and it is not drawn.
constexpr float cornerLimit = 16384.0f;

// The mask of the largest power of two not above `size` nor 256.
std::uint32_t maskFor(int size) {
    std::uint32_t m = 1;
    while (m < 256 && static_cast<int>(m * 2) <= size) m *= 2;
    return m - 1;
}

bool is8bit(FillerKind kind) { return kind == FillerKind::texture8 || kind == FillerKind::gouraud8; }

// The kind actually drawn: a kind whose layers the material lacks paints flat.
FillerKind available(FillerKind kind, const Material* m) {
    const bool map32 = m && m->map32, map8 = m && m->map8, palette = m && m->palette;
    switch (kind) {
    case FillerKind::texture32:
    case FillerKind::textureAnysize32:
    case FillerKind::flatPattern: return map32 ? kind : FillerKind::flat32;
    case FillerKind::palette8Lit32: return map8 && palette ? kind : FillerKind::flat32;
    case FillerKind::dualTexture8: return map8 && palette && m->lightmap8 ? kind : FillerKind::flat32;
    case FillerKind::texture8: return map8 ? kind : FillerKind::gouraud8;
    default: return kind;
    }
}

// Attributes 1-4 of a corner for a kind.
void attributesOf(FillerKind kind, const ProjectedVertex& v, const Material* m, const ScreenVertex& at, float* a) {
    switch (kind) {
    case FillerKind::texture32:
    case FillerKind::texture8:
    case FillerKind::palette8Lit32:
    case FillerKind::dualTexture8:
        a[0] = v.u * 256;
        a[1] = v.v * 256;
        a[2] = v.u2 * 256;
        a[3] = v.v2 * 256;
        break;
    case FillerKind::textureAnysize32:
        a[0] = v.u * static_cast<float>(m->map32->width);
        a[1] = v.v * static_cast<float>(m->map32->height);
        break;
    case FillerKind::flatPattern:  // the screen position of the pixel's centre
        a[0] = at.x + 0.5f;
        a[1] = at.y + 0.5f;
        break;
    case FillerKind::gouraud32:
        a[0] = v.r;
        a[1] = v.g;
        a[2] = v.b;
        break;
    case FillerKind::gouraud8: a[0] = v.u2 * 256; break;
    default: break;
    }
}

bool buildPolygon(const RenderContext& c, const VisibleFace& face, FillerKind kind, ScreenPolygon& p) {
    const std::size_t first = static_cast<std::size_t>(face.first);
    if (face.first < 0 || face.count < 2 || face.count > maxCorners || first + face.count > c.vertices.size())
        return false;
    p.count = face.count;
    const Viewport& view = c.viewport;
    for (int k = 0; k < face.count; ++k) {
        const ProjectedVertex& v = c.vertices[first + k];
        ScreenVertex& s = p.v[k];
        s.x = v.px * view.scaleX + view.centreX;
        s.y = v.py * view.scaleY + view.centreY;
        if (!(std::abs(s.x) <= cornerLimit && std::abs(s.y) <= cornerLimit)) return false;
        s.row = static_cast<int>(std::ceil(s.y));
        attributesOf(kind, v, face.material, s, s.a);
        s.a[depthAttribute] = v.depth;
    }
    // A double-faced material shows its back too: walked the other way round, its
    // corners run like a front face's.
    if (face.material && face.material->doubleFace && signedArea(p) > 0) std::reverse(p.v, p.v + p.count);
    return true;
}

TexelSource sourceOf(FillerKind kind, const VisibleFace& face) {
    const Material* m = face.material;
    TexelSource s;
    s.colour = face.flatColor;
    auto map = [&s](const auto* layer) {
        s.texels = layer->pixels;
        s.pitch = layer->width;
        s.maskU = maskFor(layer->width);
        s.maskV = maskFor(layer->height);
        s.lastU = layer->width - 1;
        s.lastV = layer->height - 1;
    };
    switch (kind) {
    case FillerKind::texture32:
    case FillerKind::textureAnysize32:
    case FillerKind::flatPattern: map(m->map32); break;
    case FillerKind::dualTexture8:
        s.light = m->lightmap8->pixels;
        s.lightPitch = m->lightmap8->width;
        s.lightMaskU = maskFor(m->lightmap8->width);
        s.lightMaskV = maskFor(m->lightmap8->height);
        [[fallthrough]];
    case FillerKind::palette8Lit32:
        map(m->map8);
        s.palette = m->palette->colors.data();
        break;
    case FillerKind::texture8: map(m->map8); break;
    default: break;
    }
    return s;
}

DepthMode depthModeOf(const RenderContext& c, int zMode) {
    if (!c.zbuffer) return DepthMode::painter;
    if (zMode == 0) return DepthMode::test;
    if (zMode == 2) return DepthMode::testAndWrite;
    return DepthMode::painter;
}

template <class P>
void paint(const RenderContext& c, P* target, const VisibleFace& face, FillerKind kind, int rendu, int zMode) {
    if (!target) return;
    ScreenPolygon polygon;
    if (!buildPolygon(c, face, kind, polygon)) return;
    float gradients[attributeCount];
    pixelGradients(polygon, c.lowQuality, gradients);
    Span<P> span;
    span.target = target;
    span.zbuffer = c.zbuffer;
    span.pitch = c.viewport.pitch;
    span.zword = c.zword;
    setSteps(span, gradients);
    span.source = sourceOf(kind, face);
    if constexpr (sizeof(P) == 1) {
        span.fetch = fetch8(kind);
        span.blend = chooseBlend8(rendu);
    } else {
        span.fetch = fetch32(kind);
        span.blend = chooseBlend32(rendu);
    }
    const ClipRect clip{std::min(c.viewport.width, c.viewport.pitch), c.viewport.height};
    scanConvert(polygon, gradients, clip, rowSink(span, depthModeOf(c, zMode)), c.lowQuality);
}

}  // namespace

FillerKind kindFor32(int materialId) {
    switch (materialId) {
    case 0: return FillerKind::texture32;
    case 1: return FillerKind::textureAnysize32;
    case 5: return FillerKind::flatPattern;
    case 6: return FillerKind::gouraud32;
    case 7: return FillerKind::palette8Lit32;
    case 8: return FillerKind::dualTexture8;
    default: return FillerKind::flat32;
    }
}

FillerKind kindFor8(int materialId) { return materialId == 2 ? FillerKind::texture8 : FillerKind::gouraud8; }

void fillFace(const RenderContext& c, const VisibleFace& face, FillerKind kind, int zMode) {
    kind = available(kind, face.material);
    const int rendu = face.material ? face.material->rendu : renduNormal;
    if (is8bit(kind)) {
        paint(c, c.target8, face, kind, rendu, zMode);
    } else if (kind == FillerKind::flatPattern) {
        // The pattern is laid first; the flat colour then goes over it with the
        // material's rendu (at equal depth, so a depth-writing first pass lets it by).
        paint(c, c.target32, face, kind, renduNormal, zMode);
        paint(c, c.target32, face, FillerKind::flat32, rendu, zMode);
    } else {
        paint(c, c.target32, face, kind, rendu, zMode);
    }
}

}  // namespace vz::raster
