// Pixelisation following a grey-level pattern: the pattern's grey at a pixel sets the
// block size there, 1 + grey / 32 (1 to 8 pixels), and the pixel takes the image's pixel
// at the top-left corner of its block (blocks are aligned on multiples of their size).
// Black areas of the pattern keep the image sharp, white areas show 8x8 blocks.
#include <vector>

#include "script/Component.hpp"
#include "script/ComponentContext.hpp"

namespace vz {

namespace {

constexpr int blockSizes = 8;

class PixelizeFilter32bpp : public Component {
public:
    PixelizeFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), image_(in.symbol<Layer32bpp>()), pattern_(in.symbol<Layer8bpp>()) {
        in.requireSameSize("image", image_, target_);
        in.requireSameSize("pattern", pattern_, target_);
        in.requireDistinct(target_, image_);
        // blockStartX_[b * width + x] = x - x % (b + 1): the tables replace the divisions.
        const int w = target_.width, h = target_.height;
        blockStartX_.resize(static_cast<std::size_t>(blockSizes) * w);
        blockStartY_.resize(static_cast<std::size_t>(blockSizes) * h);
        for (int b = 0; b < blockSizes; ++b) {
            for (int x = 0; x < w; ++x) blockStartX_[static_cast<std::size_t>(b) * w + x] = x - x % (b + 1);
            for (int y = 0; y < h; ++y) blockStartY_[static_cast<std::size_t>(b) * h + y] = y - y % (b + 1);
        }
    }

    void run(float) override {
        const int w = target_.width, h = target_.height;
        for (int y = 0; y < h; ++y) {
            const std::uint8_t* grey = pattern_.row(y);
            std::uint32_t* out = target_.row(y);
            for (int x = 0; x < w; ++x) {
                const std::size_t b = grey[x] >> 5;
                out[x] = image_.row(blockStartY_[b * h + y])[blockStartX_[b * w + x]];
            }
        }
    }

private:
    Layer32bpp& target_;
    Layer32bpp& image_;
    Layer8bpp& pattern_;
    std::vector<int> blockStartX_;
    std::vector<int> blockStartY_;
};

}  // namespace

VZ_COMPONENT("pixelizeFilter32bpp", PixelizeFilter32bpp)

}  // namespace vz
