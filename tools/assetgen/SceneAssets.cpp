// The scene section's files: an ASCII scene export with a hierarchy (a turning pivot
// carries a spinning ring, the ring carries a bobbing crate) and a moving camera whose
// field of view breathes; the pivot's point-sized mesh; the material; and a scene stream
// that reveals the ring's faces a few at a time.
#include <cstdio>
#include <cstring>
#include <string>

#include "tools/assetgen/Assets.hpp"

namespace vz::assetgen {

namespace {

constexpr int ticksPerSecond = 30 * 160;  // the export's frame speed and ticks per frame

std::string ticks(double seconds) { return std::to_string(static_cast<int>(seconds * ticksPerSecond)); }

// Sixteen rotation samples a second apart: the first at rest, each next turning `step`
// radians further about the axis.
std::string turning(const char* axis, double step) {
    std::string text = "\t\t*CONTROL_ROT_TRACK {\r\n";
    for (int s = 0; s <= 15; ++s) {
        char angle[16];
        std::snprintf(angle, sizeof angle, "%.4f", s == 0 ? 0.0 : step);
        text += "\t\t\t*CONTROL_ROT_SAMPLE " + ticks(s) + "\t" + axis + "\t" + angle + "\r\n";
    }
    return text + "\t\t}\r\n";
}

std::string sceneExport() {
    std::string t = "*3DSMAX_ASCIIEXPORT\t200\r\n*COMMENT \"vzplayer sample: the scene section\"\r\n";
    t += "*SCENE {\r\n\t*SCENE_FILENAME \"orbit.max\"\r\n\t*SCENE_FIRSTFRAME 0\r\n\t*SCENE_LASTFRAME 450\r\n"
         "\t*SCENE_FRAMESPEED 30\r\n\t*SCENE_TICKSPERFRAME 160\r\n}\r\n";
    // The pivot: 520 units ahead, turning about the up axis.
    t += "*HELPER_OBJECT {\r\n}\r\n*HELPER_CLASS {\r\n\t*NODE_NAME \"Pivot\"\r\n\t*NODE_TM {\r\n"
         "\t\t*NODE_NAME \"Pivot\"\r\n\t\t*TM_POS 0.0 520.0 0.0\r\n\t\t*TM_ROTAXIS 0.0 0.0 1.0\r\n"
         "\t\t*TM_ROTANGLE 0.0\r\n\t\t*TM_SCALE 1.0 1.0 1.0\r\n\t}\r\n"
         "\t*TM_ANIMATION {\r\n\t\t*NODE_NAME \"Pivot\"\r\n" +
         turning("0.0 0.0 1.0", 0.4) + "\t}\r\n}\r\n";
    // The ring: 110 units out from the pivot, spinning about its own first axis and
    // swelling half way through.
    t += "*GEOMOBJECT {\r\n\t*NODE_NAME \"Ring\"\r\n\t*NODE_PARENT \"Pivot\"\r\n\t*NODE_TM {\r\n"
         "\t\t*NODE_NAME \"Ring\"\r\n\t\t*TM_POS 110.0 0.0 0.0\r\n\t}\r\n"
         "\t*MESH {\r\n\t\t*TIMEVALUE 0\r\n\t\t*MESH_NUMVERTEX 0\r\n\t}\r\n"
         "\t*TM_ANIMATION {\r\n\t\t*NODE_NAME \"Ring\"\r\n" +
         turning("1.0 0.0 0.0", 0.9) +
         "\t\t*CONTROL_SCALE_TCB {\r\n"
         "\t\t\t*CONTROL_TCB_SCL_KEY 0\t0.8 0.8 0.8\t0.0 0.0 1.0 0.0\t25.0 25.0 25.0 0.0 0.0\r\n"
         "\t\t\t*CONTROL_TCB_SCL_KEY " +
         ticks(7.5) +
         "\t1.1 1.1 1.1\t0.0 0.0 1.0 0.0\t25.0 25.0 25.0 0.0 0.0\r\n"
         "\t\t\t*CONTROL_TCB_SCL_KEY " +
         ticks(15) +
         "\t0.8 0.8 0.8\t0.0 0.0 1.0 0.0\t25.0 25.0 25.0 0.0 0.0\r\n"
         "\t\t}\r\n\t}\r\n}\r\n";
    // The crate: riding on the ring, bobbing through it and tumbling.
    t += "*GEOMOBJECT {\r\n\t*NODE_NAME \"Crate Box\"\r\n\t*NODE_PARENT \"Ring\"\r\n\t*NODE_TM {\r\n"
         "\t\t*NODE_NAME \"Crate Box\"\r\n\t\t*TM_POS 0.0 0.0 60.0\r\n\t}\r\n"
         "\t*TM_ANIMATION {\r\n\t\t*NODE_NAME \"Crate Box\"\r\n\t\t*CONTROL_POS_BEZIER {\r\n";
    const int heights[] = {60, -60, 60, -60, 60};
    for (int k = 0; k < 5; ++k)
        t += "\t\t\t*CONTROL_BEZIER_POS_KEY " + ticks(k * 3.75) + "\t0.0 0.0 " + std::to_string(heights[k]) +
             ".0\t0.0 0.0 0.0\t0.0 0.0 0.0\t0\r\n";
    t += "\t\t}\r\n\t\t*CONTROL_ROT_TCB {\r\n\t\t\t*CONTROL_TCB_ROT_KEY 0\t0.0 1.0 1.0 0.0\t25.0 25.0 25.0 0.0 0.0\r\n";
    for (int k = 1; k <= 5; ++k)
        t += "\t\t\t*CONTROL_TCB_ROT_KEY " + ticks(k * 3) + "\t0.0 1.0 1.0 3.0\t25.0 25.0 25.0 0.0 0.0\r\n";
    t += "\t\t}\r\n\t}\r\n}\r\n";
    t += "*LIGHTOBJECT {\r\n\t*NODE_NAME \"Omni\"\r\n\t*LIGHT_TYPE Omni\r\n\t*NODE_TM {\r\n"
         "\t\t*TM_POS 0.0 0.0 400.0\r\n\t}\r\n}\r\n";
    // The camera swings round the pivot and back, looking at it, its field of view
    // narrowing half way.
    t += "*CAMERAOBJECT {\r\n\t*NODE_NAME \"Camera01\"\r\n\t*CAMERA_TYPE Target\r\n"
         "\t*NODE_TM {\r\n\t\t*NODE_NAME \"Camera01\"\r\n\t\t*TM_POS 0.0 -40.0 80.0\r\n\t}\r\n"
         "\t*NODE_TM {\r\n\t\t*NODE_NAME \"Camera01.Target\"\r\n\t\t*TM_POS 0.0 520.0 0.0\r\n\t}\r\n"
         "\t*CAMERA_SETTINGS {\r\n\t\t*TIMEVALUE 0\r\n\t\t*CAMERA_NEAR 0.0\r\n\t\t*CAMERA_FAR 1000.0\r\n"
         "\t\t*CAMERA_FOV 1.0\r\n\t\t*CAMERA_TDIST 560.0\r\n\t}\r\n"
         "\t*TM_ANIMATION {\r\n\t\t*NODE_NAME \"Camera01\"\r\n\t\t*CONTROL_POS_TCB {\r\n";
    const char* places[] = {"0.0 -40.0 80.0", "-240.0 60.0 200.0", "220.0 80.0 -40.0", "0.0 -40.0 80.0"};
    for (int k = 0; k < 4; ++k)
        t += "\t\t\t*CONTROL_TCB_POS_KEY " + ticks(k * 5) + "\t" + places[k] + "\t25.0 25.0 25.0 0.0 0.0\r\n";
    t += "\t\t}\r\n\t}\r\n\t*CAMERA_ANIMATION {\r\n";
    const char* fovs[] = {"1.0", "0.7", "1.0"};
    for (int k = 0; k < 3; ++k)
        t += "\t\t*CAMERA_SETTINGS {\r\n\t\t\t*TIMEVALUE " + ticks(k * 7.5) + "\r\n\t\t\t*CAMERA_FOV " + fovs[k] +
             "\r\n\t\t}\r\n";
    return t + "\t}\r\n}\r\n";
}

// A stream for objects pivot (1 face), ring (256 faces) and crate (12 faces): samples
// every quarter second from 10.25 to 15 s of the section; the crate shows from the first
// sample on, the ring's faces appear 13 at a time, the pivot never shows.
Bytes revealStream() {
    Bytes b;
    writers::put32le(b, 12321);
    writers::put32le(b, 0);  // the size, set below
    const std::uint32_t faces[32] = {1, 256, 12};
    for (std::uint32_t count : faces) writers::put32le(b, count);
    auto frame = [&](float time, const std::vector<std::pair<std::uint32_t, std::vector<int>>>& objects) {
        const std::size_t start = b.size();
        writers::put32le(b, 69);
        writers::put32le(b, 0);
        std::uint32_t bits;
        std::memcpy(&bits, &time, 4);
        writers::put32le(b, bits);
        for (const auto& [object, entries] : objects) {
            writers::put32le(b, 16);
            writers::put32le(b, static_cast<std::uint32_t>(12 + 2 * entries.size()));
            writers::put32le(b, object);
            for (int e : entries) writers::put16le(b, static_cast<unsigned>(e));
        }
        const std::uint32_t size = static_cast<std::uint32_t>(b.size() - start);
        for (int i = 0; i < 4; ++i) b[start + 4 + i] = static_cast<std::uint8_t>(size >> (8 * i));
    };
    frame(0, {});
    for (int k = 1; k <= 20; ++k) {
        std::vector<int> ring;
        for (int f = (k - 1) * 13; f < k * 13 && f < 256; ++f) ring.push_back(f);
        std::vector<std::pair<std::uint32_t, std::vector<int>>> objects{{1, ring}};
        if (k == 1) objects.push_back({2, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}});
        frame(10.0f + 0.25f * static_cast<float>(k), objects);
    }
    const std::uint32_t size = static_cast<std::uint32_t>(b.size());
    for (int i = 0; i < 4; ++i) b[4 + i] = static_cast<std::uint8_t>(size >> (8 * i));
    return b;
}

Bytes textBytes(const std::string& text) { return Bytes(text.begin(), text.end()); }

}  // namespace

void addSceneAssets(AssetList& assets) {
    assets.push_back({"orbit.ase", textBytes(sceneExport())});
    assets.push_back({"pivot.asc", textBytes("Named object: \"pivot\"\nTri-mesh, Vertices: 3     Faces: 1\n"
                                             "Vertex list:\nVertex 0:  X:0  Y:0  Z:0\nVertex 1:  X:0  Y:0  Z:0\n"
                                             "Vertex 2:  X:0  Y:0  Z:0\nFace list:\n"
                                             "Face 0:    A:0 B:1 C:2 AB:0 BC:0 CA:0\n")});
    assets.push_back(
        {"mat_scene_tiles.txt",
         textBytes("# the scene section's ring: the brick texture\nmap32bpp scn_tiles\nid texture32bpp\n")});
    assets.push_back(
        {"mat_scene.txt", textBytes("# the scene section's crate: flat gold\ncolor scn_gold\nid flatColor\n")});
    assets.push_back({"reveal.str", revealStream()});
}

}  // namespace vz::assetgen
