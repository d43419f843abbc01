#pragma once
// The sizes a tunnel's run relies on, checked once when its script line is read, so a
// bad script stops with a message instead of reading outside a layer.
#include "script/Layer.hpp"

namespace vz {

// Texel addresses and LUT indices run over 0-65535: the layer must hold that many words.
void requireTexture(const Layer& texture, const char* keyword);
void requireLut(const Layer& lut, const char* keyword);
// Tables and light maps are read as flat runs of the target's pixel count.
void requireCoversTarget(const Layer& layer, const Layer& target, const char* keyword, const char* role);

}  // namespace vz
