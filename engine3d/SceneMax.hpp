#pragma once
// A scene loaded from a scene export: its objects are meshes of the repository, linked
// as the file's hierarchy says, and every object and camera carries its own keytracks.
//   add NAME SceneMax scene.ase
//   mesh0          one line per object of the file, in file order: the Meshe to show
//   mesh1
#include <memory>
#include <string>
#include <vector>

#include "engine3d/Camera.hpp"
#include "engine3d/Scene.hpp"
#include "script/Keytrack.hpp"

namespace vz {

class Repository;
class TextParser;
struct SceneExport;

class SceneMax : public Scene {
public:
    static const char* staticKind() { return "SceneMax"; }
    const char* kindName() const override { return staticKind(); }

    // Binds `meshes` (one per object of `scene`, in order) and builds the tracks; logs
    // "Model Keytrack building : index = " and "Camera Keytrack building : index = ".
    SceneMax(const SceneExport& scene, std::vector<std::shared_ptr<Meshe>> meshes);

    // Places every object and camera as its tracks say at `time`; the objects' placements
    // are marked stale.
    void pose(float time);

    struct ObjectTracks {
        KeytrackVector3 position, rotation, scale;
    };
    struct CameraTracks {
        KeytrackVector3 position, lookAt, roll, fov;  // roll and fov in x, radians
    };
    std::vector<ObjectTracks> objectTracks;  // one per object
    std::vector<CameraTracks> cameraTracks;  // one per camera

private:
    std::vector<std::shared_ptr<Meshe>> meshes_;
    std::vector<std::unique_ptr<Camera>> ownCameras_;
};

// The "SceneMax" declaration: the file name, then one mesh symbol per object on the
// lines that follow.
std::unique_ptr<Resource> loadScn(TextParser& parser, Repository& repository);

}  // namespace vz
