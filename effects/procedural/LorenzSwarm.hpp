#pragma once
// Particles carried by the Lorenz system, the "butterfly" attractor:
//   dx/dt = 10 (y - x),  dy/dt = x (28 - z) - y,  dz/dt = x y - 8/3 z,
// integrated by Euler steps of 1/100 of its time unit, 100 steps a second of show time.
// Each particle lives 5 to 10 seconds (its own, from the seed), is born at a random place
// round the attractor and is drawn into it; then it is born again elsewhere. Births are
// pure functions of the seed, the particle and the step (SeededHash.hpp), and a particle
// is always integrated from its birth in the same order, so the swarm at a given step is
// the same whatever the frames before it.
#include <cstdint>
#include <vector>

namespace vz {

class LorenzSwarm {
public:
    static constexpr double stepsPerSecond = 100.0;

    struct Particle {
        float x = 0, y = 0, z = 0;
        std::int64_t step = 0;                  // the step its position belongs to
        std::int64_t born = 0;                  // the step its present life began (before 0 for the first)
        std::int64_t dies = -1;                 // the step its present life ends; -1 before the first
        std::int32_t lifetime = 0, offset = 0;  // its own, in steps, from the seed
    };

    LorenzSwarm(int count, std::uint32_t seed);

    // Every particle at step s (0 or more): advanced from where it was, or born again and
    // integrated from its birth when s lies in another life or before its position.
    void advanceTo(std::int64_t s);
    const std::vector<Particle>& particles() const { return particles_; }

private:
    std::uint32_t seed_;
    std::vector<Particle> particles_;
};

}  // namespace vz
