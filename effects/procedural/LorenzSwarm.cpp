#include "effects/procedural/LorenzSwarm.hpp"

#include "effects/procedural/SeededHash.hpp"

namespace vz {

namespace {

constexpr float sigma = 10.0f, rho = 28.0f, beta = 8.0f / 3.0f, dt = 0.01f;
constexpr std::int64_t shortestLife = 500;  // steps: 5 seconds

void eulerStep(LorenzSwarm::Particle& p) {
    const float dx = sigma * (p.y - p.x), dy = p.x * (rho - p.z) - p.y, dz = p.x * p.y - beta * p.z;
    p.x += dx * dt;
    p.y += dy * dt;
    p.z += dz * dt;
}

}  // namespace

LorenzSwarm::LorenzSwarm(int count, std::uint32_t seed) : seed_(seed), particles_(static_cast<std::size_t>(count)) {
    for (std::size_t i = 0; i < particles_.size(); ++i) {
        // Lives of 500 to 999 steps, the show starting part way into the first.
        const auto n = static_cast<std::uint32_t>(i);
        Particle& p = particles_[i];
        p.lifetime = static_cast<std::int32_t>(shortestLife + seededHash(seed_, n, 0) % shortestLife);
        p.offset = static_cast<std::int32_t>(seededHash(seed_, n, 1) % static_cast<std::uint32_t>(p.lifetime));
    }
}

void LorenzSwarm::advanceTo(std::int64_t s) {
    for (std::size_t i = 0; i < particles_.size(); ++i) {
        Particle& p = particles_[i];
        if (s >= p.born && s < p.dies && p.step <= s) continue;  // in the same life, not past s
        const std::int64_t life = (s + p.offset) / p.lifetime;
        const auto key = static_cast<std::uint32_t>(life) * 3u + 2u;
        const auto n = static_cast<std::uint32_t>(i);
        p.x = 30.0f * seededUnit(seed_, n, key) - 15.0f;
        p.y = 30.0f * seededUnit(seed_, n, key + 1) - 15.0f;
        p.z = 30.0f * seededUnit(seed_, n, key + 2) + 10.0f;
        p.born = life * p.lifetime - p.offset;
        p.dies = p.born + p.lifetime;
        for (p.step = p.born; p.step < s; ++p.step) eulerStep(p);
    }
    // The others take the frame's few steps together, a step of every particle at a time:
    // a particle's steps depend on one another, different particles' do not overlap.
    for (bool moved = true; moved;) {
        moved = false;
        for (Particle& p : particles_)
            if (p.step < s) {
                eulerStep(p);
                ++p.step;
                moved = true;
            }
    }
}

}  // namespace vz
