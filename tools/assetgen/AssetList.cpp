#include "tools/assetgen/Assets.hpp"
#include "tools/assetgen/Music.hpp"

namespace vz::assetgen {

void addMusic(AssetList& assets) { assets.push_back({"music.mod", encodeMod(composeSampleSong())}); }

AssetList makeAllAssets(const Band& band) {
    AssetList assets;
    addPictures(assets, band);
    addMaps(assets, band);
    addPalettes(assets, band);
    addKeytracks(assets);
    addProceduralKeytracks(assets);
    addMeshes(assets);
    addModels3dAssets(assets);
    addSceneAssets(assets);
    addMusic(assets);
    return assets;
}

}  // namespace vz::assetgen
