#pragma once
// The ASCII scene export of a modelling package, read into plain records: per object
// and per camera the parent and the key lists of each animated channel, with times in
// seconds and values already in the engine's axes. SceneMax turns them into keytracks.
//
// How each line is read:
//   *SCENE_FRAMESPEED f, *SCENE_TICKSPERFRAME k   a key time in ticks t is t / (k f) seconds
//                                                 (defaults 30 and 160)
//   *CONTROL_TCB_POS_KEY t x y z ...              a position key; tension, continuity,
//   *CONTROL_BEZIER_POS_KEY t x y z ...           bias, ease and the Bezier tangents that
//   *CONTROL_POS_SAMPLE t x y z                   follow the value are not used
//   *CONTROL_TCB_ROT_KEY t ax ay az angle ...     a turn by `angle` radians about the axis,
//   *CONTROL_BEZIER_ROT_KEY t ax ay az angle ...  relative to the previous key (the first
//   *CONTROL_ROT_SAMPLE t ax ay az angle          is absolute); inside *CONTROL_ROT_TRACK
//   *CONTROL_TCB_SCL_KEY t sx sy sz ...           a scale key; the scale-axis turn that
//   *CONTROL_BEZIER_SCL_KEY t sx sy sz ...        follows is not used
//   *TM_POS, *TM_ROTAXIS + *TM_ROTANGLE, *TM_SCALE   the one key (time 0) of a channel
//                                                 that has no keys
//   *CAMERA_FOV f  (after *TIMEVALUE t)           a field-of-view key, f in radians; a
//                                                 second key at the same time replaces it
// Points and scales swap their second and third axes, as the mesh files do. A rotation
// becomes the three angles (a, b, c) whose matrix, built as the mesh players build it,
// is the accumulated turn; each angle is moved by whole turns to the one nearest the
// previous key's, so that linear interpolation takes the short way round.
//
// Cameras: the first *NODE_TM and *TM_ANIMATION of a *CAMERAOBJECT are the camera's,
// the second ones its target's (the look-at point). The roll is the accumulated angle
// of the camera's rotation keys.
#include <string>
#include <vector>

#include "script/Keytrack.hpp"

namespace vz {

// Times in seconds, strictly increasing; one Vector3 per key (roll and field of view
// use x only).
struct KeyList {
    std::vector<float> times;
    std::vector<Vector3> values;
    int count() const { return static_cast<int>(times.size()); }
};

struct SceneObjectRecord {
    std::string name;
    int parent = -1;  // index of the parent object, -1 for a root
    KeyList position, rotation, scale;
};

struct SceneCameraRecord {
    std::string name;
    int parent = -1;
    KeyList position, lookAt, roll, fov;
};

struct SceneExport {
    // Capacities: more than the scenes in use need, and what the stream format and
    // the scene's camera list can address.
    static constexpr int maxObjects = 32;
    static constexpr int maxCameras = 4;
    static constexpr int maxKeys = 512;  // per channel

    std::vector<SceneObjectRecord> objects;  // *GEOMOBJECT and *HELPER_CLASS, file order
    std::vector<SceneCameraRecord> cameras;
    int lights = 0;
};

// Reads and logs the file (the loading line, unresolved parents, the object and camera
// blocks, "loadScn : aseLoad done !"). A file that cannot be read, a number that does
// not read, too many objects, cameras or keys, key times that go back, or a parent
// cycle is a fatal error naming the file (and line).
SceneExport readSceneExport(const std::string& fileName);

}  // namespace vz
