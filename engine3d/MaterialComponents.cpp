// Components that change materials while the show runs.
#include "engine3d/Meshe.hpp"
#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/Material.hpp"

namespace vz {

namespace {

// The material's blend mode follows the track, every frame, whole (the sprite bit too).
class MaterialRendu : public Component {
public:
    MaterialRendu(ComponentContext& in) : material_(in.symbol<Material>()), rendu_(in.symbol<KeytrackInt>()) {}

    void run(float localTime) override { material_.rendu = rendu_.sample(localTime); }

private:
    Material& material_;
    KeytrackInt& rendu_;
};

// Every face of the mesh takes the material and its id, from the first frame on; the
// mesh keeps the material alive from then on.
class LinkMaterial : public Component {
public:
    LinkMaterial(ComponentContext& in)
        : mesh_(in.symbol<Meshe>()), material_(sharedMaterial(in.repository(), in.word())) {}

    void run(float) override { mesh_.bindAll(material_); }

private:
    Meshe& mesh_;
    std::shared_ptr<Material> material_;
};

}  // namespace

VZ_COMPONENT("materialRendu", MaterialRendu)
VZ_COMPONENT("linkMaterial", LinkMaterial)

}  // namespace vz
