#include "script/SequencerFactory.hpp"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <set>
#include <sstream>

namespace vz::test {
namespace {

class SequencerFactoryTest : public ::testing::Test {
protected:
    SequencerFactoryTest() { factory.registerAll(); }

    int indexOf(const std::string& keyword) const {
        for (int i = 0; i < factory.count(); ++i)
            if (factory.keyword(i) == keyword) return i;
        return -1;
    }

    SequencerFactory factory;
};

TEST_F(SequencerFactoryTest, RegistersEveryKeywordOnceInGroupOrder) {
    ASSERT_EQ(factory.count(), 146);
    EXPECT_EQ(factory.keyword(0), "composite");
    EXPECT_EQ(factory.keyword(145), "lensflareSpline32bpp");
    // The last keyword of each group is followed by the first of the next.
    const std::pair<const char*, const char*> seams[] = {
        {"frameDependentComposite", "blendColor"},
        {"alphaLut", "fadeVolume"},
        {"playMp3", "playVideo32bpp"},
        {"spriteRotKeytrack32bpp", "keytrackSpriteNoise"},
        {"keytrackFloatSinus", "PutStringKeytrack32bpp"},
        {"fire8bpp", "meshePlayerPainter8bpp"},
        {"sceneMaxStreamRecorder32bpp", "morphingModel"},
        {"setFov", "wireframeFlower32bpp"},
    };
    for (const auto& [last, first] : seams) EXPECT_EQ(indexOf(last) + 1, indexOf(first)) << last;
    std::set<std::string> distinct;
    for (int i = 0; i < factory.count(); ++i) distinct.insert(factory.keyword(i));
    EXPECT_EQ(distinct.size(), 146u);
}

TEST_F(SequencerFactoryTest, ClassNamesAreCapitalisedKeywordsButForFour) {
    const std::map<std::string, std::string> exceptions{{"crop", "Crop32bpp"},
                                                        {"fire8bpp", "HobbinFire8bpp"},
                                                        {"hBlurFilter32bpp", "HblurFilter32bpp"},
                                                        {"vBlurFilter32bpp", "VblurFilter32bpp"}};
    for (int i = 0; i < factory.count(); ++i) {
        std::string expected = factory.keyword(i);
        expected[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(expected[0])));
        if (exceptions.count(factory.keyword(i))) expected = exceptions.at(factory.keyword(i));
        EXPECT_EQ(factory.maker(i).getName(), expected);
    }
    EXPECT_EQ(factory.find("Tunnel32bpp"), nullptr);
}

TEST_F(SequencerFactoryTest, ListingHasTheLogLayout) {
    std::ostringstream out;
    factory.writeList(out);
    std::istringstream in(out.str());
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    ASSERT_EQ(lines.size(), 4u + 146u * 4u);
    const std::vector<std::string> head{
        "",
        "debug: Sequencer Factory: 146 Components already registered",
        "debug: Sequencer Factory: Components list :",
        "",
        "Component symbol: composite",
        "\tDescription : ce composant est de type composite, il execute un script dans le temps local du composant",
        "\tSyntax : script(nom de fichier)",
        "",
        "Component symbol: frameDependentComposite",
        "\tDescription : un composite qui limite le nombre de fps de l'effet",
        "\tSyntax : script(nom de fichier) fps",
        "",
    };
    EXPECT_EQ(std::vector<std::string>(lines.begin(), lines.begin() + head.size()), head);
    std::ostringstream viaFreeFunction;
    writeComponentList(viaFreeFunction);
    EXPECT_EQ(viaFreeFunction.str(), out.str());
}

}  // namespace
}  // namespace vz::test
