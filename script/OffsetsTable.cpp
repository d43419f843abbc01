#include "script/OffsetsTable.hpp"

#include "assets/ImageLoader.hpp"
#include "core/error.hpp"
#include "core/logstream.hpp"
#include "script/DeclaredSize.hpp"
#include "script/ResourceKinds.hpp"
#include "script/TextParser.hpp"

namespace vz {

OffsetsTable::OffsetsTable(int w, int h) : Layer32bpp(w, h) {}

std::unique_ptr<OffsetsTable> OffsetsTable::fromImages(const Layer8bpp& low, const Layer8bpp& high,
                                                       const std::string& nameA, const std::string& nameB) {
    if (low.width != high.width || low.height != high.height) {
        std::string message = "OffsetsTable : " + nameA + " and " + nameB + " differ in size (" +
                              std::to_string(low.width) + "x" + std::to_string(low.height) + " and " +
                              std::to_string(high.width) + "x" + std::to_string(high.height) + ")";
        fatal(message);
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

namespace {

// "size" w h, "sizeof" layer, or the two picture files.
std::unique_ptr<Resource> buildOffsetsTable(TextParser& parser, Repository& repository) {
    std::string token = parser.getTokenCopy();
    DeclaredSize size;
    if (readDeclaredSize(OffsetsTable::staticKind(), token, parser, repository, size))
        return std::make_unique<OffsetsTable>(size.width, size.height);
    std::string fileB = parser.getTokenCopy();
    return OffsetsTable::load(token, fileB);
}

}  // namespace

VZ_RESOURCE_KIND("OffsetsTable", buildOffsetsTable)

}  // namespace vz
