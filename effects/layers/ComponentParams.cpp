#include "effects/layers/ComponentParams.hpp"

#include "shell/error.hpp"
#include "shell/logstream.hpp"

namespace vz {

void componentError(const std::string& text) {
    logFramed(text);
    throw error(text);
}

void requireDistinct(const Layer& target, const Layer& source, const char* keyword) {
    if (&target == &source) componentError(std::string(keyword) + " : the source must not be the target");
}

}  // namespace vz
