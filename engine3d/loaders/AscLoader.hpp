#pragma once
// Readers of the "asc" text mesh: a "Tri-mesh," line with the counts, an optional
// "Mapped" line right after it, then "Vertex" lines (X:, Y:, Z:, and U:, V: when mapped)
// and "Face" lines (A:, B:, C: and the edge flags AB:, BC:, CA:). Every other line is
// skipped. Each step is logged; a file without a mesh, a count or an index out of range
// and a file that ends early are fatal errors naming the file and line.
#include <memory>
#include <string>

#include "engine3d/Meshe.hpp"

namespace vz {

class Material;
class Repository;

// Every face takes `material`.
std::unique_ptr<Meshe> loadAsc(const std::string& fileName, const std::shared_ptr<Material>& material);

// Each face takes the material that the "Material:" line after it names ("Material:
// "name"", the quotes stripped), acquired from the repository.
std::unique_ptr<Meshe> loadAscMaterial(const std::string& fileName, Repository& repository);

}  // namespace vz
