#pragma once
// The 3D engine's state for a whole show, kept in Show::settings<EngineSettings>().
namespace vz {

struct EngineSettings {
    // The field of view of the mesh players' cameras, in radians; "setFov" sets it.
    int fov = 1;
    // LOWQUALITY of config.txt: the transform runs in float instead of double.
    bool lowQuality = false;
};

}  // namespace vz
