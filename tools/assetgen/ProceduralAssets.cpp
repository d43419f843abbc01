// Key files of the procedural section (procedural.txt): the rotozoom's angle and zoom, the
// shapes' path and radius, the bump light's path and the turn of the rotated circles.
// Written out as the text they are, since each is a handful of keys.
#include <cstring>
#include <utility>

#include "tools/assetgen/Assets.hpp"

namespace vz::assetgen {

void addProceduralKeytracks(AssetList& assets) {
    const std::pair<const char*, const char*> files[] = {
        {"roto_angle.txt",
         "# float: rotozoom angle in radians, swinging round and back every 6 s\n"
         "spline 5 1.000\n0.000 0.000\n0.600 1.500\n2.400 3.000\n3.000 4.500\n0.000 6.000\n"},
        {"roto_zoom.txt",
         "# float: rotozoom zoom, 1 -> 2.5 -> 0.7 -> 1.8 -> 1 every 6 s\n"
         "spline 5 1.000\n1.000 0.000\n2.500 1.500\n0.700 3.000\n1.800 4.500\n1.000 6.000\n"},
        {"shape_path.txt",
         "# vector2: an ellipse round the centre every 4 s\n"
         "spline 9 1.000\n0.450 0.000 0.000\n0.318 0.247 0.500\n0.000 0.350 1.000\n-0.318 0.247 1.500\n"
         "-0.450 0.000 2.000\n-0.318 -0.247 2.500\n0.000 -0.350 3.000\n0.318 -0.247 3.500\n0.450 0.000 4.000\n"},
        {"shape_radius.txt",
         "# float: radius in pixels, 30 -> 110 -> 30 every 4 s\ncosinus 3 1.000\n"
         "30.000 0.000\n110.000 2.000\n30.000 4.000\n"},
        {"light_path.txt",
         "# vector2: a figure of eight every 3 s\n"
         "spline 9 1.000\n0.500 0.000 0.000\n0.354 0.400 0.375\n0.000 0.000 0.750\n-0.354 -0.400 1.125\n"
         "-0.500 0.000 1.500\n-0.354 0.400 1.875\n0.000 0.000 2.250\n0.354 -0.400 2.625\n0.500 0.000 3.000\n"},
        {"sinus_turn.txt", "# float: angle in radians, one turn every 4 s\nlinear 2 1.000\n0.000 0.000\n6.283 4.000\n"},
    };
    for (const auto& [name, text] : files) assets.push_back({name, Bytes(text, text + std::strlen(text))});
}

}  // namespace vz::assetgen
