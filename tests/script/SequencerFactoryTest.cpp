#include "script/SequencerFactory.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <sstream>

#include "support/TestSupport.hpp"

namespace vz::test {
namespace {

SequencerFactory& fullFactory() {
    static SequencerFactory factory = [] {
        SequencerFactory f;
        f.registerAll();
        return f;
    }();
    return factory;
}

int indexOf(const std::string& keyword) {
    const SequencerFactory& f = fullFactory();
    for (int i = 0; i < f.count(); ++i)
        if (f.keyword(i) == keyword) return i;
    return -1;
}

TEST(SequencerFactory, RegistersEveryKeywordOnceInGroupOrder) {
    const SequencerFactory& f = fullFactory();
    ASSERT_EQ(f.count(), 146);
    EXPECT_EQ(f.keyword(0), "composite");
    EXPECT_EQ(f.keyword(f.count() - 1), "lensflareSpline32bpp");
    // Last keyword of each group followed by the first of the next.
    const std::pair<const char*, const char*> seams[] = {
        {"frameDependentComposite", "blendColor"},         {"alphaLut", "fadeVolume"},
        {"playMp3", "playVideo32bpp"},                     {"spriteRotKeytrack32bpp", "keytrackSpriteNoise"},
        {"keytrackFloatSinus", "PutStringKeytrack32bpp"},  {"fire8bpp", "meshePlayerPainter8bpp"},
        {"sceneMaxStreamRecorder32bpp", "morphingModel"},  {"setFov", "wireframeFlower32bpp"},
    };
    for (const auto& [last, first] : seams) EXPECT_EQ(indexOf(last) + 1, indexOf(first)) << last;

    std::set<std::string> distinct;
    for (int i = 0; i < f.count(); ++i) distinct.insert(f.keyword(i));
    EXPECT_EQ(distinct.size(), 146u);
}

TEST(SequencerFactory, ClassNamesAreCapitalisedKeywordsWithFourExceptions) {
    const SequencerFactory& f = fullFactory();
    const std::set<std::string> exceptions{"crop", "fire8bpp", "hBlurFilter32bpp", "vBlurFilter32bpp"};
    for (int i = 0; i < f.count(); ++i) {
        std::string expected = f.keyword(i);
        expected[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(expected[0])));
        if (!exceptions.count(f.keyword(i))) {
            EXPECT_EQ(f.maker(i).getName(), expected);
        }
    }
    EXPECT_STREQ(f.find("crop")->getName(), "Crop32bpp");
    EXPECT_STREQ(f.find("fire8bpp")->getName(), "HobbinFire8bpp");
    EXPECT_STREQ(f.find("hBlurFilter32bpp")->getName(), "HblurFilter32bpp");
    EXPECT_STREQ(f.find("vBlurFilter32bpp")->getName(), "VblurFilter32bpp");
    EXPECT_EQ(f.find("Tunnel32bpp"), nullptr);
    EXPECT_NE(f.find("tunnel32bpp"), nullptr);
}

TEST(SequencerFactory, ListingHasTheLogLayout) {
    std::ostringstream out;
    fullFactory().writeList(out);
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

TEST(SequencerFactory, ReferencePageMarksBuiltKeywords) {
    std::ostringstream out;
    writeComponentReferenceMarkdown(out);
    const std::string page = out.str();
    EXPECT_NE(page.find("| `composite` | `Composite` | yes | `script(nom de fichier)` |"), std::string::npos);
    EXPECT_NE(page.find("| `keytrackFloatSinus` | `KeytrackFloatSinus` | yes |"), std::string::npos);
    int rows = 0;
    for (std::size_t at = page.find("\n| `"); at != std::string::npos; at = page.find("\n| `", at + 1)) ++rows;
    EXPECT_EQ(rows, 146);
}

TEST(SequencerFactory, NothingMakerTexts) {
    NothingMaker nothing;
    EXPECT_STREQ(nothing.getName(), "Nothing");
    EXPECT_STREQ(nothing.getDescription(), "This Component does nothing");
    EXPECT_STREQ(nothing.getSyntax(), "No parameter");
    EXPECT_EQ(fullFactory().find("Nothing"), nullptr);
}

}  // namespace
}  // namespace vz::test
