#pragma once
// Components that rewrite a keytrack every frame into a one-key track holding the value
// of a source track plus an animated term, so that components reading the target see a
// moving value. A generator must run before its readers (lower order on the timeline).
//
// Line: target source ampl frequence (float tracks)
//       target source amplX amplY frequence (vector2 and sprite tracks)
// The target is the name of a declared track (no inline constant); the source is a name
// or an inline constant.
#include <array>

#include "script/Component.hpp"
#include "script/ComponentContext.hpp"
#include "script/Keytrack.hpp"
#include "script/generators/GeneratorTerms.hpp"

namespace vz {

// Which parts of a track value a generator animates: the first one or two. Sprite
// values keep their third and fourth parts (the scales) from the source.
template <class V>
struct AnimatedParts;

template <>
struct AnimatedParts<float> {
    static constexpr int count = 1;
    static float& at(float& value, int) { return value; }
};

template <>
struct AnimatedParts<Vector2> {
    static constexpr int count = 2;
    static float& at(Vector2& value, int part) { return part == 0 ? value.x : value.y; }
};

template <>
struct AnimatedParts<SpriteValue> {
    static constexpr int count = 2;
    static float& at(SpriteValue& value, int part) { return part == 0 ? value.x : value.y; }
};

template <class V, class Term>
class KeytrackGenerator : public Component {
public:
    using Parts = AnimatedParts<V>;

    KeytrackGenerator(ComponentContext& in) : target_(in.declared<Keytrack<V>>()), source_(in.symbol<Keytrack<V>>()) {
        float ampl[Parts::count];
        for (float& value : ampl) value = in.real();
        const float frequence = in.real();
        for (int part = 0; part < Parts::count; ++part) terms_[part].configure(ampl[part], frequence);
    }

    void run(float t) override {
        // The target is cut to one square key before the source is read, so a generator
        // whose source is its own target builds on the value it wrote last frame.
        target_.setSingleKey(target_.values.empty() ? V{} : target_.values[0]);
        V value = source_.sample(t);
        for (int part = 0; part < Parts::count; ++part) {
            float& component = Parts::at(value, part);
            component = static_cast<float>(component + terms_[part](t));
        }
        target_.setSingleKey(value);
    }

private:
    Keytrack<V>& target_;
    Keytrack<V>& source_;
    std::array<Term, Parts::count> terms_;  // created after the tracks are found
};

using KeytrackFloatSinus = KeytrackGenerator<float, SinusTerm>;
using KeytrackVector2Sinus = KeytrackGenerator<Vector2, SinusTerm>;
using KeytrackSpriteSinus = KeytrackGenerator<SpriteValue, SinusTerm>;
using KeytrackFloatNoise = KeytrackGenerator<float, NoiseTerm>;
using KeytrackVector2Noise = KeytrackGenerator<Vector2, NoiseTerm>;
using KeytrackSpriteNoise = KeytrackGenerator<SpriteValue, NoiseTerm>;

}  // namespace vz
