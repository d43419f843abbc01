#pragma once
// Hand-made drawings for the rasterizer tests: a small 32-bit target with its depth
// buffer, and a context whose viewport maps (px, py) straight to pixel coordinates.
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "engine3d/RenderContext.hpp"
#include "script/Material.hpp"

namespace vz::test {

struct Corner {
    float x, y, depth = 0.5f, u = 0, v = 0, u2 = 0;
};

struct Canvas {
    int width, height;
    std::vector<std::uint32_t> pixels, depths;
    std::vector<std::uint8_t> indices;
    RenderContext context;

    Canvas(int w, int h, bool zbuffered = true) : width(w), height(h), pixels(w * h), depths(w * h), indices(w * h) {
        context.viewport = {0, 0, 1, 1, w, h, w};
        context.target32 = pixels.data();
        context.target8 = indices.data();
        context.zbuffer = zbuffered ? depths.data() : nullptr;
    }

    void face(Material& material, std::initializer_list<Corner> corners, std::uint32_t flat = 0) {
        const int first = static_cast<int>(context.vertices.size());
        for (const Corner& c : corners) {
            ProjectedVertex v;
            v.px = c.x;
            v.py = c.y;
            v.depth = c.depth;
            v.u = c.u;
            v.v = c.v;
            v.u2 = c.u2;
            context.vertices.push_back(v);
        }
        context.faces.push_back({&material, material.id, flat, first, static_cast<int>(corners.size())});
    }

    // An axis-aligned rectangle, its corners anticlockwise on the screen, mapped from
    // (u0, v0) at the top left to (u1, v1) at the bottom right.
    void rectangle(Material& material, float x0, float y0, float x1, float y1, std::uint32_t flat, float depth = 0.5f,
                   float u0 = 0, float v0 = 0, float u1 = 1, float v1 = 1) {
        face(material,
             {{x0, y0, depth, u0, v0}, {x0, y1, depth, u0, v1}, {x1, y1, depth, u1, v1}, {x1, y0, depth, u1, v0}},
             flat);
    }

    std::uint32_t at(int x, int y) const { return pixels[y * width + x]; }

    // One character per pixel: '.' for 0, else the low byte's hex digit; rows split by '|'.
    std::string text() const {
        std::string s;
        for (int i = 0; i < width * height; ++i) {
            if (i && i % width == 0) s += '|';
            s += pixels[i] ? "0123456789abcdef"[pixels[i] & 15] : '.';
        }
        return s;
    }
};

inline Material material(int id, int rendu = 32, bool solid = true) {
    Material m;
    m.id = id;
    m.rendu = rendu;
    m.solid = solid;
    return m;
}

}  // namespace vz::test
