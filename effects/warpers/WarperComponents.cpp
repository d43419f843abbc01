// The warpers: a picture deformed by ripples spreading from the centre (plain, or 8-bit
// and lit through a look-up table), shaken by sine waves, or seen through a relief of
// glass. They read pixels round the one they write, so the target cannot be its own
// source; the source must be at least as large as the target, whose size it is read at.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include "core/Layer.hpp"
#include "core/SafeNumbers.hpp"
#include "effects/procedural/SineTable.hpp"
#include "effects/warpers/Displacement.hpp"
#include "effects/warpers/Ripples.hpp"
#include "effects/warpers/SinusShift.hpp"
#include "effects/warpers/WarpSampling.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

namespace {

// A shift in whole pixels; beyond the picture's size every pixel is clamped to an edge.
int pixelShift(double pixels, const Layer& target) {
    const int limit = std::max(target.width, target.height);
    return clampToInt(std::floor(pixels + 0.5), -limit, limit);
}

}  // namespace

// Ripples of `amplitude` pixels (held within +-127) over a 32-bit picture.
class SorbelWarper32bpp : public Component {
public:
    SorbelWarper32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          map_(in.symbol<Layer32bpp>()),
          amplitude_(in.symbol<KeytrackFloat>()),
          ripples_(target_.width, target_.height, map_.width) {
        in.requireDistinct(target_, map_);
        in.requireCovers("the map", map_, target_);
    }
    void run(float t) override {
        ripples_.frame(amplitude_.sample(t), t);
        ripples_.warp(target_.pixels, map_.pixels);
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& map_;
    KeytrackFloat& amplitude_;
    Ripples ripples_;
};

// The same ripples over an 8-bit picture, each pixel coloured by the look-up table at the
// light of the wave's slope: lut[light * 256 + index].
class SorbelWarperLight32bpp : public Component {
public:
    SorbelWarperLight32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          map_(in.symbol<Layer8bpp>()),
          lut_(in.symbol<Layer32bpp>()),
          amplitude_(in.symbol<KeytrackFloat>()),
          ripples_(target_.width, target_.height, map_.width) {
        in.requireCovers("the map", map_, target_);
        in.requireFullTable("the lut", lut_);
    }
    void run(float t) override {
        ripples_.frame(amplitude_.sample(t), t);
        ripples_.warpLit(target_.pixels, map_.pixels, lut_.pixels);
    }

private:
    Layer32bpp& target_;
    const Layer8bpp& map_;
    const Layer32bpp& lut_;
    KeytrackFloat& amplitude_;
    Ripples ripples_;
};

// Rows shifted sideways and columns up and down by sine waves of `amplitude` pixels;
// `frequence` waves fit in the target's height, both ways, and they travel at their own
// paces so the picture never moves as one block.
class KestrilWarper32bpp : public Component {
public:
    static constexpr double rowPace = 0.5, columnPace = 0.35;  // waves a second

    KestrilWarper32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          amplitude_(in.symbol<KeytrackFloat>()),
          frequence_(in.symbol<KeytrackFloat>()),
          rowShift_(static_cast<std::size_t>(target_.height)),
          columnShift_(static_cast<std::size_t>(target_.width)),
          columnOffset_(columnShift_.size()) {
        in.requireDistinct(target_, source_);
        in.requireCovers("the source", source_, target_);
    }
    void run(float t) override {
        const double amplitude = amplitude_.sample(t), wavesPerPixel = frequence_.sample(t) / target_.height;
        const int w = target_.width, h = target_.height;
        const double pixels = pixelShift(amplitude, target_);
        for (int y = 0; y < h; ++y)
            rowShift_[y] =
                pixelShift(pixels * sine::at(sine::phaseOfTurns(y * wavesPerPixel - rowPace * t)) / sine::one, target_);
        int largest = 0;
        for (int x = 0; x < w; ++x) {
            columnShift_[x] = pixelShift(
                pixels * sine::at(sine::phaseOfTurns(x * wavesPerPixel - columnPace * t + 0.25)) / sine::one, target_);
            columnOffset_[x] = static_cast<std::int64_t>(columnShift_[x]) * source_.width;
            largest = std::max(largest, std::abs(columnShift_[x]));
        }
        const SinusShifts shifts{rowShift_.data(), columnShift_.data(), columnOffset_.data(), largest};
        for (int y = 0; y < h; ++y) {
            sinusShiftRow(row_.data(), source_.pixels, source_.width, w, h, y, shifts);
            copyWarpedRow(target_.row(y), row_.data(), w);
        }
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
    KeytrackFloat& amplitude_;
    KeytrackFloat& frequence_;
    std::vector<int> rowShift_, columnShift_;
    std::vector<std::int64_t> columnOffset_;
    std::vector<std::uint32_t> row_ = std::vector<std::uint32_t>(columnShift_.size());
};

// The source seen through the relief of an 8-bit map: a slope of one level a pixel (half
// the difference of the two neighbours) moves the pixel by `intensity` pixels.
class Displacement32bpp : public Component {
public:
    Displacement32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          map_(in.symbol<Layer8bpp>()),
          intensity_(in.symbol<KeytrackFloat>()),
          across_(slopeCount),
          down_(slopeCount),
          downOffset_(slopeCount) {
        in.requireDistinct(target_, source_);
        in.requireCovers("the source", source_, target_);
        in.requireCovers("the map", map_, target_);
    }
    void run(float t) override {
        const double perLevel = intensity_.sample(t) / 2.0;
        int largest = 0;
        for (int d = 0; d < slopeCount; ++d) {
            across_[d] = down_[d] = pixelShift((d - slopeCount / 2) * perLevel, target_);
            downOffset_[d] = static_cast<std::int64_t>(down_[d]) * source_.width;
            largest = std::max(largest, std::abs(down_[d]));
        }
        const SlopeMoves moves{across_.data(), down_.data(), downOffset_.data(), largest};
        const int w = target_.width, h = target_.height;
        for (int y = 0; y < h; ++y) {
            displacementRow(row_.data(), source_.pixels, source_.width, w, h, y, map_.row(std::max(0, y - 1)),
                            map_.row(y), map_.row(std::min(h - 1, y + 1)), moves);
            copyWarpedRow(target_.row(y), row_.data(), w);
        }
    }

private:
    Layer32bpp& target_;
    const Layer32bpp& source_;
    const Layer8bpp& map_;
    KeytrackFloat& intensity_;
    std::vector<int> across_, down_;
    std::vector<std::int64_t> downOffset_;
    std::vector<std::uint32_t> row_ = std::vector<std::uint32_t>(static_cast<std::size_t>(target_.width));
};

VZ_COMPONENT("sorbelWarper32bpp", SorbelWarper32bpp)
VZ_COMPONENT("sorbelWarperLight32bpp", SorbelWarperLight32bpp)
VZ_COMPONENT("kestrilWarper32bpp", KestrilWarper32bpp)
VZ_COMPONENT("displacement32bpp", Displacement32bpp)

}  // namespace vz
