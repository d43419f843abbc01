// The keywords, their order, descriptions and syntaxes are pinned by the sample demo's
// whole log, which lists them all; here, what the log does not show.
#include "script/SequencerFactory.hpp"

#include <gtest/gtest.h>

#include <cctype>
#include <map>

namespace vz {
namespace {

TEST(SequencerFactory, ClassNamesAreCapitalisedKeywordsButForFour) {
    SequencerFactory factory;
    factory.registerAll();
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
    EXPECT_EQ(factory.find("Tunnel32bpp"), nullptr);  // keywords are found, class names are not
}

}  // namespace
}  // namespace vz
