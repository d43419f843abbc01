#pragma once
// Tunnel offsets tables as two 8-bit pictures: the player builds each entry as
// depth x 256 + angle, the depth picture giving the texture row and the angle
// picture the texture column.
#include "tools/assetgen/Band.hpp"
#include "tools/assetgen/Picture.hpp"

namespace vz::assetgen {

// In authored band units: the centre, depth and radius offset follow the band's size.
struct TunnelShape {
    double centreX, centreY;
    double turns;  // texture repeats round the tunnel
    double depth;  // texture rows = depth / (radius + radiusOffset)
    double radiusOffset;
};

struct TunnelTable {
    IndexedPicture angle;  // column byte
    IndexedPicture depth;  // row byte
};

TunnelTable makeTunnelTable(const Band& band, const TunnelShape& shape);

}  // namespace vz::assetgen
