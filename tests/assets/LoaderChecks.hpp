#pragma once
// Shared by the picture loader tests: the writers of their pictures, and failures with
// their exact log lines and exception texts.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "assets/ImageLoader.hpp"
#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "core/error.hpp"
#include "support/TestSupport.hpp"
#include "tools/writers/BmpWriter.hpp"
#include "tools/writers/GifWriter.hpp"
#include "tools/writers/JpegWriter.hpp"
#include "tools/writers/PcxWriter.hpp"

namespace vz::test {

using Bytes = std::vector<std::uint8_t>;
using Pixels = std::vector<std::uint32_t>;  // 0x00RRGGBB

// The loader's entry points with their results dropped, so tables of cases can name them.
using EntryPoint = void (*)(const std::string&);
inline void asLayer32(const std::string& file) { ImageLoader::LoadLayer32bpp(file); }
inline void asLayer8(const std::string& file) { ImageLoader::LoadLayer8bpp(file); }
inline void asPalette(const std::string& file) { ImageLoader::LoadPalette(file); }
inline void asLayerRle(const std::string& file) { ImageLoader::LoadLayerRle(file); }

// Loads `file` with a fresh log, expects error(message), and returns what it logged
// (the log's own opening and closing lines left out).
inline std::vector<std::string> failureLog(EntryPoint load, const std::string& file, const std::string& message) {
    startLog();
    EXPECT_EQ(errorOf([&] { load(file); }), message) << file;
    std::vector<std::string> lines = stopLogAndReadLines();
    return {lines.begin() + 2, lines.end() - 3};
}

// A file one entry point refuses with error(message), logging `log` and the file name framed.
struct Refusal {
    EntryPoint load;
    std::string file, message, log;
};

inline void expectRefusals(const std::vector<Refusal>& cases) {
    for (const auto& c : cases) EXPECT_EQ(failureLog(c.load, c.file, c.message), framed(c.log + c.file)) << c.file;
}

}  // namespace vz::test
