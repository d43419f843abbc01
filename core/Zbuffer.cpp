#include "core/Zbuffer.hpp"

#include <algorithm>

namespace vz {

Zbuffer::Zbuffer(int w, int h) : Layer32bpp(w, h) { clear(); }

void Zbuffer::clear() { std::fill(pixels, pixels + pixelCount(), 0u); }

void Zbuffer::advanceStamp() {
    if (stamp != lastStamp) {
        stamp += stampStep;
        return;
    }
    stamp = 0;
    clear();
}

}  // namespace vz
