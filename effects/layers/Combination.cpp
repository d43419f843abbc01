// An 8-bit picture lit by an 8-bit light map through a colour look-up table.
#include "effects/palettes/Lut.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

// Target pixel i = lut entry (light i x 256 + colour i), over the image's pixels; a light
// map or target smaller than the image stops the run at its end.
class Combination32bpp : public Component {
public:
    Combination32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          image_(in.symbol<Layer8bpp>()),
          light_(in.symbol<Layer8bpp>()),
          lut_(lutParam(in)) {}

    void run(float) override {
        std::uint32_t* out = target_.pixels;
        const std::uint8_t* colour = image_.pixels;
        const std::uint8_t* light = light_.pixels;
        const std::uint32_t* lut = lut_.pixels;
        for (std::size_t i = 0, n = sharedCount(target_, image_, light_); i < n; ++i)
            out[i] = lut[std::uint32_t{light[i]} << 8 | colour[i]];
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& image_;
    const Layer8bpp& light_;
    const Layer32bpp& lut_;
};

VZ_COMPONENT("combination32bpp", Combination32bpp)

}  // namespace vz
