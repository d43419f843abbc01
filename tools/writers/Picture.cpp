#include "tools/writers/Picture.hpp"

#include <stdexcept>
#include <utility>

namespace vz::writers {

namespace {
Rgb unpacked(uint32_t c) { return {uint8_t(c >> 16), uint8_t(c >> 8), uint8_t(c)}; }
}  // namespace

IndexedPicture::IndexedPicture(int w, int h, std::vector<uint8_t> indices, const std::vector<uint32_t>& colours)
    : width(w), height(h), pixels(std::move(indices)) {
    if (colours.size() > palette.size()) throw std::invalid_argument("a palette holds at most 256 colours");
    for (size_t i = 0; i < colours.size(); ++i) palette[i] = unpacked(colours[i]);
}

RgbPicture::RgbPicture(int w, int h, const std::vector<uint32_t>& colours) : RgbPicture(w, h) {
    if (colours.size() != pixels.size()) throw std::invalid_argument("a picture needs one colour per pixel");
    for (size_t i = 0; i < colours.size(); ++i) pixels[i] = unpacked(colours[i]);
}

}  // namespace vz::writers
