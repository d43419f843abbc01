#pragma once
// Building and combining offsets tables (see TunnelMapping.hpp for their entries).
#include <cstdint>

namespace vz {

// A rectangle of table entries: `width` x `height` entries, rows `stride` entries apart.
struct TableView {
    std::uint32_t* entries;
    int width;
    int height;
    int stride;
};
struct ConstTableView {
    const std::uint32_t* entries;
    int stride;
};

// The round tunnel seen from inside, centred on (cx, cy): the column byte runs
// `turns` times round the 256 texture columns per turn round the centre, and the row
// byte grows toward the centre as depth / (distance + radiusOffset):
//   u = floor(atan2(dy, dx) * turns * 128 / pi) AND 255
//   v = floor(depth / (sqrt(dx^2 + dy^2) + radiusOffset)) AND 255,  entry = v * 256 + u.
void generateTunnelTable(TableView table, float cx, float cy, float turns, float depth, float radiusOffset);

// The depth the computed tunnels take per pixel of the target's width, so that any
// resolution shows the same picture.
constexpr float depthPerWidth = 16.0f;

// The tunnel the effects compute for themselves: centred on the table's middle entry
// (width >> 1, height >> 1), radius offset 4.
void generateCentredTunnel(TableView table, float turns, float depth);

// Row by row over dst's rectangle, reading `src` with its own stride. The 16-bit sums
// keep each destination entry's upper 16 bits (the copy takes the source's).
//   copy:       dst = src with its low 16 bits + offset (mod 65,536)
//   accumulate: dst's low 16 bits += src's low 16 bits + offset (mod 65,536)
//   add:        accumulate with no offset
//   copyTable:  dst = src, unchanged
void copyTableRect(TableView dst, ConstTableView src, std::uint32_t offset);
void accumulateTableRect(TableView dst, ConstTableView src, std::uint32_t offset);
void addTable(TableView dst, ConstTableView src);
void copyTable(TableView dst, ConstTableView src);

}  // namespace vz
