#pragma once
// The files of the sample demo, grouped by kind; each group appends its files.
#include <string>
#include <vector>

#include "tools/assetgen/Band.hpp"
#include "tools/writers/Bytes.hpp"

namespace vz::assetgen {

using writers::Bytes;

struct Asset {
    std::string name;
    Bytes bytes;
};

using AssetList = std::vector<Asset>;

// Band-sized pictures are made at the band's size; every other file is the same for any band.
void addPictures(AssetList& assets, const Band& band);  // font, textures, backgrounds, sprites, film
void addMaps(AssetList& assets, const Band& band);      // tunnel offsets, light maps, alpha maps, patterns
void addPalettes(AssetList& assets, const Band& band);  // palette pictures, palette files, LUT palettes
void addKeytracks(AssetList& assets);                   // key files
void addProceduralKeytracks(AssetList& assets);         // key files of the procedural section
void addMeshes(AssetList& assets);                      // meshes, materials and tracks of the 3D section
void addModels3dAssets(AssetList& assets);             // meshes, light map, materials, keys of the 3D section
void addMusic(AssetList& assets);                       // the tracker module
void addSceneAssets(AssetList& assets);                 // scene export, pivot mesh and stream of the scene section

// Every file of the demo, in a fixed order.
AssetList makeAllAssets(const Band& band = Band{});

}  // namespace vz::assetgen
