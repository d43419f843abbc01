// Model modifiers: they change a mesh in place every frame and are placed before the
// players that draw it. The deforming kinds start each frame from the positions the
// mesh had when the modifier was made; the lighting kinds write only the mapping and
// colour values the fillers read.
#include <cstdint>
#include <string>
#include <vector>

#include "engine3d/Meshe.hpp"
#include "engine3d/TrackValues.hpp"
#include "engine3d/modifiers/Deformations.hpp"
#include "engine3d/modifiers/Lighting.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"

namespace vz {

// The target between two meshes of its vertex count: source1 at 0, source2 at 1, beyond
// them along the same line.
class MorphingModel : public Component {
public:
    MorphingModel(ComponentContext& in)
        : target_(in.symbol<Meshe>()),
          from_(in.symbol<Meshe>()),
          to_(in.symbol<Meshe>()),
          blend_(in.symbol<KeytrackFloat>()) {
        // A target that is also a source would be moved from where the last frame left it.
        if (&target_ == &from_ || &target_ == &to_) in.fail("the target cannot be one of its sources");
        for (const auto& [role, source] : {std::pair{"source1", &from_}, std::pair{"source2", &to_}})
            if (source->vertexCount != target_.vertexCount)
                in.fail(std::string(role) + " has " + std::to_string(source->vertexCount) + " vertices, the target " +
                        std::to_string(target_.vertexCount));
        ensureNormals(target_);
    }

    void run(float t) override {
        morphPositions(target_, from_, to_, finiteOr(blend_.sample(t), 0));
        refreshNormals(target_);
    }

private:
    Meshe& target_;
    const Meshe& from_;
    const Meshe& to_;
    KeytrackFloat& blend_;
};

// Deformers that work from the mesh's pose at construction.
class PoseModifier : public Component {
protected:
    explicit PoseModifier(Meshe& mesh) : mesh_(mesh), pose_(positionsOf(mesh)), shape_(shapeOf(pose_)) {
        ensureNormals(mesh_);
    }
    Meshe& mesh_;
    const std::vector<Vec3> pose_;
    const PoseShape shape_;
};

class BlobbyModel : public PoseModifier {
public:
    BlobbyModel(ComponentContext& in)
        : PoseModifier(in.symbol<Meshe>()),
          amplitude_(in.symbol<KeytrackFloat>()),
          frequency_(in.symbol<KeytrackFloat>()) {}

    void run(float t) override {
        blobPositions(mesh_, pose_, shape_, finiteOr(amplitude_.sample(t), 0), finiteOr(frequency_.sample(t), 0), t);
        refreshNormals(mesh_);
    }

private:
    KeytrackFloat& amplitude_;
    KeytrackFloat& frequency_;
};

class SpherifyCubeModel : public PoseModifier {
public:
    SpherifyCubeModel(ComponentContext& in) : PoseModifier(in.symbol<Meshe>()), amount_(in.symbol<KeytrackFloat>()) {}

    void run(float t) override {
        spherifyPositions(mesh_, pose_, shape_, finiteOr(amount_.sample(t), 0));
        refreshNormals(mesh_);
    }

private:
    KeytrackFloat& amount_;
};

// The mesh turned by the rotation track, its top `delay` seconds behind its bottom.
class DelayModel : public PoseModifier {
public:
    DelayModel(ComponentContext& in)
        : PoseModifier(in.symbol<Meshe>()),
          rotation_(in.symbol<KeytrackVector3>()),
          delay_(in.realWithin("delay", 0, 3600)),
          heights_(pose_) {}

    void run(float t) override {
        heights_.apply(mesh_, pose_, t, delay_, [&](float at) { return finiteVec3(rotation_.sample(at)); });
        refreshNormals(mesh_);
    }

private:
    KeytrackVector3& rotation_;
    float delay_;
    HeightDelay heights_;
};

class EnvmapModel : public Component {
public:
    EnvmapModel(ComponentContext& in) : mesh_(in.symbol<Meshe>()) { ensureNormals(mesh_); }
    void run(float) override { envmapCoordinates(mesh_); }

private:
    Meshe& mesh_;
};

// The lighting kinds: a light position track, brought into the mesh's object space.
class LightModifier : public Component {
protected:
    explicit LightModifier(ComponentContext& in) : mesh_(in.symbol<Meshe>()), light_(in.symbol<KeytrackVector3>()) {
        ensureNormals(mesh_);
    }
    Vec3 lightAt(float t) { return toObjectSpace(mesh_, finiteVec3(light_.sample(t))); }
    Meshe& mesh_;

private:
    KeytrackVector3& light_;
};

class PhongModel : public LightModifier {
public:
    PhongModel(ComponentContext& in) : LightModifier(in) {}
    void run(float t) override { phongCoordinates(mesh_, lightAt(t)); }
};

class LightFlatModel : public LightModifier {
public:
    LightFlatModel(ComponentContext& in) : LightModifier(in), colours_(faceBaseColours(mesh_)) {}
    void run(float t) override { flatLighting(mesh_, lightAt(t), colours_); }

private:
    const std::vector<std::uint32_t> colours_;
};

class LightGouraudModel : public LightModifier {
public:
    LightGouraudModel(ComponentContext& in) : LightModifier(in), colours_(vertexBaseColours(mesh_)) {}
    void run(float t) override { gouraudLighting(mesh_, lightAt(t), colours_); }

private:
    const std::vector<std::uint32_t> colours_;
};

VZ_COMPONENT("morphingModel", MorphingModel)
VZ_COMPONENT("blobbyModel", BlobbyModel)
VZ_COMPONENT("spherifyCubeModel", SpherifyCubeModel)
VZ_COMPONENT("delayModel", DelayModel)
VZ_COMPONENT("envmapModel", EnvmapModel)
VZ_COMPONENT("phongModel", PhongModel)
VZ_COMPONENT("lightFlatModel", LightFlatModel)
VZ_COMPONENT("lightGouraudModel", LightGouraudModel)

}  // namespace vz
