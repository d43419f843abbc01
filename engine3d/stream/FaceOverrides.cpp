#include "engine3d/stream/FaceOverrides.hpp"

#include "engine3d/Meshe.hpp"
#include "engine3d/Scene.hpp"

namespace vz {

void FaceOverrides::save(Scene& scene) {
    saved_.clear();
    for (Meshe* mesh : scene.objects)
        for (const Face& face : mesh->faces) saved_.push_back({face.material, face.materialId, face.flatColor});
}

void FaceOverrides::paintIdentities(Scene& scene) {
    save(scene);
    identityDoubleFaced_.doubleFace = true;
    std::uint32_t object = 0;
    for (Meshe* mesh : scene.objects) {
        std::uint32_t index = 0;
        for (Face& face : mesh->faces) {
            const bool doubleFaced = face.material && face.material->doubleFace;
            face.material = doubleFaced ? &identityDoubleFaced_ : &identity_;
            face.materialId = identity_.id;
            face.flatColor = object << 16 | ++index;
        }
        ++object;
    }
}

void FaceOverrides::hideFaces(Scene& scene, const std::vector<const std::vector<std::uint8_t>*>& visibility) {
    save(scene);
    for (std::size_t i = 0; i < scene.objects.size() && i < visibility.size(); ++i) {
        std::vector<Face>& faces = scene.objects[i]->faces;
        const std::vector<std::uint8_t>& visible = *visibility[i];
        for (std::size_t f = 0; f < faces.size(); ++f)
            if (f >= visible.size() || !(visible[f] & 1)) faces[f].material = nullptr;  // the front end skips it
    }
}

void FaceOverrides::restore(Scene& scene) {
    std::size_t k = 0;
    for (Meshe* mesh : scene.objects)
        for (Face& face : mesh->faces) {
            face.material = saved_[k].material;
            face.materialId = saved_[k].materialId;
            face.flatColor = saved_[k].flatColor;
            ++k;
        }
}

}  // namespace vz
