// The generator of the sample demo's files: same bytes on every run and the committed
// files up to date (the sample demo test plays them), the music's timing, the band option.
#include <gtest/gtest.h>

#include <libopenmpt/libopenmpt.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

#include <sys/wait.h>

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

void runGenerator(const fs::path& out, const std::string& options = "") {
    ASSERT_EQ(generatorStatus(out, options), 0) << options;
}

std::vector<std::string> fileNames(const fs::path& dir) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

unsigned le16(const std::string& bytes, size_t at) {
    return uint8_t(bytes[at]) | unsigned(uint8_t(bytes[at + 1])) << 8;
}

// Width and height from the picture's header, by its extension.
std::pair<unsigned, unsigned> pictureSize(const std::string& name, const std::string& bytes) {
    const std::string extension = fs::path(name).extension();
    if (extension == ".pcx") return {le16(bytes, 8) - le16(bytes, 4) + 1, le16(bytes, 10) - le16(bytes, 6) + 1};
    if (extension == ".gif") return {le16(bytes, 6), le16(bytes, 8)};
    if (extension == ".bmp") return {le16(bytes, 18), le16(bytes, 22)};
    const size_t frame = bytes.find("\xFF\xC0");  // JPEG baseline frame header: height, then width
    if (extension != ".jpg" || frame == std::string::npos) return {0, 0};
    return {unsigned(uint8_t(bytes[frame + 7])) << 8 | uint8_t(bytes[frame + 8]),
            unsigned(uint8_t(bytes[frame + 5])) << 8 | uint8_t(bytes[frame + 6])};
}

// Runs the generator twice for all tests of this file.
class AssetGenerator : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dir_ = new vz::test::ScratchDir();
        runGenerator(dir_->path() / "first");
        runGenerator(dir_->path() / "second");
    }
    static void TearDownTestSuite() { delete dir_; }
    static fs::path first() { return dir_->path() / "first"; }
    static inline vz::test::ScratchDir* dir_ = nullptr;
};

TEST_F(AssetGenerator, WritesTheSameBytesOnEveryRunAndMatchesTheCommittedFiles) {
    const fs::path committed = fs::path(VZ_SOURCE_DIR) / "demos" / "sample";
    const std::vector<std::string> names = fileNames(first());
    ASSERT_EQ(names, fileNames(dir_->path() / "second"));
    ASSERT_GE(names.size(), 40u);
    for (const std::string& name : names) {
        const std::string bytes = vz::test::readFile(first() / name);
        EXPECT_EQ(bytes, vz::test::readFile(dir_->path() / "second" / name)) << name << " differs between runs";
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
    runGenerator(wide, "--band 1920x900");
    const std::set<std::string> bandSized = {
        "tunnel_a.pcx",    "tunnel_b.pcx",       "tunnel2_a.pcx",        "tunnel2_b.pcx",     "light_tunnel.pcx",
        "light_spot.pcx",  "pattern_radial.pcx", "pattern_diagonal.pcx", "pattern_noise.gif", "alpha_vignette.pcx",
        "alpha_bands.pcx", "spiral.pcx",         "plasma.pcx",           "back.jpg",          "rings.bmp"};
    ASSERT_EQ(fileNames(wide), fileNames(first()));
    for (const std::string& name : fileNames(first())) {
        SCOPED_TRACE(name);
        const std::string bytes = vz::test::readFile(wide / name);
        if (bandSized.count(name)) {
            EXPECT_EQ(pictureSize(name, vz::test::readFile(first() / name)), std::make_pair(640u, 400u));
            EXPECT_EQ(pictureSize(name, bytes), std::make_pair(1920u, 900u));
        } else {
            EXPECT_EQ(bytes, vz::test::readFile(first() / name));
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
