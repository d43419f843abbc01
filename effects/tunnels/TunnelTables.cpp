#include "effects/tunnels/TunnelTables.hpp"

#include <cmath>
#include <cstring>
#include <numbers>

#include "effects/tunnels/TunnelMapping.hpp"

namespace vz {

void generateTunnelTable(TableView table, float cx, float cy, float turns, float depth, float radiusOffset) {
    const double angleScale = turns * 128.0 / std::numbers::pi;
    for (int y = 0; y < table.height; ++y) {
        std::uint32_t* row = table.entries + static_cast<std::int64_t>(y) * table.stride;
        const double dy = static_cast<float>(y) - cy;
        for (int x = 0; x < table.width; ++x) {
            // Differences in float (the centre is a float), angle and root in double.
            const double dx = static_cast<float>(x) - cx;
            const int u = wrapToByte(std::atan2(dy, dx) * angleScale, true);
            const int v = wrapToByte(depth / (std::sqrt(dx * dx + dy * dy) + radiusOffset), true);
            row[x] = static_cast<std::uint32_t>(v * 256 + u);
        }
    }
}

void generateCentredTunnel(TableView table, float turns, float depth) {
    generateTunnelTable(table, static_cast<float>(table.width >> 1), static_cast<float>(table.height >> 1), turns,
                        depth, 4.0f);
}

namespace {

// Calls rowFn(dstRow, srcRow) for every row of dst's rectangle.
template <class RowFn>
void eachRow(TableView dst, ConstTableView src, RowFn&& rowFn) {
    for (int y = 0; y < dst.height; ++y)
        rowFn(dst.entries + static_cast<std::int64_t>(y) * dst.stride,
              src.entries + static_cast<std::int64_t>(y) * src.stride);
}

constexpr std::uint32_t high = 0xFFFF0000u;
constexpr std::uint32_t low = 0x0000FFFFu;

}  // namespace

void copyTableRect(TableView dst, ConstTableView src, std::uint32_t offset) {
    eachRow(dst, src, [&](std::uint32_t* d, const std::uint32_t* s) {
        for (int x = 0; x < dst.width; ++x) d[x] = (s[x] & high) | ((s[x] + offset) & low);
    });
}

void accumulateTableRect(TableView dst, ConstTableView src, std::uint32_t offset) {
    eachRow(dst, src, [&](std::uint32_t* d, const std::uint32_t* s) {
        for (int x = 0; x < dst.width; ++x) d[x] = (d[x] & high) | ((d[x] + s[x] + offset) & low);
    });
}

void addTable(TableView dst, ConstTableView src) { accumulateTableRect(dst, src, 0); }

void copyTable(TableView dst, ConstTableView src) {
    eachRow(dst, src, [&](std::uint32_t* d, const std::uint32_t* s) {
        std::memcpy(d, s, static_cast<std::size_t>(dst.width) * sizeof(std::uint32_t));
    });
}

}  // namespace vz
