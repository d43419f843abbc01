// The blend loops of the spans, chosen once per face from the material's rendu. Every
// operator comes from effects/rendu, so a span blends exactly like a layer copy does.
#include <algorithm>

#include "effects/rendu/BlendOperators.hpp"
#include "engine3d/raster/Span.hpp"

namespace vz::raster {

namespace {

// Sprite: a source pixel of 0 is transparent and leaves the target as it is.
template <int R, bool Sprite>
void blendRun(std::uint32_t* target, const std::uint32_t* source, int n) {
    for (int i = 0; i < n; ++i) {
        const std::uint32_t s = source[i];
        if (Sprite && s == 0) continue;
        target[i] = blend::op<R>(s, target[i]);
    }
}

void addIndices(std::uint8_t* target, const std::uint8_t* source, int n) {
    for (int i = 0; i < n; ++i) target[i] = static_cast<std::uint8_t>(std::min(target[i] + source[i], 255));
}

}  // namespace

Blend32 chooseBlend32(int rendu) {
    const bool sprite = (rendu & 256) != 0;
    switch (rendu & 0xFF) {
    case renduGlenz50: return blendRun<renduGlenz50, false>;
    case renduAdd: return blendRun<renduAdd, false>;
    case renduAddNoSat: return blendRun<renduAddNoSat, false>;
    default:
        // "normal" lands here too: clampRendu also turns the low bytes above 35 into it.
        return withRendu(rendu & 0xFF, [sprite](auto r) -> Blend32 {
            constexpr int R = decltype(r)::value;
            if (sprite) return blendRun<R, true>;
            if (R == renduNormal) return nullptr;
            return blendRun<R, false>;
        });
    }
}

Blend8 chooseBlend8(int rendu) { return (rendu & 0xFF) == renduNormal ? nullptr : addIndices; }

}  // namespace vz::raster
