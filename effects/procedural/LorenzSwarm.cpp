#include "effects/procedural/LorenzSwarm.hpp"

#include "effects/procedural/SeededHash.hpp"

namespace vz {

namespace {

constexpr float sigma = 10.0f, rho = 28.0f, beta = 8.0f / 3.0f, dt = 0.005f;
constexpr std::int64_t shortestLife = 600;  // steps: 3 seconds

void eulerStep(LorenzSwarm::Particle& p) {
    const float dx = sigma * (p.y - p.x), dy = p.x * (rho - p.z) - p.y, dz = p.x * p.y - beta * p.z;
    p.x += dx * dt;
    p.y += dy * dt;
    p.z += dz * dt;
}

}  // namespace

LorenzSwarm::LorenzSwarm(int count, std::uint32_t seed) : seed_(seed), particles_(static_cast<std::size_t>(count)) {}

void LorenzSwarm::advanceTo(std::int64_t s) {
    for (std::size_t i = 0; i < particles_.size(); ++i) {
        const auto n = static_cast<std::uint32_t>(i);
        Particle& p = particles_[i];
        // Lives of 600 to 1199 steps, the show starting part way into the first.
        const std::int64_t life = shortestLife + seededHash(seed_, n, 0) % shortestLife;
        const std::int64_t offset = seededHash(seed_, n, 1) % life;
        const std::int64_t current = (s + offset) / life;
        if (current != p.life || p.step > s) {
            const auto key = static_cast<std::uint32_t>(current) * 3u + 2u;
            p.x = 50.0f * seededUnit(seed_, n, key) - 25.0f;
            p.y = 50.0f * seededUnit(seed_, n, key + 1) - 25.0f;
            p.z = 50.0f * seededUnit(seed_, n, key + 2);
            p.life = current;
            p.step = current * life - offset;  // its birth, before step 0 for the first life
        }
        for (; p.step < s; ++p.step) eulerStep(p);
    }
}

}  // namespace vz
