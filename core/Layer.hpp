#pragma once
// Rectangular pixel buffers: the surfaces every effect draws on. Pixel memory of the
// 32-bit and 8-bit layers comes from the LayerManager's slots (or the heap when no
// manager exists); the "screen" layer is a view over the display's own memory.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/Resource.hpp"

namespace vz {

class Layer : public Resource {
public:
    ~Layer() override = default;
    static const char* staticKind() { return "layer"; }
    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;

    int width = 0;
    int height = 0;
    int halfWidth = 0;         // width >> 1
    int halfHeight = 0;        // height >> 1
    float unitsPerPixelX = 0;  // 2 / width: pixels to the -1..1 range
    float unitsPerPixelY = 0;  // 2 / height
    bool fromSlots = false;    // memory came from the LayerManager
    int posX = 0;              // origin of rectangle copies and fills ("crop" sets it)
    int posY = 0;

    std::int64_t pixelCount() const { return static_cast<std::int64_t>(width) * height; }

    // Largest layer accepted from a script or a file: guards every size computation.
    static constexpr int maxSide = 32768;
    static constexpr std::int64_t maxPixels = std::int64_t{1} << 26;
    // True when 1 <= w, h <= maxSide and the area is at most maxPixels.
    static bool sizeAccepted(std::int64_t w, std::int64_t h) {
        return w >= 1 && h >= 1 && w <= maxSide && h <= maxSide && w * h <= maxPixels;
    }
    // Throws error("<kind> : invalid size WxH") unless the size is accepted.
    static void checkSize(const char* kind, std::int64_t w, std::int64_t h);

protected:
    Layer(int w, int h);
    // Pixel memory for a layer of `kind`; heap memory counts against the memory budget,
    // and a layer that would pass it is a fatal error naming its kind and size.
    void* takeMemory(std::int64_t bytes, const char* kind);
    void giveBackMemory(void* memory);

private:
    std::int64_t budgeted_ = 0;  // heap bytes counted against the memory budget
};

// The number of pixels every listed layer holds: runs that combine several layers as
// flat runs stop at the shortest one, so a script pairing a small map or source with a
// larger target leaves the rest of the target as it is instead of reading past the end.
template <class... Layers>
std::size_t sharedCount(const Layers&... layers) {
    return static_cast<std::size_t>(std::min({layers.pixelCount()...}));
}

class Layer32bpp : public Layer {
public:
    Layer32bpp(int w, int h);                       // memory from the LayerManager
    Layer32bpp(int w, int h, std::uint32_t* view);  // a view over memory it does not own
    ~Layer32bpp() override;
    static const char* staticKind() { return "Layer32bpp"; }
    const char* kindName() const override { return staticKind(); }

    std::uint32_t* pixels = nullptr;
    std::uint32_t* row(int y) { return pixels + static_cast<std::int64_t>(y) * width; }
    const std::uint32_t* row(int y) const { return pixels + static_cast<std::int64_t>(y) * width; }

private:
    bool owns_ = true;
};

class Layer8bpp : public Layer {
public:
    Layer8bpp(int w, int h);
    ~Layer8bpp() override;
    static const char* staticKind() { return "Layer8bpp"; }
    const char* kindName() const override { return staticKind(); }

    std::uint8_t* pixels = nullptr;
    std::uint8_t* row(int y) { return pixels + static_cast<std::int64_t>(y) * width; }
    const std::uint8_t* row(int y) const { return pixels + static_cast<std::int64_t>(y) * width; }
};

// A run-length packed 8-bit picture: pairs (run length 1-255, palette index), rows
// packed one after another. Plain heap memory.
class LayerRle : public Layer {
public:
    LayerRle(int w, int h, std::vector<std::uint8_t> packed);
    static const char* staticKind() { return "LayerRle"; }
    const char* kindName() const override { return staticKind(); }
    std::vector<std::uint8_t> data;
};

}  // namespace vz
