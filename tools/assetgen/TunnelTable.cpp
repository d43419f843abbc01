#include "tools/assetgen/TunnelTable.hpp"

#include <cmath>

#include "tools/assetgen/Shapes.hpp"

namespace vz::assetgen {

TunnelTable makeTunnelTable(const Band& band, const TunnelShape& shape) {
    TunnelTable table{IndexedPicture(band.width, band.height), IndexedPicture(band.width, band.height)};
    table.angle.palette = greyPalette();
    table.depth.palette = greyPalette();
    const double angleScale = shape.turns * 128.0 / pi;
    const double centreX = shape.centreX * band.scaleX(), centreY = shape.centreY * band.scaleY();
    for (int y = 0; y < band.height; ++y)
        for (int x = 0; x < band.width; ++x) {
            const double dx = x - centreX, dy = y - centreY;
            const double radius = band.distance(x, y, shape.centreX, shape.centreY);
            const int u = int(std::floor(std::atan2(dy, dx) * angleScale)) & 255;
            const int v = int(std::floor(shape.depth / (radius + shape.radiusOffset))) & 255;
            table.angle.at(x, y) = uint8_t(u);
            table.depth.at(x, y) = uint8_t(v);
        }
    return table;
}

}  // namespace vz::assetgen
