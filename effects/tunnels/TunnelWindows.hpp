#pragma once
// Several tunnels summed into one table: windows of a double-size tunnel table wander
// along a Lissajous figure and their entries are added, so the tunnels' walls interfere.
#include "effects/tunnels/TunnelTables.hpp"

namespace vz {

// The combined table's W x H entries: the sum of `count` windows of W x H entries of the
// 2W x 2H table `source`, at time t. All windows follow one closed 2:3 Lissajous figure
// (frequencies 8 and 12, slowed by 0.1: one lap in 5 pi seconds), spread evenly along it.
// Each window travels at `speed` rows and turns at `rotation` columns per second, every
// other one turning the other way, so that neighbours twist against each other.
void sumTunnelWindows(TableView combined, ConstTableView source, int count, float t, float speed, float rotation);

}  // namespace vz
