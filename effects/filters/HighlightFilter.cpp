// Sparkles: the star picture is drawn, centred, on white pixels of the target (colour
// 0xFFFFFF, whatever the alpha byte), black star pixels being transparent. The target is
// scanned first and the stars drawn after, so a star never lights further stars. After a
// hit the scan skips half a star's width along the row, and at most maxStars stars are
// drawn per run: a white area gives a grid of stars, not one per pixel.
#include <algorithm>
#include <vector>

#include "effects/filters/ScaledDraw.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

constexpr std::size_t maxStars = 1024;

class HighlightFilter32bpp : public Component {
public:
    HighlightFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), star_(in.symbol<Layer32bpp>()), rendu_(in.symbol<KeytrackInt>()) {
        hits_.reserve(maxStars);
    }

    void run(float t) override {
        const int rendu = clampRendu(rendu_.sample(t));
        const int skip = std::max(1, star_.width / 2);
        hits_.clear();
        for (int y = 0; y < target_.height && hits_.size() < maxStars; ++y) {
            const std::uint32_t* row = target_.row(y);
            for (int x = 0; x < target_.width && hits_.size() < maxStars;) {
                if ((row[x] & 0xFFFFFF) == 0xFFFFFF) {
                    hits_.push_back({x, y});
                    x += skip;
                } else {
                    ++x;
                }
            }
        }
        for (const Hit& hit : hits_)
            drawAt(target_, star_, hit.x - star_.width / 2, hit.y - star_.height / 2, rendu, BlackPixels::transparent);
    }

private:
    struct Hit {
        int x, y;
    };
    Layer32bpp& target_;
    Layer32bpp& star_;
    KeytrackInt& rendu_;
    std::vector<Hit> hits_;
};

}  // namespace

VZ_COMPONENT("highlightFilter32bpp", HighlightFilter32bpp)

}  // namespace vz
