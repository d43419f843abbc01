#pragma once
// Looping animation curves: keys (time, value) sampled at a component's local time
// with square, linear, spline or cosinus interpolation. The five kinds share one
// layout and one evaluation scheme.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/Resource.hpp"

namespace vz {

struct Vector2 {
    float x = 0, y = 0;
};
struct Vector3 {
    float x = 0, y = 0, z = 0;
};
// A sprite key: normalised position x, y and two further values (the scales).
struct SpriteValue {
    float x = 0, y = 0, scaleX = 0, scaleY = 0;
};

enum Interpolation : int { Square = 0, Linear = 1, Spline = 2, Cosinus = 3 };

template <class V>
class Keytrack : public Resource {
public:
    using Value = V;

    // "KeytrackInt", "KeytrackFloat", "KeytrackVector2", "KeytrackVector3", "KeytrackSprite".
    static const char* staticKind();
    const char* kindName() const override;

    int count() const { return static_cast<int>(times.size()); }

    // Evaluates at t into `value`. A kind outside 0..3 leaves `value` as it was.
    void evaluate(float t, V& value);
    // Evaluation starting from the first key's value (what generators and components use).
    V sample(float t) {
        V value = values.empty() ? V{} : values[0];
        evaluate(t, value);
        return value;
    }
    // Turns the track into a one-key square track holding `value` at time 0.
    void setSingleKey(const V& value);

    // Reads a key file; logs short files; throws error naming the file on bad tracks.
    static std::unique_ptr<Keytrack> load(const std::string& fileName);
    // A one-key track (the inline "const..." parameters).
    static std::unique_ptr<Keytrack> constant(const V& value);

    std::vector<V> values;
    std::vector<float> times;
    int interpolation = Linear;
    float cacheTime = -1.0f;
    int cacheIndex = -1;
};

using KeytrackInt = Keytrack<std::int32_t>;
using KeytrackFloat = Keytrack<float>;
using KeytrackVector2 = Keytrack<Vector2>;
using KeytrackVector3 = Keytrack<Vector3>;
using KeytrackSprite = Keytrack<SpriteValue>;

extern template class Keytrack<std::int32_t>;
extern template class Keytrack<float>;
extern template class Keytrack<Vector2>;
extern template class Keytrack<Vector3>;
extern template class Keytrack<SpriteValue>;

}  // namespace vz
