#include "effects/tunnels/PebbleMask.hpp"

namespace vz {

namespace {

constexpr int cell = 32;          // texels per pebble cell, both ways
constexpr int pebbleRadius = 11;  // texels

}  // namespace

void buildPebbleMask(std::uint8_t* mask) {
    for (int v = 0; v < 256; ++v)
        for (int u = 0; u < 256; ++u) {
            const int su = u + ((v / cell) % 2) * (cell / 2);
            const int du = su % cell - cell / 2, dv = v % cell - cell / 2;
            mask[v * 256 + u] = du * du + dv * dv <= pebbleRadius * pebbleRadius ? 1 : 0;
        }
}

}  // namespace vz
