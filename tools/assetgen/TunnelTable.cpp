#include "tools/assetgen/TunnelTable.hpp"

#include <cmath>

#include "tools/assetgen/Shapes.hpp"

namespace vz::assetgen {

TunnelTable makeTunnelTable(int width, int height, const TunnelShape& shape) {
    TunnelTable table{IndexedPicture(width, height), IndexedPicture(width, height)};
    table.angle.palette = greyPalette();
    table.depth.palette = greyPalette();
    const double angleScale = shape.turns * 128.0 / pi;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const double dx = x - shape.centreX, dy = y - shape.centreY;
            const int u = int(std::floor(std::atan2(dy, dx) * angleScale)) & 255;
            const int v = int(std::floor(shape.depth / (std::sqrt(dx * dx + dy * dy) + shape.radiusOffset))) & 255;
            table.angle.at(x, y) = uint8_t(u);
            table.depth.at(x, y) = uint8_t(v);
        }
    return table;
}

}  // namespace vz::assetgen
