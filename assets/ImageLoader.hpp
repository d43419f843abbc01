#pragma once
// Turns a picture file (pcx, gif, bmp, jpg, chosen by the text after the first ".")
// into a layer or a palette. Files are read through File, so from disk or archive.
#include <memory>
#include <string>

namespace vz {

class Layer32bpp;
class Layer8bpp;
class LayerRle;
class Palette;

namespace ImageLoader {

std::unique_ptr<Layer32bpp> LoadLayer32bpp(const std::string& fileName);
std::unique_ptr<Layer8bpp> LoadLayer8bpp(const std::string& fileName);
std::unique_ptr<Palette> LoadPalette(const std::string& fileName);
std::unique_ptr<LayerRle> LoadLayerRle(const std::string& fileName);

}  // namespace ImageLoader
}  // namespace vz
