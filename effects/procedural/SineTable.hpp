#pragma once
// One turn of the sine in 4096 steps: the waves of the procedural effects read it by a
// phase index instead of calling sin() in their loops.
#include <array>
#include <cstdint>

namespace vz::sine {

constexpr int steps = 4096;  // phase indices per turn
constexpr int mask = steps - 1;
constexpr int shift = 14;
constexpr int one = 1 << shift;  // the value of sin = 1

// round(sin(2 pi i / steps) * one), built at first use.
const std::array<std::int16_t, steps>& table();

inline int at(int phase) { return table()[static_cast<unsigned>(phase) & mask]; }
inline int cosAt(int phase) { return at(phase + steps / 4); }

// The phase index of a number of turns: the fraction of `turns` in steps, rounded down.
// A value that is not finite reads 0, so any time or speed gives a defined phase.
int phaseOfTurns(double turns);

// round(amplitude * sin) of every phase into `out` (steps entries): a wave of a given
// height, so that the loops only index it.
void scaledWave(int* out, double amplitude);

}  // namespace vz::sine
