#include "effects/shapes/PolarMask.hpp"

#include "effects/rendu/BlendOperators.hpp"

namespace vz {

void fillPolarMask(std::uint32_t* dst, const std::uint32_t* entries, std::size_t n, const std::uint32_t* edge,
                   std::uint32_t colour, int rendu) {
    constexpr std::uint32_t angleMask = (1u << polarAngleBits) - 1;
    withRendu(rendu, [&](auto r) {
        for (std::size_t i = 0; i < n; ++i) {
            const std::uint32_t e = entries[i];
            if ((e >> polarAngleBits) < edge[e & angleMask]) dst[i] = blend::op<decltype(r)::value>(colour, dst[i]);
        }
    });
}

}  // namespace vz
