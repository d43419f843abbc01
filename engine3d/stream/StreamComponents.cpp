// The scene stream's recorder and player components, on a SceneMax posed by its tracks.
#include <cmath>
#include <memory>

#include "core/Zbuffer.hpp"
#include "engine3d/EngineSettings.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/SceneMax.hpp"
#include "engine3d/Transform.hpp"
#include "engine3d/raster/FaceRenderers.hpp"
#include "engine3d/stream/FaceOverrides.hpp"
#include "engine3d/stream/SceneStream.hpp"
#include "engine3d/stream/StreamPlayer.hpp"
#include "engine3d/stream/StreamRecorder.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Show.hpp"

namespace vz {

namespace {

std::vector<int> faceCountsOf(const Scene& scene) {
    std::vector<int> counts;
    for (const Meshe* mesh : scene.objects) counts.push_back(mesh->faceCount);
    return counts;
}

// The posed scene projected on `target` and drawn with the z-buffer renderer.
void drawScene(RenderContext& context, SceneMax& scene, Layer32bpp& target, Zbuffer& zbuffer, float time) {
    projectScene(context, scene, target, time);
    context.target32 = target.pixels;
    context.target8 = nullptr;
    context.zbuffer = zbuffer.pixels;
    context.zword = zbuffer.stamp;
    raster::drawZbuffer32(context);
}

// Draws the scene on the target with its z-buffer, and every 1 / sampleRate seconds of
// local time (sampleRate is in samples per second) draws it again in identification
// colours on a picture of its own, marks the faces that own a pixel and appends the
// sample to the file. The file's size is written when the component ends with the show.
class SceneMaxStreamRecorder32bpp : public Component {
public:
    SceneMaxStreamRecorder32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          zbuffer_(in.symbol<Zbuffer>()),
          scene_(in.symbol<SceneMax>()),
          recorder_(in.word(), faceCountsOf(scene_)),
          rate_(in.realWithin("sampleRate", 0.001, 1000)),
          ids_(target_.width, target_.height),
          idDepth_(target_.width, target_.height),
          settings_(in.show().settings<EngineSettings>()) {
        in.requireSameSize("zbuffer", zbuffer_, target_);
        nextSample_ = 1 / rate_;
    }
    void run(float time) override {
        scene_.pose(time);
        context_.lowQuality = settings_.lowQuality;
        if (scene_.cameras.empty()) return;
        drawScene(context_, scene_, target_, zbuffer_, time);
        if (!(time >= nextSample_)) return;
        std::fill_n(ids_.pixels, ids_.pixelCount(), 0u);
        idDepth_.advanceStamp();
        overrides_.paintIdentities(scene_);
        drawScene(context_, scene_, ids_, idDepth_, time);
        overrides_.restore(scene_);
        // The picture feeds both inputs: a face that stays seen then keeps its written
        // state, and only faces that appear or vanish are written.
        recorder_.mark(ids_.pixels, ids_.width, ids_.height,
                       stream::visibleBit | stream::secondBit | stream::everSeenBit);
        recorder_.writeFrame(time);
        nextSample_ = static_cast<float>((std::floor(time * rate_) + 1) / rate_);
    }

private:
    Layer32bpp& target_;
    Zbuffer& zbuffer_;
    SceneMax& scene_;
    StreamRecorder recorder_;
    float rate_;
    float nextSample_ = 0;
    Layer32bpp ids_;
    Zbuffer idDepth_;
    const EngineSettings& settings_;
    FaceOverrides overrides_;
    RenderContext context_;
};

// Draws only the faces that the stream says are visible at this time.
class SceneMaxPlayerStreamer32bpp : public Component {
public:
    SceneMaxPlayerStreamer32bpp(ComponentContext& in)
        : target_(in.symbol<Layer32bpp>()),
          zbuffer_(in.symbol<Zbuffer>()),
          scene_(in.symbol<SceneMax>()),
          player_(in.word()),
          settings_(in.show().settings<EngineSettings>()) {
        in.requireSameSize("zbuffer", zbuffer_, target_);
        for (std::size_t i = 0; i < scene_.objects.size(); ++i) {
            if (i >= 32 || player_.visibility(static_cast<int>(i)).size() != scene_.objects[i]->faces.size())
                in.fail("the stream was not recorded from this scene");
            visibility_.push_back(&player_.visibility(static_cast<int>(i)));
        }
    }
    void run(float time) override {
        scene_.pose(time);
        context_.lowQuality = settings_.lowQuality;
        if (scene_.cameras.empty()) return;
        player_.advance(time);
        overrides_.hideFaces(scene_, visibility_);
        drawScene(context_, scene_, target_, zbuffer_, time);
        overrides_.restore(scene_);
    }

private:
    Layer32bpp& target_;
    Zbuffer& zbuffer_;
    SceneMax& scene_;
    StreamPlayer player_;
    const EngineSettings& settings_;
    std::vector<const std::vector<std::uint8_t>*> visibility_;
    FaceOverrides overrides_;
    RenderContext context_;
};

}  // namespace

VZ_COMPONENT("sceneMaxStreamRecorder32bpp", SceneMaxStreamRecorder32bpp)
VZ_COMPONENT("sceneMaxPlayerStreamer32bpp", SceneMaxPlayerStreamer32bpp)

}  // namespace vz
