#include "script/OffsetsTable.hpp"

#include "assets/ImageLoader.hpp"
#include "script/ResourceKinds.hpp"
#include "shell/error.hpp"
#include "shell/logstream.hpp"

namespace vz {

OffsetsTable::OffsetsTable(int w, int h) : Layer32bpp(w, h) {}

std::unique_ptr<OffsetsTable> OffsetsTable::fromImages(const Layer8bpp& low, const Layer8bpp& high,
                                                       const std::string& nameA, const std::string& nameB) {
    if (low.width != high.width || low.height != high.height) {
        std::string message = "OffsetsTable : " + nameA + " and " + nameB + " differ in size (" +
                              std::to_string(low.width) + "x" + std::to_string(low.height) + " and " +
                              std::to_string(high.width) + "x" + std::to_string(high.height) + ")";
        logFramed(message);
        throw error(message);
    }
    auto table = std::make_unique<OffsetsTable>(low.width, low.height);
    const std::int64_t n = table->pixelCount();
    for (std::int64_t i = 0; i < n; ++i)
        table->pixels[i] = std::uint32_t{high.pixels[i]} << 8 | std::uint32_t{low.pixels[i]};
    return table;
}

std::unique_ptr<OffsetsTable> OffsetsTable::load(const std::string& fileA, const std::string& fileB) {
    std::unique_ptr<Layer8bpp> low = requirePicture(ImageLoader::LoadLayer8bpp(fileA), fileA);
    std::unique_ptr<Layer8bpp> high = requirePicture(ImageLoader::LoadLayer8bpp(fileB), fileB);
    return fromImages(*low, *high, fileA, fileB);
}

}  // namespace vz
