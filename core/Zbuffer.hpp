#pragma once
// Depth values of the 3D renderers, one word per pixel, plus a frame stamp that lives
// in the top byte of the stored values: advancing the stamp each frame makes the
// previous frame's depths stale without clearing the buffer.
//
// A Zbuffer is a Layer32bpp (with its own kind name), so code that only needs the
// pixel words, such as layer copies, can take it where a 32-bit layer is asked for;
// a plain Layer32bpp is not accepted where a Zbuffer is asked for.
#include <cstdint>

#include "core/Layer.hpp"

namespace vz {

class Zbuffer : public Layer32bpp {
public:
    static constexpr std::uint32_t stampStep = 0x01000000;
    static constexpr std::uint32_t lastStamp = 0x7F000000;

    Zbuffer(int w, int h);  // every element and the stamp at 0
    static const char* staticKind() { return "Zbuffer"; }
    const char* kindName() const override { return staticKind(); }

    // Next frame's stamp; after the last one the stamp returns to 0 and the elements
    // are cleared, so that no old depth can pass for a new one.
    void advanceStamp();
    void clear();

    std::uint32_t stamp = 0;
};

}  // namespace vz
