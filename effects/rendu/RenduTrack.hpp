#pragma once
// The blend mode of a frame, read from a component's rendu track.
#include "effects/rendu/BlendOperators.hpp"
#include "script/Keytrack.hpp"

namespace vz {

// Values outside the operator table read "normal".
inline int sampleRendu(KeytrackInt& track, float localTime) { return clampRendu(track.sample(localTime)); }

}  // namespace vz
