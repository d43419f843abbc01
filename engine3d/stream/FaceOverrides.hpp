#pragma once
// The stream components draw a scene's faces otherwise than their materials say: the
// recorder paints each face in its identification colour, the player leaves out the
// faces its stream marks hidden. The faces are changed for one projection and put back
// right after, so the scene's own players never see the change.
#include <cstdint>
#include <vector>

#include "script/Material.hpp"

namespace vz {

class Meshe;
class Scene;

class FaceOverrides {
public:
    // Every face of object i painted flat in (i << 16 | face + 1), depth-tested, no blend.
    void paintIdentities(Scene& scene);
    // The faces whose byte in `visibility[i]` has bit 0 clear are left out.
    void hideFaces(Scene& scene, const std::vector<const std::vector<std::uint8_t>*>& visibility);
    // Every face as it was.
    void restore(Scene& scene);

private:
    struct Saved {
        Material* material;
        int materialId;
        std::uint32_t flatColor;
    };
    void save(Scene& scene);

    std::vector<Saved> saved_;  // every face of every object, in order; keeps its room
    Material identity_, identityDoubleFaced_;
};

}  // namespace vz
