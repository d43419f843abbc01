#pragma once
// Reading a filter's or transition's parameters from its script line: layers, palettes,
// colours and tracks are symbols of the Repository (tracks may also be inline
// constants), checked to be of the kind asked for.
#include <cstddef>

#include "script/Layer.hpp"
#include "script/Repository.hpp"
#include "script/TextParser.hpp"

namespace vz {

template <class T>
T& parameter(TextParser& parser) {
    return Repository::instance().aquireAs<T>(parser);
}

inline std::size_t pixelsOf(const Layer& layer) { return static_cast<std::size_t>(layer.pixelCount()); }

}  // namespace vz
