// The generator of the sample demo's files: same bytes on every run, the committed
// files up to date, and every file shaped the way the player's readers need.
#include <gtest/gtest.h>

#include <libopenmpt/libopenmpt.hpp>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/TestSupport.hpp"

namespace fs = std::filesystem;

namespace {

fs::path generatorPath() {
    return fs::path(VZ_PLAYER_PATH).parent_path() / "tools" / "make_sample_assets";
}

fs::path sampleDir() {
    return fs::path(VZ_SOURCE_DIR) / "demos" / "sample";
}

void runGenerator(const fs::path& out) {
    ASSERT_TRUE(fs::exists(generatorPath())) << generatorPath() << " is not built";
    std::string command = generatorPath().string();
    command = "'" + command;
    command += "' '" + out.string() + "' > /dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
}

std::vector<std::string> fileNames(const fs::path& dir) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

bool endsWith(const std::string& name, const std::string& suffix) {
    return name.size() >= suffix.size() && name.compare(name.size() - suffix.size(), suffix.size(), suffix) == 0;
}

unsigned le16(const std::string& bytes, size_t at) {
    return unsigned(uint8_t(bytes[at])) | unsigned(uint8_t(bytes[at + 1])) << 8;
}

unsigned be16(const std::string& bytes, size_t at) {
    return unsigned(uint8_t(bytes[at])) << 8 | unsigned(uint8_t(bytes[at + 1]));
}

// Width from the JPEG frame header, 0 when there is none.
unsigned jpegWidth(const std::string& bytes) {
    size_t at = 2;
    while (at + 9 < bytes.size() && uint8_t(bytes[at]) == 0xFF) {
        const unsigned marker = uint8_t(bytes[at + 1]);
        if (marker == 0xC0 || marker == 0xC2) return be16(bytes, at + 7);
        at += 2 + be16(bytes, at + 2);
    }
    return 0;
}

// Runs the generator once for all tests of this file.
class AssetGenerator : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dir_ = new vz::test::ScratchDir();
        runGenerator(dir_->path() / "first");
    }
    static void TearDownTestSuite() {
        delete dir_;
        dir_ = nullptr;
    }
    static fs::path first() { return dir_->path() / "first"; }

    static vz::test::ScratchDir* dir_;
};
vz::test::ScratchDir* AssetGenerator::dir_ = nullptr;

TEST_F(AssetGenerator, WritesTheSameBytesOnEveryRunAndMatchesTheCommittedFiles) {
    runGenerator(dir_->path() / "second");
    const std::vector<std::string> names = fileNames(first());
    ASSERT_EQ(names, fileNames(dir_->path() / "second"));
    ASSERT_GE(names.size(), 40u);
    for (const std::string& name : names) {
        const std::string bytes = vz::test::readFile(first() / name);
        EXPECT_EQ(bytes, vz::test::readFile(dir_->path() / "second" / name)) << name << " differs between runs";
        ASSERT_TRUE(fs::exists(sampleDir() / name)) << name << " is not in demos/sample: run make assets";
        EXPECT_EQ(bytes, vz::test::readFile(sampleDir() / name)) << name << " in demos/sample is stale: run make assets";
    }
}

TEST_F(AssetGenerator, PicturesSuitThePlayersReaders) {
    for (const std::string& name : fileNames(first())) {
        const std::string bytes = vz::test::readFile(first() / name);
        SCOPED_TRACE(name);
        if (endsWith(name, ".pcx")) {
            // Lines are taken as exactly width bytes and the palette sits in the last 769 bytes.
            ASSERT_GT(bytes.size(), 128u + 769u);
            EXPECT_EQ(bytes.substr(0, 4), std::string("\x0A\x05\x01\x08", 4));
            const unsigned width = le16(bytes, 8) - le16(bytes, 4) + 1;
            EXPECT_EQ(le16(bytes, 66), width);
            EXPECT_EQ(uint8_t(bytes[bytes.size() - 769]), 0x0C);
        } else if (endsWith(name, ".gif")) {
            // The reader always takes a 256-entry global table.
            ASSERT_GT(bytes.size(), 13u + 768u);
            EXPECT_EQ(bytes.substr(0, 6), "GIF89a");
            EXPECT_EQ(uint8_t(bytes[10]), 0xF7);
            EXPECT_EQ(uint8_t(bytes[13 + 768]), 0x2C);
            EXPECT_EQ(bytes.back(), '\x3B');
        } else if (endsWith(name, ".bmp") || endsWith(name, ".jpg")) {
            // The readers step whole pixels over row padding, so rows must have none.
            const unsigned width = endsWith(name, ".bmp") ? le16(bytes, 18) : jpegWidth(bytes);
            ASSERT_GT(width, 0u);
            EXPECT_EQ(width * 3 % 4, 0u) << "width " << width;
        }
    }
}

