// The generator of the sample demo's files: the committed files are what it writes (the
// sample demo test plays them), the music's timing, the band option.
#include <gtest/gtest.h>

#include <libopenmpt/libopenmpt.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include <sys/wait.h>

#include "assets/ImageLoader.hpp"
#include "core/Layer.hpp"
#include "support/TestSupport.hpp"

namespace fs = std::filesystem;

namespace {

// The generator's exit status; `options` go before the output directory.
int generatorStatus(const fs::path& out, const std::string& options = "") {
    const fs::path generator = fs::path(VZ_PLAYER_PATH).parent_path() / "tools" / "make_sample_assets";
    if (!fs::exists(generator)) ADD_FAILURE() << generator << " is not built";
    std::string command = "'";  // built by appending: the one-expression form trips g++ 12's -Wrestrict
    command += generator.string() + "' " + options + " '" + out.string() + "' > /dev/null 2>&1";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::vector<std::string> fileNames(const fs::path& dir) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Width and height of a picture file, as the player reads it (the decoder is chosen by
// the name's first dot, so the path is made relative to the scratch directory).
std::pair<int, int> pictureSize(const fs::path& file) {
    const auto picture = vz::ImageLoader::LoadLayer32bpp(fs::relative(file).string());
    return {picture->width, picture->height};
}

// Runs the generator once for all tests of this file.
class AssetGenerator : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dir_ = new vz::test::ScratchDir();
        ASSERT_EQ(generatorStatus(dir_->path() / "first"), 0);
    }
    static void TearDownTestSuite() { delete dir_; }
    static fs::path first() { return dir_->path() / "first"; }
    static inline vz::test::ScratchDir* dir_ = nullptr;
};

// A run that wrote other bytes than the committed files, by a change or by chance (the
// time, an address, memory left unset), shows here.
TEST_F(AssetGenerator, WritesTheCommittedFiles) {
    const fs::path committed = fs::path(VZ_SOURCE_DIR) / "demos" / "sample";
    const std::vector<std::string> names = fileNames(first());
    ASSERT_GE(names.size(), 40u);
    for (const std::string& name : names) {
        const std::string bytes = vz::test::readFile(first() / name);
        ASSERT_TRUE(fs::exists(committed / name)) << name << " is not in demos/sample: run make assets";
        EXPECT_EQ(bytes, vz::test::readFile(committed / name)) << name << " in demos/sample is stale: run make assets";
    }
}

// The script starts the second half by order number: orders are 7.68 s apart
// (speed 6, tempo 125, 64 rows).
TEST_F(AssetGenerator, ModulePlaysEightOrdersOf768Seconds) {
    std::ifstream in(first() / "music.mod", std::ios::binary);
    openmpt::module module(in);
    ASSERT_EQ(module.get_num_orders(), 8);
    for (int order = 0; order < 8; ++order) EXPECT_NEAR(module.set_position_order_row(order, 0), order * 7.68, 1e-6);
}

// --band remakes exactly the pictures drawn for the band, at the band's size; every
// other file keeps the default run's bytes.
TEST_F(AssetGenerator, BandOptionResizesTheBandSizedPicturesOnly) {
    const fs::path wide = dir_->path() / "wide";
    ASSERT_EQ(generatorStatus(wide, "--band 1920x900"), 0);
    const std::set<std::string> bandSized = {
        "tunnel_a.pcx",    "tunnel_b.pcx",       "tunnel2_a.pcx",        "tunnel2_b.pcx",     "light_tunnel.pcx",
        "light_spot.pcx",  "pattern_radial.pcx", "pattern_diagonal.pcx", "pattern_noise.gif", "alpha_vignette.pcx",
        "alpha_bands.pcx", "spiral.pcx",         "plasma.pcx",           "back.jpg",          "rings.bmp"};
    ASSERT_EQ(fileNames(wide), fileNames(first()));
    for (const std::string& name : fileNames(first())) {
        SCOPED_TRACE(name);
        if (bandSized.count(name)) {
            EXPECT_EQ(pictureSize(first() / name), std::make_pair(640, 400));
            EXPECT_EQ(pictureSize(wide / name), std::make_pair(1920, 900));
        } else {
            EXPECT_EQ(vz::test::readFile(wide / name), vz::test::readFile(first() / name));
        }
    }
}

TEST_F(AssetGenerator, RefusesBadBandSizesWithUsage) {
    for (const char* options : {"--band 1922x900", "--band 0x400", "--band 640x0", "--band 640", "--band 640x400x2",
                                "--band", "--size 640x400"}) {
        EXPECT_EQ(generatorStatus(dir_->path() / "refused", options), 2) << options;
    }
    EXPECT_FALSE(fs::exists(dir_->path() / "refused"));
}

}  // namespace
