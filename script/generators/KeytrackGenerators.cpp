#include "script/generators/KeytrackGenerator.hpp"

namespace vz {

VZ_COMPONENT("keytrackSpriteNoise", KeytrackSpriteNoise)
VZ_COMPONENT("keytrackVector2Noise", KeytrackVector2Noise)
VZ_COMPONENT("keytrackFloatNoise", KeytrackFloatNoise)
VZ_COMPONENT("keytrackSpriteSinus", KeytrackSpriteSinus)
VZ_COMPONENT("keytrackVector2Sinus", KeytrackVector2Sinus)
VZ_COMPONENT("keytrackFloatSinus", KeytrackFloatSinus)

}  // namespace vz
