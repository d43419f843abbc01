#include "script/Material.hpp"

#include <gtest/gtest.h>

#include "ScriptTestSupport.hpp"
#include "script/Layer.hpp"
#include "script/Palette.hpp"
#include "script/Repository.hpp"

namespace vz {
namespace {

class MaterialTest : public ::testing::Test {
protected:
    MaterialTest() { repository.clear(); }
    ~MaterialTest() override { repository.clear(); }

    std::unique_ptr<Material> materialFrom(const std::string& content) {
        test::writeFile("mat.txt", content);
        return Material::load("mat.txt");
    }

    test::ScratchDir dir;
    Repository& repository = Repository::instance();
};

TEST_F(MaterialTest, DefaultsAndTheSpriteFlagThatSurvivesOnlyAfterRendu) {
    auto material = materialFrom("# nothing\n");
    EXPECT_EQ(std::vector<int>({material->rendu, material->reserved, material->id}), std::vector<int>({32, 2, 4}));
    EXPECT_TRUE(material->solid && !material->doubleFace && !material->map32 && !material->palette);
    EXPECT_EQ(material->color, 0x000000FFu);
    EXPECT_EQ(materialFrom("sprite\nrendu add\n")->rendu, 33);
    EXPECT_EQ(materialFrom("rendu add\nsprite\n")->rendu, 289);
}

TEST_F(MaterialTest, KeysSetTheirFieldsFromSymbols) {
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

TEST_F(MaterialTest, MissingOrWrongSymbolsAreFatal) {
    repository.add(std::make_unique<Symbol>(std::make_unique<Color>(1)), "tint");
    test::startLog();
    EXPECT_EQ(test::errorOf([&] { materialFrom("map8bpp nowhere\n"); }), "Repository::aquire failure");
    EXPECT_EQ(test::errorOf([&] { materialFrom("map8bpp tint\n"); }), "Repository::aquire failure");
    auto lines = test::stopLogAndReadLines();
    EXPECT_TRUE(test::containsRun(lines, test::framed("Fatal: nowhere was not found")));
    EXPECT_TRUE(test::containsRun(lines, test::framed("Fatal: tint is not a Layer8bpp")));
}

}  // namespace
}  // namespace vz
