// The designed filters: rounded corners, edge softening, fuzzing, sparkles,
// pixelisation by a pattern and the screen shown four times.
#include <algorithm>
#include <memory>
#include <vector>

#include "core/Palette.hpp"
#include "effects/filters/Antialiasing.hpp"
#include "effects/filters/Corners.hpp"
#include "effects/filters/Fuzzify.hpp"
#include "effects/filters/Highlight.hpp"
#include "effects/filters/Noise.hpp"
#include "effects/filters/Pixelize.hpp"
#include "effects/filters/ScaleDownQuad.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/RandomSeed.hpp"

namespace vz {

namespace {

// The radius is held within half the smaller side; 0 or less draws nothing. The corner
// shape is found once, when the line is read.
class AddCorners32bpp : public Component {
public:
    AddCorners32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          colour_(in.symbol<Color>()),
          cuts_(cornerCuts(std::clamp(in.integer(), 0, std::min(target_.width, target_.height) / 2))) {}

    void run(float) override { fillCorners(target_, cuts_, colour_.value); }

private:
    Layer32bpp& target_;
    Color& colour_;
    std::vector<int> cuts_;
};

class Antialiasing32bpp : public Component {
public:
    Antialiasing32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()), source_(in.symbol<Layer32bpp>()) {
        in.requireSameSize("source", source_, target_);
        in.requireDistinct(target_, source_);
    }

    void run(float) override { antialiasEdges(target_.pixels, source_.pixels, target_.width, target_.height); }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
};

// The offsets' bounds are sampled every run; the noise table is read from new places at
// every run, so the noise moves.
class FuzzifyFilter32bpp : public Component {
public:
    FuzzifyFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          source_(in.symbol<Layer32bpp>()),
          min_(in.symbol<KeytrackFloat>()),
          max_(in.symbol<KeytrackFloat>()),
          generator_(takeRandomSeed()),
          noise_(makeNoiseTable(generator_)) {
        in.requireSameSize("source", source_, target_);
        in.requireDistinct(target_, source_);
    }

    void run(float t) override {
        const int w = target_.width, h = target_.height;
        fuzzOffsets(offsets_, min_.sample(t), max_.sample(t), std::max(w, h));
        const std::size_t phaseX = generator_.next() & noiseTableMask;
        const std::size_t phaseY = generator_.next() & noiseTableMask;
        fuzzify(target_.pixels, source_.pixels, w, h, noise_.data(), offsets_, phaseX, phaseY);
    }

private:
    Layer32bpp& target_;
    Layer32bpp& source_;
    KeytrackFloat& min_;
    KeytrackFloat& max_;
    NoiseGenerator generator_;
    std::vector<std::uint8_t> noise_;
    FuzzOffsets offsets_{};
};

class HighlightFilter32bpp : public Component {
public:
    HighlightFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), star_(in.symbol<Layer32bpp>()), rendu_(in.symbol<KeytrackInt>()) {
        hits_.reserve(maxStars);
    }

    void run(float t) override { drawHighlights(target_, star_, rendu_.sample(t), hits_); }

private:
    Layer32bpp& target_;
    Layer32bpp& star_;
    KeytrackInt& rendu_;
    std::vector<StarHit> hits_;
};

class PixelizeFilter32bpp : public Component {
public:
    PixelizeFilter32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()), image_(in.symbol<Layer32bpp>()), pattern_(in.symbol<Layer8bpp>()) {
        in.requireSameSize("image", image_, target_);
        in.requireSameSize("pattern", pattern_, target_);
        in.requireDistinct(target_, image_);
        startX_ = blockStarts(target_.width);
        startY_ = blockStarts(target_.height);
    }

    void run(float) override {
        pixelize(target_.pixels, image_.pixels, pattern_.pixels, target_.width, target_.height, startX_.data(),
                 startY_.data());
    }

private:
    Layer32bpp& target_;
    Layer32bpp& image_;
    Layer8bpp& pattern_;
    std::vector<int> startX_;
    std::vector<int> startY_;
};

class ScaleDownQuad32bpp : public Component {
public:
    ScaleDownQuad32bpp(ComponentContext& in) : target_(in.symbol<Layer32bpp>()) {
        // A layer narrower or lower than 2 pixels has no quarter to draw.
        if (target_.width >= 2 && target_.height >= 2)
            quarter_ = std::make_unique<Layer32bpp>(target_.width / 2, target_.height / 2);
    }

    void run(float) override {
        if (quarter_) scaleDownQuad(target_, *quarter_);
    }

private:
    Layer32bpp& target_;
    std::unique_ptr<Layer32bpp> quarter_;
};

}  // namespace

VZ_COMPONENT("addCorners32bpp", AddCorners32bpp)
VZ_COMPONENT("antialiasing32bpp", Antialiasing32bpp)
VZ_COMPONENT("fuzzifyFilter32bpp", FuzzifyFilter32bpp)
VZ_COMPONENT("highlightFilter32bpp", HighlightFilter32bpp)
VZ_COMPONENT("pixelizeFilter32bpp", PixelizeFilter32bpp)
VZ_COMPONENT("scaleDownQuad32bpp", ScaleDownQuad32bpp)

}  // namespace vz
