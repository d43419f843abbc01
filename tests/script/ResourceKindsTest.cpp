#include "script/ResourceKinds.hpp"

#include <gtest/gtest.h>

#include "ScriptTestSupport.hpp"
#include "engine3d/Scene.hpp"
#include "script/Keytrack.hpp"
#include "script/OffsetsTable.hpp"
#include "script/Palette.hpp"
#include "script/Rawdata.hpp"
#include "script/Repository.hpp"
#include "script/Text.hpp"
#include "script/Zbuffer.hpp"

namespace vz {
namespace {

class ResourceKindsTest : public ::testing::Test {
protected:
    ResourceKindsTest() {
        repository.clear();
        screenPixels.assign(64 * 40, 0);
        repository.add(std::make_unique<Symbol>(std::make_unique<Layer32bpp>(64, 40, screenPixels.data())), "screen");
    }
    ~ResourceKindsTest() override { repository.clear(); }

    // Runs the declaration "add <text>" and returns the new resource.
    Resource& declare(const std::string& text) {
        test::ParsedLine line(text, "declaration" + std::to_string(++lines) + ".txt");
        repository.load(line.parser);
        return *repository.at(repository.count() - 1)->getData();
    }
    std::string errorOfDeclaring(const std::string& text) {
        return test::errorOf([&] { declare(text); });
    }

