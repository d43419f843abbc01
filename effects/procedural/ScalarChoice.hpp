#pragma once
// The family's SIMD kernels follow the bulk kernels' choice: when VZ_SCALAR=1 or
// setForceScalar(true) selects the scalar set, they take their scalar twins too.
#include "effects/rendu/BulkKernels.hpp"

namespace vz {

inline bool scalarKernelsChosen() { return &activeKernels() == &scalarKernels(); }

}  // namespace vz
