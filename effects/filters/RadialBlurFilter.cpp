// Radial blur in place: every pixel is blended with the pixel found a fraction of the way
// towards the centre. The picture is walked outwards from the centre, so the inward pixel
// has already been blurred and the streaks grow long in one pass.
#include <algorithm>
#include <cmath>
#include <vector>

#include "core/SafeNumbers.hpp"
#include "effects/filters/TowardsCentre.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

// Normalised -1..1 to a pixel, held inside 0 .. side - 1 so the inward samples, which lie
// between a pixel and the centre, stay inside the layer. A position that is not a number
// (a track interpolated from huge keys) is the first pixel.
int centrePixel(float normalised, int side) {
    return clampToInt(std::floor((static_cast<double>(normalised) + 1.0) * (side >> 1)), 0, side - 1);
}

class RadialBlurFilter32bpp : public Component {
public:
    // intensity 0-256: how far towards the centre the sample lies, in 256ths of the
    // distance; smoothness 0-32: the sample's weight in 32nds (32 replaces the pixel).
    RadialBlurFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          position_(in.symbol<KeytrackVector2>()),
          intensity_(in.symbol<KeytrackInt>()),
          smoothness_(in.symbol<KeytrackInt>()),
          inwardX_(target_.width),
          inwardY_(target_.height) {}

    void run(float t) override {
        const Vector2 at = position_.sample(t);
        const int cx = centrePixel(at.x, target_.width);
        const int cy = centrePixel(at.y, target_.height);
        const int m = 256 - std::clamp(intensity_.sample(t), 0, 256);
        fillTowardsCentre(inwardX_.data(), target_.width, cx, m);
        fillTowardsCentre(inwardY_.data(), target_.height, cy, m);
        const int level = std::clamp(smoothness_.sample(t), 0, 32);
        withRendu(level, [&](auto rendu) {
            constexpr int R = decltype(rendu)::value;
            for (int y = cy; y < target_.height; ++y) blurRow<R>(y, cx);
            for (int y = cy - 1; y >= 0; --y) blurRow<R>(y, cx);
        });
    }

private:
    template <int R>
    void blurRow(int y, int cx) {
        std::uint32_t* row = target_.row(y);
        const std::uint32_t* inwardRow = target_.row(inwardY_[y]);
        for (int x = cx; x < target_.width; ++x) row[x] = blend::op<R>(inwardRow[inwardX_[x]], row[x]);
        for (int x = cx - 1; x >= 0; --x) row[x] = blend::op<R>(inwardRow[inwardX_[x]], row[x]);
    }

    Layer32bpp& target_;
    KeytrackVector2& position_;
    KeytrackInt& intensity_;
    KeytrackInt& smoothness_;
    std::vector<int> inwardX_;
    std::vector<int> inwardY_;
};

}  // namespace

VZ_COMPONENT("radialBlurFilter32bpp", RadialBlurFilter32bpp)

}  // namespace vz
