#pragma once
// Reader of the "3d" text mesh: a line with the vertex and face counts, one line per
// vertex (X Y Z U V), then one line per face (three 0-based vertex indices). No edge
// flags: such meshes have no edge list. Each step is logged; a count or an index out
// of range and a file that ends early are fatal errors naming the file and line.
#include <memory>
#include <string>

#include "engine3d/Meshe.hpp"

namespace vz {

// Every face takes `material`.
std::unique_ptr<Meshe> load3d(const std::string& fileName, const std::shared_ptr<Material>& material);

}  // namespace vz