    test::ScratchDir dir;
    Repository& repository = Repository::instance();
    std::vector<std::uint32_t> screenPixels;
    int lines = 0;
};

TEST_F(ResourceKindsTest, EmptyLayersOfADeclaredSize) {
    auto& back = dynamic_cast<Layer32bpp&>(declare("back Layer32bpp sizeof screen"));
    EXPECT_EQ(back.width, 64);
    EXPECT_EQ(back.height, 40);
    EXPECT_STREQ(back.kindName(), "Layer32bpp");
    auto& bytes = dynamic_cast<Layer8bpp&>(declare("bytes Layer8bpp size 16 8"));
    EXPECT_EQ(bytes.width, 16);
    EXPECT_EQ(bytes.height, 8);
    // "sizeof" takes any layer kind, also one that is itself sized after another.
    auto& table = dynamic_cast<OffsetsTable&>(declare("table OffsetsTable sizeof bytes"));
    EXPECT_EQ(table.width, 16);
    EXPECT_STREQ(table.kindName(), "OffsetsTable");

    EXPECT_EQ(errorOfDeclaring("bad Layer8bpp size 0 5"), "Layer8bpp : invalid size 0x5");
    EXPECT_EQ(errorOfDeclaring("huge OffsetsTable size 100000 2"), "OffsetsTable : invalid size 100000x2");
    EXPECT_EQ(errorOfDeclaring("neg Zbuffer -4 4"), "Zbuffer : invalid size -4x4");
    declare("c Color 1 2 3 4");
    EXPECT_EQ(errorOfDeclaring("odd Layer32bpp sizeof c"), "Repository::aquire failure");
    EXPECT_EQ(errorOfDeclaring("short Layer32bpp size 4"), "Fatal: Parser : there is no tokens lefts in the line");
}

TEST_F(ResourceKindsTest, ColorIntegersComeAsFreeByteBlueGreenRed) {
    EXPECT_EQ(dynamic_cast<Color&>(declare("c Color 0 10 20 30")).value, 0x001E140Au);
    EXPECT_EQ(dynamic_cast<Color&>(declare("d Color 255 0 0 1")).value, 0xFF010000u);
}

TEST_F(ResourceKindsTest, ZbufferStampWrapsAndClears) {
    auto& zbuffer = dynamic_cast<Zbuffer&>(declare("z Zbuffer 4 2"));
    EXPECT_EQ(zbuffer.stamp, 0u);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(zbuffer.pixels[i], 0u);
    // Usable wherever a 32-bit layer is asked for.
    EXPECT_EQ(&repository.aquireAs<Layer32bpp>("z"), &zbuffer);
    EXPECT_EQ(test::errorOf([&] { repository.aquireAs<Zbuffer>("screen"); }), "Repository::aquire failure");

    for (int i = 0; i < 127; ++i) zbuffer.advanceStamp();
    EXPECT_EQ(zbuffer.stamp, 0x7F000000u);
    zbuffer.pixels[3] = 0x7E001234;
    zbuffer.advanceStamp();
    EXPECT_EQ(zbuffer.stamp, 0u);
    EXPECT_EQ(zbuffer.pixels[3], 0u);
    zbuffer.pixels[3] = 0x00001234;
    zbuffer.advanceStamp();
    EXPECT_EQ(zbuffer.stamp, 0x01000000u);
    EXPECT_EQ(zbuffer.pixels[3], 0x00001234u);  // only the wrap clears
}

TEST_F(ResourceKindsTest, OffsetsTableFromTwoPictures) {
    Layer8bpp low(4, 4), high(4, 4);
    std::fill(low.pixels, low.pixels + 16, 3);
    std::fill(high.pixels, high.pixels + 16, 2);
    high.pixels[5] = 255;
    low.pixels[5] = 254;
    auto table = OffsetsTable::fromImages(low, high, "a.pcx", "b.pcx");
    EXPECT_EQ(table->width, 4);
    for (int i = 0; i < 16; ++i) EXPECT_EQ(table->pixels[i], i == 5 ? 0xFFFEu : 515u) << i;

    Layer8bpp narrow(2, 4);
    EXPECT_EQ(test::errorOf([&] { OffsetsTable::fromImages(low, narrow, "a.pcx", "n.pcx"); }),
              "OffsetsTable : a.pcx and n.pcx differ in size (4x4 and 2x4)");
}

// A 4 x 4 8-bit PCX picture filled with `index`.
void writeFlatPcx(const std::string& name, std::uint8_t index) {
    std::vector<unsigned char> bytes(128, 0);
    bytes[0] = 10;
    bytes[1] = 5;
    bytes[2] = 1;
    bytes[3] = 8;
    bytes[8] = 3;   // xmax
    bytes[10] = 3;  // ymax
    bytes[65] = 1;  // planes
    bytes[66] = 4;  // bytes per line
    for (int row = 0; row < 4; ++row) {
        bytes.push_back(0xC4);  // run of 4
        bytes.push_back(index);
    }
    bytes.push_back(0x0C);
    bytes.resize(bytes.size() + 768, 0);
    test::writeBytes(name, bytes);
}

TEST_F(ResourceKindsTest, OffsetsTableDeclaredFromFiles) {
    writeFlatPcx("a.pcx", 3);
    writeFlatPcx("b.pcx", 2);
    std::string failure = errorOfDeclaring("t OffsetsTable a.pcx b.pcx");
    if (failure.find("not available yet") != std::string::npos) GTEST_SKIP() << failure;
    ASSERT_EQ(failure, "");
    auto& table = repository.aquireAs<OffsetsTable>("t");
    ASSERT_EQ(table.width, 4);
    for (int i = 0; i < 16; ++i) EXPECT_EQ(table.pixels[i], 515u);
}

TEST_F(ResourceKindsTest, FileKinds) {
    test::writeFile("keys.txt", "linear 2 1\n0 0\n8 2\n");
    EXPECT_FLOAT_EQ(dynamic_cast<KeytrackFloat&>(declare("k KeytrackFloat keys.txt")).sample(1.0f), 4.0f);
    test::writeFile("pairs.txt", "linear 2 1\n0 0 0\n8 2 2\n");
    EXPECT_FLOAT_EQ(dynamic_cast<KeytrackVector2&>(declare("v KeytrackVector2 pairs.txt")).sample(1.0f).y, 1.0f);

    test::writeBytes("blob.bin", {1, 0, 255, 7});
    auto& raw = dynamic_cast<Rawdata&>(declare("r Rawdata blob.bin"));
    EXPECT_EQ(raw.bytes, (std::vector<std::uint8_t>{1, 0, 255, 7}));
    EXPECT_EQ(errorOfDeclaring("r2 Rawdata missing.bin"), "Rawdata : can not open missing.bin");

    test::writeFile("words.txt", "hello world\nsecond line\n");
    auto& text = dynamic_cast<Text&>(declare("t Text words.txt"));
    ASSERT_TRUE(text.parser.nextLine());
    EXPECT_STREQ(text.parser.getToken(), "hello");
    EXPECT_EQ(errorOfDeclaring("t2 Text missing.txt"), "TextParser can not open file");
}

TEST_F(ResourceKindsTest, SceneKinds) {
    auto& scene = dynamic_cast<Scene&>(declare("s Scene"));
    EXPECT_TRUE(scene.objects.empty());
    EXPECT_TRUE(scene.cameras.empty());
    EXPECT_EQ(errorOfDeclaring("m Meshe ship.asc mat"), "Meshe : 3D meshes are not available yet");
    EXPECT_EQ(errorOfDeclaring("m MesheMaterial ship.3d"), "MesheMaterial : 3D meshes are not available yet");
    EXPECT_EQ(errorOfDeclaring("m SceneMax show.asc"), "SceneMax : 3D scenes are not available yet");
}

}  // namespace
}  // namespace vz
