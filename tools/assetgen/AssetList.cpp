#include "tools/assetgen/Assets.hpp"
#include "tools/assetgen/Music.hpp"

namespace vz::assetgen {

void addMusic(AssetList& assets) {
    assets.push_back({"music.mod", encodeMod(composeSampleSong())});
}

AssetList makeAllAssets() {
    AssetList assets;
    addPictures(assets);
    addMaps(assets);
    addPalettes(assets);
    addKeytracks(assets);
    addMusic(assets);
    return assets;
}

}  // namespace vz::assetgen
