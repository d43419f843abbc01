#pragma once
// The per-component terms a keytrack generator adds to its source value each frame.
// Each is built with its defaults, then configured from the script line.
#include <cmath>
#include <cstdint>

#include "script/RandomSeed.hpp"

namespace vz {

// 2 x ampl x sin(t + cos(t x frequence)), t being the component's local time.
class SinusTerm {
public:
    void configure(float ampl, float frequence) {
        doubleAmpl_ = 2.0f * ampl;
        frequence_ = frequence;
    }
    // The sines are taken in double precision; the caller rounds the sum to float.
    double operator()(float t) const { return doubleAmpl_ * std::sin(t + std::cos(double(t * frequence_))); }

private:
    float doubleAmpl_ = 0.0f;
    float frequence_ = 0.0f;
};

// A sample-and-hold random value in [0, 2 x ampl), re-drawn at most once per hold
// period, centred by subtracting ampl. Each term takes its own seed from the shared
// counter when it is created.
class NoiseTerm {
public:
    NoiseTerm() : seed_(takeRandomSeed() & 0xFFFFu) {}

    void configure(float ampl, float period) {
        ampl_ = ampl;
        amplitude_ = 2.0f * ampl;
        period_ = period;
    }

    float operator()(float t) {
        if (lastUpdate_ + period_ <= t) {
            lastUpdate_ = t;
            seed_ = (seed_ * 997u) & 0xFFFFu;
            // Integer product and shift first: a 16-bit fraction of the amplitude.
            current_ = static_cast<float>((seed_ * 65535u) >> 16) * amplitude_ * (1.0f / 65535.0f);
        }
        return current_ - ampl_;
    }

private:
    float ampl_ = 0.0f;
    float current_ = 0.0f;
    float amplitude_ = 1.0f;
    float period_ = 0.2f;
    float lastUpdate_ = -1.0f;
    std::uint32_t seed_;
};

}  // namespace vz
