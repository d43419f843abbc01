#pragma once
// Per-pixel texture offsets of the tunnel effects: element i = B[i] x 256 + A[i] for two
// 8-bit pictures A (low byte) and B (next byte), upper 16 bits zero.
//
// An OffsetsTable is a Layer32bpp (with its own kind name): tunnels read it as 32-bit
// words, and any 32-bit layer an effect has drawn can be declared as one. A plain
// Layer32bpp is not accepted where an OffsetsTable is asked for.
#include <memory>
#include <string>

#include "core/Layer.hpp"

namespace vz {

class OffsetsTable : public Layer32bpp {
public:
    OffsetsTable(int w, int h);  // contents as the layer's memory left them
    static const char* staticKind() { return "OffsetsTable"; }
    const char* kindName() const override { return staticKind(); }

    // The table of two pictures of the same size; `nameA` and `nameB` name them in the
    // error raised when the sizes differ.
    static std::unique_ptr<OffsetsTable> fromImages(const Layer8bpp& low, const Layer8bpp& high,
                                                    const std::string& nameA, const std::string& nameB);
    // Both files through the 8-bit picture loader; the pictures are dropped afterwards.
    static std::unique_ptr<OffsetsTable> load(const std::string& fileA, const std::string& fileB);
};

}  // namespace vz
