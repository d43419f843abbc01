#include "shell/display/PngWriter.hpp"

#include <png.h>

#include <vector>

#include "core/error.hpp"

namespace vz {

void writePng(const std::string& fileName, const std::uint32_t* pixels, int width, int height) {
    std::vector<std::uint8_t> rgb(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
    std::size_t n = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    for (std::size_t i = 0; i < n; ++i) {
        rgb[3 * i] = static_cast<std::uint8_t>(pixels[i] >> 16);
        rgb[3 * i + 1] = static_cast<std::uint8_t>(pixels[i] >> 8);
        rgb[3 * i + 2] = static_cast<std::uint8_t>(pixels[i]);
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&image, fileName.c_str(), 0, rgb.data(), width * 3, nullptr))
        throw error("cannot write the picture " + fileName + ": " + image.message);
}

}  // namespace vz