TEST_F(AssetGenerator, FontIsAStripOf36CellsOnPureBlack) {
    const std::string font = vz::test::readFile(first() / "police.pcx");
    const unsigned width = le16(font, 8) + 1, height = le16(font, 10) + 1;
    EXPECT_EQ(height % 36, 0u);
    EXPECT_EQ(width, height / 36);
    // Index 0 is the transparent black of sprites, and the top-left pixel is background.
    EXPECT_EQ(font.substr(font.size() - 768, 3), std::string(3, '\0'));
    EXPECT_EQ(uint8_t(font[128]) >= 0xC0 ? font[129] : font[128], '\0');
}

// Key files: a header line then `count` key lines, times from 0 upwards, the last above 0.
TEST_F(AssetGenerator, KeyFilesHoldTheirDeclaredKeysFromTimeZero) {
    int files = 0;
    for (const std::string& name : fileNames(first())) {
        if (!endsWith(name, ".txt")) continue;
        SCOPED_TRACE(name);
        ++files;
        std::vector<std::vector<std::string>> lines;
        for (const std::string& line : vz::test::readLines(first() / name)) {
            std::istringstream in(line);
            std::vector<std::string> tokens;
            for (std::string t; in >> t;) tokens.push_back(t);
            if (!tokens.empty() && tokens[0][0] != '#') lines.push_back(tokens);
        }
        ASSERT_FALSE(lines.empty());
        ASSERT_EQ(lines[0].size(), 3u);
        const std::string kind = lines[0][0];
        EXPECT_TRUE(kind == "linear" || kind == "spline" || kind == "cosinus" || kind == "square") << kind;
        ASSERT_EQ(std::stoul(lines[0][1]), lines.size() - 1);
        ASSERT_GE(lines.size(), 3u);
        double previous = -1;
        for (size_t i = 1; i < lines.size(); ++i) {
            EXPECT_EQ(lines[i].size(), lines[1].size());
            const double time = std::stod(lines[i].back());
            EXPECT_GT(time, previous);
            previous = time;
        }
        EXPECT_EQ(std::stod(lines[1].back()), 0.0);
    }
    EXPECT_GE(files, 10);
}

// The script starts the second half by order number: each order must start where
// the demo expects it, 7.68 s apart (speed 6, tempo 125, 64 rows).
TEST_F(AssetGenerator, ModulePlaysEightOrdersOf768Seconds) {
    std::ifstream in(first() / "music.mod", std::ios::binary);
    openmpt::module module(in);
    EXPECT_EQ(module.get_num_channels(), 4);
    ASSERT_EQ(module.get_num_orders(), 8);
    EXPECT_NEAR(module.get_duration_seconds(), 61.44, 1e-6);
    for (int order = 0; order < 8; ++order) {
        EXPECT_NEAR(module.set_position_order_row(order, 0), order * 7.68, 1e-6) << "order " << order;
        EXPECT_EQ(module.get_order_pattern(order), order);
    }
    // Every order sounds: render a second from its start and look for signal.
    for (int order = 0; order < 8; ++order) {
        module.set_position_order_row(order, 0);
        std::vector<float> left(44100), right(44100);
        ASSERT_EQ(module.read(44100, left.size(), left.data(), right.data()), left.size());
        float peak = 0;
        for (float v : left) peak = std::max(peak, std::abs(v));
        EXPECT_GT(peak, 0.05f) << "order " << order << " is silent";
    }
}

}  // namespace
