#pragma once
// Checks a filter or transition makes in its constructor on the layers a script hands
// it, so that a run never reads or writes outside a layer. A failed check logs the
// detail between two dash lines and throws error with the same text.
#include <string>

#include "script/Layer.hpp"

namespace vz {

[[noreturn]] void failComponent(const std::string& message);

// "<keyword> : <role> is WxH, the target is WxH" unless `layer` has the target's size.
void requireSameSize(const char* keyword, const char* role, const Layer& layer, const Layer& target);

// "<keyword> : <role> is WxH, smaller than the target's WxH" unless `layer` is at least
// as wide and as high as the target.
void requireCovers(const char* keyword, const char* role, const Layer& layer, const Layer& target);

// "<keyword> : <role> holds N pixels, the target needs M" unless `layer` holds at least
// the target's pixel count (for layers read as flat runs with the target's row length).
void requirePixelCount(const char* keyword, const char* role, const Layer& layer, const Layer& target);

// "<keyword> : target and source must be different layers" when they are the same one.
void requireDistinct(const char* keyword, const Layer& target, const Layer& source);

}  // namespace vz
