#pragma once
// The files of the sample demo, grouped by kind; each group appends its files.
#include <string>
#include <vector>

#include "tools/assetgen/Bytes.hpp"

namespace vz::assetgen {

struct Asset {
    std::string name;
    Bytes bytes;
};

using AssetList = std::vector<Asset>;

void addPictures(AssetList& assets);   // font, textures, backgrounds, sprites, film strip
void addMaps(AssetList& assets);       // tunnel offsets, light maps, alpha maps, patterns
void addPalettes(AssetList& assets);   // palette pictures, palette files, LUT palettes
void addKeytracks(AssetList& assets);  // key files
void addMusic(AssetList& assets);      // the tracker module

// Every file of the demo, in a fixed order.
AssetList makeAllAssets();

}  // namespace vz::assetgen
