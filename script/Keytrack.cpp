#include "script/Keytrack.hpp"

#include "script/ResourceKinds.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/error.hpp"
#include "core/logstream.hpp"
#include "script/TextParser.hpp"
#include "script/TokenConversions.hpp"

namespace vz {

namespace {

// Float access to the components of each value type, so that one interpolation serves
// all five kinds, plus the text each kind is declared and reported under.
template <class V>
struct Components;

template <>
struct Components<std::int32_t> {
    static constexpr const char* kind = "KeytrackInt";
    static constexpr int count = 1;
    static float get(const std::int32_t& v, int) { return static_cast<float>(v); }
    // Interpolation runs in float like the other kinds; the result is truncated toward
    // zero, as a plain C conversion would do, so that an integer track stepping between
    // two keys reaches the next value only at its key (a counter or frame index never
    // shows a value ahead of time). Values outside the int range are clamped rather than
    // left to an undefined conversion.
    static void set(std::int32_t& v, int, float x) {
        if (std::isnan(x)) x = 0.0f;
        constexpr float top = 2147483520.0f;  // largest float below 2^31
        v = static_cast<std::int32_t>(std::clamp(x, -top, top));
    }
    static void read(TextParser& parser, std::int32_t& v) { v = parser.getInt(); }
};

template <>
struct Components<float> {
    static constexpr const char* kind = "KeytrackFloat";
    static constexpr int count = 1;
    static float get(const float& v, int) { return v; }
    static void set(float& v, int, float x) { v = x; }
    static void read(TextParser& parser, float& v) { v = parser.getFloat(); }
};

// Value types made of named float fields.
template <class V, int N>
struct FloatFields {
    static constexpr int count = N;
    static float get(const V& v, int c) { return v.*Components<V>::fields[c]; }
    static void set(V& v, int c, float x) { v.*Components<V>::fields[c] = x; }
    static void read(TextParser& parser, V& v) {
        for (float V::*field : Components<V>::fields) v.*field = parser.getFloat();
    }
};

template <>
struct Components<Vector2> : FloatFields<Vector2, 2> {
    static constexpr const char* kind = "KeytrackVector2";
    static constexpr float Vector2::*fields[] = {&Vector2::x, &Vector2::y};
};

template <>
struct Components<Vector3> : FloatFields<Vector3, 3> {
    static constexpr const char* kind = "KeytrackVector3";
    static constexpr float Vector3::*fields[] = {&Vector3::x, &Vector3::y, &Vector3::z};
};

template <>
struct Components<SpriteValue> : FloatFields<SpriteValue, 4> {
    static constexpr const char* kind = "KeytrackSprite";
    static constexpr float SpriteValue::*fields[] = {&SpriteValue::x, &SpriteValue::y, &SpriteValue::scaleX,
                                                     &SpriteValue::scaleY};
};

// A declared key count beyond this is a damaged file, not an animation.
constexpr int maxKeyCount = 1000000;

[[noreturn]] void reject(const std::string& message) { fatal(message); }

// Beyond this many additions or subtractions of the period a time is taken as lying far
// outside the loop, and its remainder is computed instead, so that it cannot stall a
// frame (or, where adding the period no longer changes a float, loop for ever).
constexpr int maxWrapSteps = 65536;

// The time inside the loop [0, period): the period added while the time is below 0, then
// subtracted while it is not below the period, one float operation at a time. A computed
// remainder is not the same: its rounding differs, and at key boundaries it picks
// another segment. A time that is not a number is taken as 0.
float wrapTime(float t, float period) {
    if (!std::isfinite(t)) return 0.0f;
    int steps = 0;
    while (t < 0.0f && steps < maxWrapSteps) {
        t += period;
        ++steps;
    }
    while (t >= period && steps < maxWrapSteps) {
        t -= period;
        ++steps;
    }
    if (t >= 0.0f && t < period) return t;
    const double remainder = std::fmod(static_cast<double>(t), static_cast<double>(period));
    const float wrapped = static_cast<float>(remainder < 0.0 ? remainder + period : remainder);
    return wrapped < period ? wrapped : 0.0f;
}

float square(float, float p1, float, float, float) { return p1; }

float linear(float, float p1, float p2, float, float u) { return p1 + u * (p2 - p1); }

float cosinus(float, float p1, float p2, float, float u) {
    // The constant is the one the curves were authored with, not full-precision pi.
    return static_cast<float>(p1 + (1.0 - std::cos(u * 3.14159)) * (p2 - p1) * 0.5);
}

float spline(float p0, float p1, float p2, float p3, float u) {
    float a = p3 - p2 - p0 + p1;
    return a * u * u * u + (p0 - p1 - a) * u * u + (p2 - p0) * u + p1;
}

}  // namespace

template <class V>
const char* Keytrack<V>::staticKind() {
    return Components<V>::kind;
}

template <class V>
const char* Keytrack<V>::kindName() const {
    return staticKind();
}

template <class V>
void Keytrack<V>::evaluate(float t, V& value) {
    using C = Components<V>;
    const int n = static_cast<int>(std::min(times.size(), values.size()));
    if (n == 0) return;
    const float period = times[n - 1];
    if (n == 1 || !(period > 0.0f)) {
        value = values[0];
        return;
    }
    if (interpolation == Spline && n < 4) interpolation = Linear;  // for good
    float (*curve)(float, float, float, float, float) = nullptr;
    switch (interpolation) {
    case Square: curve = square; break;
    case Linear: curve = linear; break;
    case Spline: curve = spline; break;
    case Cosinus: curve = cosinus; break;
    default: return;
    }

    t = wrapTime(t, period);
    // Steadily increasing times resume the search where the last one ended.
    int i = t >= cacheTime ? std::clamp(cacheIndex, 0, n - 2) : 0;
    while (i < n - 2 && t >= times[i + 1]) ++i;
    cacheTime = t;
    cacheIndex = i;

    const float u = (t - times[i]) / (times[i + 1] - times[i]);
    // Spline neighbours wrap around the loop.
    const V& v0 = values[i == 0 ? n - 1 : i - 1];
    const V& v3 = values[i + 1 < n - 1 ? i + 2 : 0];
    for (int c = 0; c < C::count; ++c) {
        float x = curve(C::get(v0, c), C::get(values[i], c), C::get(values[i + 1], c), C::get(v3, c), u);
        C::set(value, c, x);
    }
}

template <class V>
void Keytrack<V>::setSingleKey(const V& value) {
    values.assign(1, value);
    times.assign(1, 0.0f);
    interpolation = Square;
    cacheTime = -1.0f;
    cacheIndex = -1;
}

template <class V>
std::unique_ptr<Keytrack<V>> Keytrack<V>::constant(const V& value) {
    auto track = std::make_unique<Keytrack>();
    track->values.assign(1, value);
    track->times.assign(1, 0.0f);
    track->interpolation = Spline;  // irrelevant with one key
    return track;
}

template <class V>
std::unique_ptr<Keytrack<V>> Keytrack<V>::load(const std::string& fileName) {
    TextParser parser;
    parser.open(fileName);
    auto track = std::make_unique<Keytrack>();
    int declared = 0;
    float timeScale = 1.0f;
    if (parser.nextLine()) {
        track->interpolation = token2interpolation(parser.getToken());
        declared = parser.getInt();
        timeScale = parser.getFloat();
    }
    if (declared < 0 || declared > maxKeyCount)
        reject("Keytrack Building : invalid key count " + std::to_string(declared) + " in " + fileName);

    track->values.reserve(static_cast<std::size_t>(std::min(declared, 4096)));
    track->times.reserve(static_cast<std::size_t>(std::min(declared, 4096)));
    while (track->count() < declared && parser.nextLine()) {
        V value{};
        Components<V>::read(parser, value);
        float time = parser.getFloat() * timeScale;
        track->values.push_back(value);
        track->times.push_back(time);
    }
    parser.close();
    const int n = track->count();
    if (n < declared)
        logout() << "Keytrack Building : "
                 << "there is only " << n << " keys in " << fileName << lend;

    // Evaluation relies on a loop that starts at or before 0 and has a positive period.
    if (n == 0) reject("Keytrack Building : there is no key in " + fileName);
    for (float time : track->times)
        if (!std::isfinite(time)) reject("Keytrack Building : invalid key time in " + fileName);
    if (track->times[0] > 0.0f) reject("Keytrack Building : the first key time is above 0 in " + fileName);
    if (n > 1 && track->times[n - 1] <= 0.0f)
        reject("Keytrack Building : the last key time is not above 0 in " + fileName);
    return track;
}

template class Keytrack<std::int32_t>;
template class Keytrack<float>;
template class Keytrack<Vector2>;
template class Keytrack<Vector3>;
template class Keytrack<SpriteValue>;

namespace {

template <class T>
std::unique_ptr<Resource> buildKeytrack(TextParser& parser, Repository&) {
    return T::load(parser.getTokenCopy());
}

}  // namespace

VZ_RESOURCE_KIND("KeytrackSprite", buildKeytrack<KeytrackSprite>)
VZ_RESOURCE_KIND("KeytrackVector3", buildKeytrack<KeytrackVector3>)
VZ_RESOURCE_KIND("KeytrackVector2", buildKeytrack<KeytrackVector2>)
VZ_RESOURCE_KIND("KeytrackFloat", buildKeytrack<KeytrackFloat>)
VZ_RESOURCE_KIND("KeytrackInt", buildKeytrack<KeytrackInt>)

}  // namespace vz
