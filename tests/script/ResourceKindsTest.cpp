#include "script/ResourceKinds.hpp"

#include "ScriptTestSupport.hpp"
#include "core/Palette.hpp"
#include "core/Zbuffer.hpp"
#include "script/Keytrack.hpp"
#include "script/Material.hpp"
#include "script/OffsetsTable.hpp"
#include "script/Rawdata.hpp"
#include "script/Repository.hpp"
#include "script/Text.hpp"

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
    std::unique_ptr<Material> materialFrom(const std::string& content) {
        test::writeFile("mat.txt", content);
        return Material::load("mat.txt", repository);
    }

    test::ScratchDir dir;
    Repository repository;
    std::vector<std::uint32_t> screenPixels = std::vector<std::uint32_t>(64 * 40);
    int lines = 0;
};

TEST_F(ResourceKindsTest, EmptyLayersOfADeclaredSizeAndColors) {
    auto& back = declare<Layer32bpp>("back Layer32bpp sizeof screen");
    EXPECT_EQ(std::make_pair(back.width, back.height), std::make_pair(64, 40));
    EXPECT_STREQ(back.kindName(), "Layer32bpp");
    auto& bytes = declare<Layer8bpp>("bytes Layer8bpp size 16 8");
    EXPECT_EQ(std::make_pair(bytes.width, bytes.height), std::make_pair(16, 8));
    // "sizeof" takes any layer kind, also one that is itself sized after another.
    EXPECT_EQ(declare<OffsetsTable>("table OffsetsTable sizeof bytes").width, 16);
    // Color integers come as free byte, blue, green, red.
    EXPECT_EQ(declare<Color>("c Color 0 10 20 30").value, 0x001E140Au);
    EXPECT_EQ(declare<Color>("d Color 255 0 0 1").value, 0xFF010000u);
    const std::pair<const char*, const char*> failures[] = {
        {"bad Layer8bpp size 0 5", "Layer8bpp : invalid size 0x5"},
        {"huge OffsetsTable size 100000 2", "OffsetsTable : invalid size 100000x2"},
        {"neg Zbuffer -4 4", "Zbuffer : invalid size -4x4"},
        {"odd Layer32bpp sizeof c", "Repository::aquire failure"},
        {"short Layer32bpp size 4", "Fatal: Parser : there is no tokens lefts in the line"},
    };
    for (const auto& [text, message] : failures) EXPECT_EQ(errorOfDeclaring(text), message);
}

// The stamp's wrap is tested with the component that advances it (updateZbuffer).
TEST_F(ResourceKindsTest, ZbufferStartsClearAndServesAsA32BitLayer) {
    auto& zbuffer = declare<Zbuffer>("z Zbuffer 4 2");
    EXPECT_EQ(zbuffer.stamp, 0u);
    EXPECT_EQ(std::vector<std::uint32_t>(zbuffer.pixels, zbuffer.pixels + 8), std::vector<std::uint32_t>(8, 0));
    EXPECT_EQ(&repository.aquireAs<Layer32bpp>("z"), &zbuffer);
    EXPECT_EQ(test::errorOf([&] { repository.aquireAs<Zbuffer>("screen"); }), "Repository::aquire failure");
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
    EXPECT_EQ(test::errorLineOf([&] { declare("r2 Rawdata missing.bin"); }),
              "vzplayer: Rawdata : can not open file (missing.bin: No such file or directory)");
    test::writeFile("words.txt", "hello world\n");
    auto& text = declare<Text>("t Text words.txt");
    ASSERT_TRUE(text.parser.nextLine());
    EXPECT_STREQ(text.parser.getToken(), "hello");
    EXPECT_EQ(errorOfDeclaring("t2 Text missing.txt"), "TextParser can not open file");
}

TEST_F(ResourceKindsTest, MaterialDefaultsAndTheSpriteFlagThatSurvivesOnlyAfterRendu) {
    auto material = materialFrom("# nothing\n");
    EXPECT_EQ(std::vector<int>({material->rendu, material->zMode, material->id}), std::vector<int>({32, 2, 4}));
    EXPECT_TRUE(material->solid && !material->doubleFace && !material->map32 && !material->palette);
    EXPECT_EQ(material->color, 0x000000FFu);
    EXPECT_EQ(materialFrom("sprite\nrendu add\n")->rendu, 33);
    EXPECT_EQ(materialFrom("rendu add\nsprite\n")->rendu, 289);
}

TEST_F(ResourceKindsTest, MaterialKeysSetTheirFieldsFromSymbols) {
    auto texture = std::make_unique<Layer32bpp>(8, 8);
    Layer32bpp* texturePointer = texture.get();
    repository.add(std::make_unique<Symbol>(std::move(texture)), "tex");
    repository.add(std::make_unique<Symbol>(std::make_unique<Color>(0x00123456)), "tint");
    repository.add(std::make_unique<Symbol>(std::make_unique<Palette>()), "pal");
    test::startLog();
    auto material = materialFrom(
        "map32bpp tex\ncolor tint\npalette pal\nlut tex\ndoubleface true\nsolid false\n"
        "id texture8bpp\nshiny yes\nrendu glenz50\n");
    EXPECT_TRUE(test::containsRun(test::stopLogAndReadLines(), {"ResourceMaterial : unknow key shiny"}));
    EXPECT_TRUE(material->map32 == texturePointer && material->lut == texturePointer && material->palette);
    EXPECT_EQ(material->color, 0x00123456u);
    EXPECT_TRUE(material->doubleFace && !material->solid);
    EXPECT_EQ(material->id, 2);
    EXPECT_EQ(material->rendu, 16);
}

TEST_F(ResourceKindsTest, MaterialMissingOrWrongSymbolsAreFatal) {
    repository.add(std::make_unique<Symbol>(std::make_unique<Color>(1)), "tint");
    test::startLog();
    EXPECT_EQ(test::errorOf([&] { materialFrom("map8bpp nowhere\n"); }), "Repository::aquire failure");
    EXPECT_EQ(test::errorOf([&] { materialFrom("map8bpp tint\n"); }), "Repository::aquire failure");
    auto lines = test::stopLogAndReadLines();
    EXPECT_TRUE(test::containsRun(lines, test::framed("Fatal: nowhere was not found")));
    EXPECT_TRUE(test::containsRun(lines, test::framed("Fatal: tint is not a Layer8bpp")));
}

TEST(PaletteTest, RangesBlendColourBytesAndKeepTheExtraByte) {
    Palette palette;
    palette.colors.fill(0x7F102030);
    palette.blendRangeToColor(2, 3, 0x00FF0040, 0.5f);
    // (255-16)*0.5+16 = 135.5, (0-32)*0.5+32 = 16, (64-48)*0.5+48 = 56: truncated.
    EXPECT_EQ(std::vector<std::uint32_t>(&palette.colors[1], &palette.colors[6]),
              std::vector<std::uint32_t>({0x7F102030, 0x7F871038, 0x7F871038, 0x7F871038, 0x7F102030}));

    Palette target;
    target.colors.fill(0x00FFFFFF);
    palette.blendRangeToPalette(250, 100, target, 2.0f);  // clipped range, saturating factor
    EXPECT_EQ(palette.colors[255], 0x7FFFFFFFu);
    EXPECT_EQ(palette.colors[249], 0x7F102030u);
    palette.blendRangeToColor(-5, 6, 0, 1.0f);
    EXPECT_EQ(palette.colors[0], 0x7F000000u);
    EXPECT_EQ(palette.colors[1], 0x7F102030u);
}

}  // namespace
}  // namespace vz
