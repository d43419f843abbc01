#include "effects/rendu/BlendOperators.hpp"

namespace vz {

namespace {

template <int R>
std::uint32_t pixelOperator(std::uint32_t s, std::uint32_t d) {
    return blend::op<R>(s, d);
}

template <int... Rs>
constexpr std::array<PixelOperator, renduCount> makeOperatorTable(std::integer_sequence<int, Rs...>) {
    return {&pixelOperator<Rs>...};
}

constexpr std::array<PixelOperator, 256> makeAlphaMapTable(const std::array<PixelOperator, renduCount>& ops) {
    std::array<PixelOperator, 256> table{};
    for (int a = 0; a < 256; ++a) table[a] = ops[alphaToRendu(static_cast<std::uint32_t>(a))];
    return table;
}

constexpr std::array<PixelOperator, renduCount> allOperators =
    makeOperatorTable(std::make_integer_sequence<int, renduCount>{});

}  // namespace

// Both tables are constant-initialised, so they are usable from other static initialisers.
const std::array<PixelOperator, renduCount> operatorTable = allOperators;
const std::array<PixelOperator, 256> alphaMapTable = makeAlphaMapTable(allOperators);

std::uint32_t blendPixel(int rendu, std::uint32_t s, std::uint32_t d) { return operatorTable[clampRendu(rendu)](s, d); }

}  // namespace vz
