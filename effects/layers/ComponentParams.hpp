#pragma once
// Small helpers shared by the layer and palette components: reading parameters from a
// component's script line, checking them, and the pixel counts the runs may touch.
#include <algorithm>
#include <cstdint>
#include <string>

#include "effects/rendu/BlendOperators.hpp"
#include "script/Keytrack.hpp"
#include "script/Layer.hpp"
#include "script/Repository.hpp"
#include "script/TextParser.hpp"

namespace vz {

// The resource named by the next parameter, checked to be of kind T.
template <class T>
T& resourceParam(TextParser& parser) {
    return Repository::instance().aquireAs<T>(parser);
}

// An "unsignedChar" parameter: the integer's low byte, as an 8-bit store keeps it.
inline std::uint8_t byteParam(TextParser& parser) { return static_cast<std::uint8_t>(parser.getInt()); }

// The blend mode of this frame from a rendu track; values outside the table read "normal".
inline int sampleRendu(KeytrackInt& track, float localTime) { return clampRendu(track.sample(localTime)); }

// The number of pixels every listed layer holds: runs that combine several layers as
// flat runs stop at the shortest one, so a script pairing a small map or source with a
// larger target leaves the rest of the target as it is instead of reading past the end.
template <class... Layers>
std::size_t sharedCount(const Layers&... layers) {
    return static_cast<std::size_t>(std::min({layers.pixelCount()...}));
}

// A bad parameter found while building a component: the detail is logged between dash
// lines, then raised.
[[noreturn]] void componentError(const std::string& text);

// Refuses a source that is the target itself, for copies whose rows would overlap inside
// one layer (reading pixels the same copy has already written).
void requireDistinct(const Layer& target, const Layer& source, const char* keyword);

}  // namespace vz
