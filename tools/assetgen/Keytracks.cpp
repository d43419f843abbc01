// Key files: first line interpolation, key count and time scale, then one key per
// line, value components first and the key time last.
#include <cmath>
#include <cstdio>

#include "tools/assetgen/Assets.hpp"
#include "tools/assetgen/Shapes.hpp"

namespace vz::assetgen {

namespace {
std::string number(double v) {
    if (std::fabs(v) < 0.0005) v = 0.0;  // no "-0.000"
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", v);
    return text;
}

struct Key {
    std::vector<double> values;
    double time;
};

// Integer tracks print their values without decimals.
std::string keyFile(const std::string& comment, const std::string& interpolation, double timeScale,
                    const std::vector<Key>& keys, bool integers = false) {
    std::string text = "# " + comment + "\n";
    text += interpolation + " " + std::to_string(keys.size()) + " " + number(timeScale) + "\n";
    for (const Key& k : keys) {
        for (double v : k.values) text += (integers ? std::to_string(std::lround(v)) : number(v)) + " ";
        text += number(k.time) + "\n";
    }
    return text;
}

Bytes bytesOf(const std::string& text) { return Bytes(text.begin(), text.end()); }

// A figure of eight sampled at nine keys; the last key repeats the first so that
// the spline closes the loop smoothly.
std::vector<Key> figureEightKeys() {
    std::vector<Key> keys;
    for (int i = 0; i <= 8; ++i) {
        const double a = i * 2.0 * pi / 8.0;
        keys.push_back({{0.6 * std::sin(a), 0.45 * std::sin(2.0 * a), 1.0, 1.0}, double(i)});
    }
    return keys;
}
}  // namespace

void addKeytracks(AssetList& assets) {
    auto add = [&assets](const std::string& name, const std::string& text) { assets.push_back({name, bytesOf(text)}); };
    add("sprite_path.txt",
        keyFile("sprite: x y scaleX scaleY time; a figure of eight every 8 s", "spline", 1.0, figureEightKeys()));
    add("sprite_zoom.txt", keyFile("sprite: centred, scale 0.5 -> 2 -> 0.5 every 4 s", "cosinus", 1.0,
                                   {{{0, 0, 0.5, 0.5}, 0}, {{0, 0, 2, 2}, 2}, {{0, 0, 0.5, 0.5}, 4}}));
    add("text_scroll.txt", keyFile("text pen: scrolls from the right edge to far left in 12 s", "linear", 1.0,
                                   {{{1.1, 0.7, 1, 1}, 0}, {{-3.0, 0.7, 1, 1}, 12}}));
    add("text_title.txt", keyFile("text pen: a title swaying and swelling every 4 s", "cosinus", 1.0,
                                  {{{-0.5, -0.2, 1, 1}, 0}, {{-0.5, -0.3, 1.5, 1.5}, 2}, {{-0.5, -0.2, 1, 1}, 4}}));
    add("fade_in.txt", keyFile("float: 0 -> 1 in 2 s, then held", "linear", 1.0, {{{0}, 0}, {{1}, 2}, {{1}, 1000}}));
    add("fade_out.txt", keyFile("float: 1 -> 0 in 2 s, then held", "linear", 1.0, {{{1}, 0}, {{0}, 2}, {{0}, 1000}}));
    add("palette_blend.txt", keyFile("float: 0 -> 1 -> 0 every 6 s", "cosinus", 1.0, {{{0}, 0}, {{1}, 3}, {{0}, 6}}));
    add("spacing.txt", keyFile("float: glyph spacing in pixels, 2 -> 12 -> 2 every 4 s", "cosinus", 1.0,
                               {{{2}, 0}, {{12}, 2}, {{2}, 4}}));
    add("tunnel_speed.txt", keyFile("vector2: rows per second, columns per second; swings every 8 s", "cosinus", 1.0,
                                    {{{40, 16}, 0}, {{120, -24}, 4}, {{40, 16}, 8}}));
    add("tunnel_speed_fast.txt", keyFile("vector2: rows per second, columns per second; a fast ride", "spline", 1.0,
                                         {{{160, 40}, 0}, {{220, -60}, 3}, {{180, 90}, 6}, {{160, 40}, 9}}));
    add("rendu_fade_in.txt", keyFile("int rendu: level 0 -> 32 (normal) in 2 s, then held", "linear", 1.0,
                                     {{{0}, 0}, {{32}, 2}, {{32}, 1000}}, true));
    add("rendu_beat.txt", keyFile("int rendu: flashes on each beat (time scale 0.48 s = one beat)", "linear", 0.48,
                                  {{{32}, 0}, {{10}, 1}}, true));
    add("frames.txt", keyFile("int frame: 0..15 of the film strip, 10 frames per second", "linear", 1.0,
                              {{{0}, 0}, {{16}, 1.6}}, true));
    add("rotate.txt",
        keyFile("int palette rotation: 0 -> 256 every 5.12 s", "linear", 1.0, {{{0}, 0}, {{256}, 5.12}}, true));
    add("rendu_cycle.txt",
        keyFile("int rendu: one blend mode per beat: normal, glenz 25/50/75, level 12, add, sub, "
                "addnosat",
                "square", 0.48,
                {{{32}, 0}, {{8}, 1}, {{16}, 2}, {{24}, 3}, {{12}, 4}, {{33}, 5}, {{34}, 6}, {{35}, 7}, {{32}, 8}},
                true));
    add("blur_radius.txt", keyFile("int blur radius: 1 -> 24 -> 1 every 3.84 s", "cosinus", 1.0,
                                   {{{1}, 0}, {{24}, 1.92}, {{1}, 3.84}}, true));
    add("scroll_x.txt", keyFile("int horizontal scroll in pixels: 0 -> 512 every 7.68 s", "linear", 1.0,
                                {{{0}, 0}, {{512}, 7.68}}, true));
    add("scroll_y.txt", keyFile("int vertical scroll in pixels: a swing of -10 .. 200", "cosinus", 1.0,
                                {{{-10}, 0}, {{200}, 3.84}, {{-10}, 7.68}}, true));
    add("wobble.txt",
        keyFile("float amplitude: 0 -> 24 -> 0 every 3.84 s", "cosinus", 1.0, {{{0}, 0}, {{24}, 1.92}, {{0}, 3.84}}));
    add("zoom_pulse.txt", keyFile("float zoom factor: 1.0 -> 1.06 on each beat", "cosinus", 0.48,
                                  {{{1.0}, 0}, {{1.06}, 0.5}, {{1.0}, 1}}));
}

}  // namespace vz::assetgen
