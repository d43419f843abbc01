// Rounded screen corners: outside a quarter circle of radius r in each corner, the pixels
// are filled with the back colour. Pixel (i, j) of a corner square is outside when its
// centre lies further than r from the circle's centre; the count per row is found once,
// at construction. The radius is held within half the smaller side; 0 or less draws
// nothing.
#include <algorithm>
#include <vector>

#include "core/Palette.hpp"
#include "effects/rendu/BlendOperators.hpp"
#include "effects/rendu/BulkKernels.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

namespace {

class AddCorners32bpp : public Component {
public:
    AddCorners32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), colour_(in.symbol<Color>()) {
        const int r = std::clamp(in.integer(), 0, std::min(target_.width, target_.height) / 2);
        // Row j of a corner square (j = 0 at the layer's edge): the pixels i = 0, 1, ...
        // whose centres (r - i - 0.5, r - j - 0.5) from the circle's centre lie beyond r.
        for (int j = 0; j < r; ++j) {
            const double dy = r - j - 0.5;
            int outside = 0;
            while (outside < r) {
                const double dx = r - outside - 0.5;
                if (dx * dx + dy * dy <= static_cast<double>(r) * r) break;
                ++outside;
            }
            outside_.push_back(outside);
        }
    }

    void run(float) override {
        const int w = target_.width, h = target_.height;
        for (int j = 0; j < static_cast<int>(outside_.size()); ++j) {
            const auto n = static_cast<std::size_t>(outside_[j]);
            for (int y : {j, h - 1 - j}) {
                fillRun(target_.row(y), colour_.value, n, renduNormal);
                fillRun(target_.row(y) + w - n, colour_.value, n, renduNormal);
            }
        }
    }

private:
    Layer32bpp& target_;
    Color& colour_;
    std::vector<int> outside_;  // pixels to fill at each end of corner row j
};

}  // namespace

VZ_COMPONENT("addCorners32bpp", AddCorners32bpp)

}  // namespace vz
