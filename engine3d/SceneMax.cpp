#include "engine3d/SceneMax.hpp"

#include <algorithm>

#include "core/logstream.hpp"
#include "engine3d/Meshe.hpp"
#include "engine3d/Transform.hpp"
#include "engine3d/loaders/SceneExport.hpp"
#include "script/Repository.hpp"
#include "script/ResourceKinds.hpp"
#include "script/TextParser.hpp"

namespace vz {

namespace {

void fill(KeytrackVector3& track, const KeyList& keys, Interpolation interpolation) {
    track.times = keys.times;
    track.values = keys.values;
    track.interpolation = interpolation;
}

}  // namespace

SceneMax::SceneMax(const SceneExport& scene, std::vector<std::shared_ptr<Meshe>> meshes) : meshes_(std::move(meshes)) {
    objectTracks.resize(scene.objects.size());
    for (std::size_t i = 0; i < scene.objects.size(); ++i) {
        meshes_[i]->parent = meshes_[i]->firstChild = meshes_[i]->nextSibling = nullptr;
        objects.push_back(meshes_[i].get());
        logout() << "Model Keytrack building : index = " << i << lend;
        const SceneObjectRecord& object = scene.objects[i];
        fill(objectTracks[i].position, object.position, Spline);
        fill(objectTracks[i].rotation, object.rotation, Linear);
        fill(objectTracks[i].scale, object.scale, Spline);
    }
    for (std::size_t i = 0; i < scene.objects.size(); ++i)
        if (scene.objects[i].parent >= 0) linkUnder(*meshes_[i], meshes_[scene.objects[i].parent].get());

    cameraTracks.resize(scene.cameras.size());
    for (std::size_t c = 0; c < scene.cameras.size(); ++c) {
        ownCameras_.push_back(std::make_unique<Camera>());
        Camera& camera = *ownCameras_.back();
        // A loaded camera starts zeroed; its tracks set it before every drawing.
        camera.lookAt = {0, 0, 0};
        camera.fov = 0;
        if (scene.cameras[c].parent >= 0) linkUnder(camera, meshes_[scene.cameras[c].parent].get());
        cameras.push_back(&camera);
        logout() << "Camera Keytrack building : index = " << c << lend;
        const SceneCameraRecord& record = scene.cameras[c];
        fill(cameraTracks[c].position, record.position, Spline);
        fill(cameraTracks[c].lookAt, record.lookAt, Spline);
        fill(cameraTracks[c].roll, record.roll, Spline);
        fill(cameraTracks[c].fov, record.fov, Spline);
    }
}

void SceneMax::pose(float time) {
    // The lists are a Scene's too: the scene components may have changed them.
    for (std::size_t i = 0; i < std::min(objects.size(), objectTracks.size()); ++i) {
        Meshe& mesh = *objects[i];
        ObjectTracks& tracks = objectTracks[i];
        mesh.lastTime = -1.0f;
        const Vector3 p = tracks.position.sample(time), r = tracks.rotation.sample(time), s = tracks.scale.sample(time);
        mesh.position = {p.x, p.y, p.z};
        mesh.rotation = rotationFromAngles(r.x, r.y, r.z);
        mesh.scale = {s.x, s.y, s.z};
        // A flat axis has no inverse; 0 keeps the lighting of such an object finite.
        auto inverse = [](float v) { return v != 0 ? 1.0f / v : 0.0f; };
        mesh.inverseScale = {inverse(s.x), inverse(s.y), inverse(s.z)};
    }
    for (std::size_t c = 0; c < std::min(cameras.size(), cameraTracks.size()); ++c) {
        Camera& camera = *cameras[c];
        CameraTracks& tracks = cameraTracks[c];
        const Vector3 p = tracks.position.sample(time), l = tracks.lookAt.sample(time);
        camera.position = {p.x, p.y, p.z};
        camera.lookAt = {l.x, l.y, l.z};
        camera.roll = tracks.roll.sample(time).x;
        camera.fov = tracks.fov.sample(time).x;
        camera.state = 0;
    }
}

std::unique_ptr<Resource> loadScn(TextParser& parser, Repository& repository) {
    const std::string fileName = parser.getTokenCopy();
    const SceneExport scene = readSceneExport(fileName);
    std::vector<std::shared_ptr<Meshe>> meshes;
    for (std::size_t i = 0; i < scene.objects.size(); ++i) {
        if (!parser.nextLine())
            fatal("loadScn : " + fileName + " has " + std::to_string(scene.objects.size()) +
                  " objects, the script names " + std::to_string(i) + " meshes");
        const Symbol* symbol = repository.aquire(parser.getTokenCopy());
        Meshe& mesh = Repository::dataAs<Meshe>(*symbol);
        for (const auto& bound : meshes)
            if (bound.get() == &mesh) fatal("loadScn : " + symbol->name() + " is bound to two objects of " + fileName);
        meshes.emplace_back(symbol->shared(), &mesh);
    }
    return std::make_unique<SceneMax>(scene, std::move(meshes));
}

VZ_RESOURCE_KIND("SceneMax", loadScn)

}  // namespace vz
