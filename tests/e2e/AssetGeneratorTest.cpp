// The generator of the sample demo's files: same bytes on every run, the committed
// files up to date, and each file shaped the way the player's readers need.
#include <gtest/gtest.h>

#include <libopenmpt/libopenmpt.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/TestSupport.hpp"

namespace fs = std::filesystem;

namespace {

void runGenerator(const fs::path& out) {
    const fs::path generator = fs::path(VZ_PLAYER_PATH).parent_path() / "tools" / "make_sample_assets";
    ASSERT_TRUE(fs::exists(generator)) << generator << " is not built";
    std::string command = "'";
    command += generator.string() + "' '" + out.string() + "' > /dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

std::vector<std::string> fileNames(const fs::path& dir) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

unsigned le16(const std::string& bytes, size_t at) { return uint8_t(bytes[at]) | unsigned(uint8_t(bytes[at + 1])) << 8; }

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

// The readers take PCX lines as exactly width bytes, always a 256-entry GIF table, and
// BMP and JPEG rows without padding; key files hold the keys their header counts, from time 0.
TEST_F(AssetGenerator, FilesSuitThePlayersReaders) {
    for (const std::string& name : fileNames(first())) {
        SCOPED_TRACE(name);
        const std::string bytes = vz::test::readFile(first() / name), extension = fs::path(name).extension();
        if (extension == ".pcx") {
            ASSERT_GT(bytes.size(), 128u + 769u);
            EXPECT_EQ(le16(bytes, 66), le16(bytes, 8) - le16(bytes, 4) + 1);
            EXPECT_EQ(uint8_t(bytes[bytes.size() - 769]), 0x0C);
        } else if (extension == ".gif") {
            EXPECT_EQ(uint8_t(bytes[10]), 0xF7);
        } else if (extension == ".bmp") {
            EXPECT_EQ(le16(bytes, 18) * 3 % 4, 0u);
        } else if (extension == ".jpg") {
            const size_t frame = bytes.find("\xFF\xC0");  // baseline frame header: height, then width
            ASSERT_NE(frame, std::string::npos);
            EXPECT_EQ((uint8_t(bytes[frame + 7]) << 8 | uint8_t(bytes[frame + 8])) * 3 % 4, 0);
        } else if (extension == ".txt") {
            std::istringstream in(bytes);
            std::vector<std::string> lines;
            for (std::string line; std::getline(in, line);)
                if (line.find_first_not_of(" \t\r") != std::string::npos && line[0] != '#') lines.push_back(line);
            ASSERT_GE(lines.size(), 2u);
            std::string kind;
            size_t count = 0;
            std::istringstream(lines[0]) >> kind >> count;
            EXPECT_EQ(count, lines.size() - 1);
            EXPECT_EQ(std::stod(lines[1].substr(lines[1].find_last_of(" \t") + 1)), 0.0);  // keys start at time 0
        }
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

}  // namespace
