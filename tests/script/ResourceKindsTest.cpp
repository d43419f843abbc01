#include "script/ResourceKinds.hpp"

#include <gtest/gtest.h>

#include "ScriptTestSupport.hpp"
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
        repository.add(std::make_unique<Symbol>(std::make_unique<Layer32bpp>(64, 40, screenPixels.data())), "screen");
    }
    ~ResourceKindsTest() override { repository.clear(); }

    // Runs the declaration "add <text>" and returns the new resource as a T.
    template <class T = Resource>
    T& declare(const std::string& text) {
        test::ParsedLine line(text, "declaration" + std::to_string(++lines) + ".txt");
        repository.load(line.parser);
        return dynamic_cast<T&>(*repository.at(repository.count() - 1)->getData());
    }
    std::string errorOfDeclaring(const std::string& text) {
        return test::errorOf([&] { declare(text); });
    }

    test::ScratchDir dir;
    Repository& repository = Repository::instance();
    std::vector<std::uint32_t> screenPixels = std::vector<std::uint32_t>(64 * 40);
    int lines = 0;
};

TEST_F(ResourceKindsTest, EmptyLayersOfADeclaredSize) {
    auto& back = declare<Layer32bpp>("back Layer32bpp sizeof screen");
    EXPECT_EQ(std::make_pair(back.width, back.height), std::make_pair(64, 40));
    EXPECT_STREQ(back.kindName(), "Layer32bpp");
    auto& bytes = declare<Layer8bpp>("bytes Layer8bpp size 16 8");
    EXPECT_EQ(std::make_pair(bytes.width, bytes.height), std::make_pair(16, 8));
    // "sizeof" takes any layer kind, also one that is itself sized after another.
    EXPECT_EQ(declare<OffsetsTable>("table OffsetsTable sizeof bytes").width, 16);
    declare("c Color 1 2 3 4");
    const std::pair<const char*, const char*> failures[] = {
        {"bad Layer8bpp size 0 5", "Layer8bpp : invalid size 0x5"},
        {"huge OffsetsTable size 100000 2", "OffsetsTable : invalid size 100000x2"},
        {"neg Zbuffer -4 4", "Zbuffer : invalid size -4x4"},
        {"odd Layer32bpp sizeof c", "Repository::aquire failure"},
        {"short Layer32bpp size 4", "Fatal: Parser : there is no tokens lefts in the line"},
    };
    for (const auto& [text, message] : failures) EXPECT_EQ(errorOfDeclaring(text), message);
}

TEST_F(ResourceKindsTest, ColorIntegersComeAsFreeByteBlueGreenRed) {
    EXPECT_EQ(declare<Color>("c Color 0 10 20 30").value, 0x001E140Au);
    EXPECT_EQ(declare<Color>("d Color 255 0 0 1").value, 0xFF010000u);
}

TEST_F(ResourceKindsTest, ZbufferStampWrapsAndClears) {
    auto& zbuffer = declare<Zbuffer>("z Zbuffer 4 2");
    EXPECT_EQ(zbuffer.stamp, 0u);
    EXPECT_EQ(std::vector<std::uint32_t>(zbuffer.pixels, zbuffer.pixels + 8), std::vector<std::uint32_t>(8, 0));
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
    Layer8bpp low(4, 4), high(4, 4), narrow(2, 4);
    std::fill(low.pixels, low.pixels + 16, 3);
    std::fill(high.pixels, high.pixels + 16, 2);
    high.pixels[5] = 255;
    low.pixels[5] = 254;
    auto table = OffsetsTable::fromImages(low, high, "a.pcx", "b.pcx");
    EXPECT_EQ(table->width, 4);
    for (int i = 0; i < 16; ++i) EXPECT_EQ(table->pixels[i], i == 5 ? 0xFFFEu : 515u) << i;
    EXPECT_EQ(test::errorOf([&] { OffsetsTable::fromImages(low, narrow, "a.pcx", "n.pcx"); }),
              "OffsetsTable : a.pcx and n.pcx differ in size (4x4 and 2x4)");
}

TEST_F(ResourceKindsTest, FileKinds) {
    test::writeFile("keys.txt", "linear 2 1\n0 0\n8 2\n");
    EXPECT_FLOAT_EQ(declare<KeytrackFloat>("k KeytrackFloat keys.txt").sample(1.0f), 4.0f);
    test::writeBytes("blob.bin", {1, 0, 255, 7});
    EXPECT_EQ(declare<Rawdata>("r Rawdata blob.bin").bytes, (std::vector<std::uint8_t>{1, 0, 255, 7}));
    EXPECT_EQ(errorOfDeclaring("r2 Rawdata missing.bin"), "Rawdata : can not open missing.bin");
    test::writeFile("words.txt", "hello world\n");
    auto& text = declare<Text>("t Text words.txt");
    ASSERT_TRUE(text.parser.nextLine());
    EXPECT_STREQ(text.parser.getToken(), "hello");
    EXPECT_EQ(errorOfDeclaring("t2 Text missing.txt"), "TextParser can not open file");
}

}  // namespace
}  // namespace vz
