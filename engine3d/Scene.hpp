#pragma once
// A 3D scene as the scene components assemble it every frame: the objects to draw,
// the cameras and which camera looks. "add name Scene" declares an empty one.
#include <vector>

#include "core/Resource.hpp"

namespace vz {

class Meshe;
struct Camera;

class Scene : public Resource {
public:
    static constexpr int maxCameras = 4;

    static const char* staticKind() { return "Scene"; }
    const char* kindName() const override { return staticKind(); }

    std::vector<Meshe*> objects;   // borrowed
    std::vector<Camera*> cameras;  // borrowed, at most maxCameras
    int currentCamera = 0;

    // The camera that looks, or null when there is none at currentCamera.
    Camera* current() const {
        return currentCamera >= 0 && currentCamera < static_cast<int>(cameras.size()) ? cameras[currentCamera]
                                                                                      : nullptr;
    }
};

}  // namespace vz
