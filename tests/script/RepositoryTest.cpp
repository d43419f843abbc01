#include "script/Repository.hpp"

#include <functional>

#include "ScriptTestSupport.hpp"
#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "script/Keytrack.hpp"

namespace vz {
namespace {

class RepositoryTest : public ::testing::Test {
protected:
    RepositoryTest() { repository.clear(); }
    ~RepositoryTest() override { repository.clear(); }

    void addLayer(const std::string& name, int w = 4, int h = 2) {
        repository.add(std::make_unique<Symbol>(std::make_unique<Layer32bpp>(w, h)), name);
    }
    std::vector<std::string> names() {
        std::vector<std::string> found;
        for (int i = 0; i < repository.count(); ++i) found.push_back(repository.at(i)->name());
        return found;
    }

    test::ScratchDir dir;
    Repository repository;
};

TEST_F(RepositoryTest, InlineConstantsAreAnonymousSymbols) {
    test::startLog();
    test::ParsedLine line(
        "constColor 255 128 0 constFloat 1.0 constFloat 1.0 constInt -7 constVector2 1 2 "
        "constVector3 1 2 3 constSprite 1 2 3 4");
    EXPECT_EQ(Repository::dataAs<Color>(*repository.aquire(line.parser)).value, 0x00FF8000u);
    Symbol* first = repository.aquire(line.parser);
    Symbol* second = repository.aquire(line.parser);
    EXPECT_NE(first, second);
    EXPECT_FLOAT_EQ(dynamic_cast<KeytrackFloat&>(*second->getData()).sample(123.0f), 1.0f);
    auto& integer = Repository::dataAs<KeytrackInt>(*repository.aquire(line.parser));
    EXPECT_EQ(integer.sample(5.0f), -7);
    EXPECT_FLOAT_EQ(Repository::dataAs<KeytrackVector2>(*repository.aquire(line.parser)).sample(1.0f).y, 2.0f);
    EXPECT_FLOAT_EQ(Repository::dataAs<KeytrackVector3>(*repository.aquire(line.parser)).sample(1.0f).z, 3.0f);
    EXPECT_FLOAT_EQ(Repository::dataAs<KeytrackSprite>(*repository.aquire(line.parser)).sample(1.0f).scaleY, 4.0f);
    EXPECT_EQ(names(), std::vector<std::string>(7, "dummySymbol"));
    for (const auto& text : test::stopLogAndReadLines()) EXPECT_EQ(text.find("Repository"), std::string::npos);
}

TEST_F(RepositoryTest, DuplicatesAreKeptByAddAndIgnoredByLoad) {
    addLayer("screen", 32, 20);
    test::startLog();
    test::ParsedLine declaration("back Layer32bpp sizeof screen", "a.txt");
    repository.load(declaration.parser);
    test::ParsedLine repeated("back Color 1 2 3 4", "b.txt");
    repository.load(repeated.parser);
    addLayer("a", 4, 2);
    addLayer("a", 8, 8);
    auto lines = test::stopLogAndReadLines();
    EXPECT_TRUE(
        test::containsRun(lines, {"Repository::add a", dashLine, "Repository::add : a already in the repository",
                                  dashLine, "Repository::add a"}));
    EXPECT_EQ(repository.aquireAs<Layer>("a").width, 4);  // the older one is found
    EXPECT_TRUE(test::containsRun(lines, {"1 - Key [back] - Id [Layer32bpp]"}));
    EXPECT_TRUE(test::containsRun(lines, {"Repository::loading, symbol already in the repository : back"}));
    EXPECT_EQ(std::string(repeated.parser.getToken()), "Color");  // nothing more was read
    EXPECT_EQ(names(), (std::vector<std::string>{"screen", "back", "a", "a"}));
    EXPECT_STREQ(repository.at(1)->getData()->kindName(), "Layer32bpp");
}

TEST_F(RepositoryTest, SubMovesTheLastSymbolIntoTheFreedPlace) {
    for (const char* name : {"a", "b", "c"}) addLayer(name);
    test::startLog();
    repository.sub("a");
    repository.sub("zz");
    auto lines = test::stopLogAndReadLines();
    EXPECT_EQ(names(), (std::vector<std::string>{"c", "b"}));
    EXPECT_TRUE(test::containsRun(lines, {"Repository::sub a"}));
    EXPECT_TRUE(test::containsRun(lines, test::framed("unload of an unknow symbol : zz")));
}

TEST_F(RepositoryTest, MissingNamesUnknownKindsAndWrongKindsAreFatal) {
    addLayer("screen");
    test::startLog();
    test::ParsedLine name("other");
    test::ParsedLine declaration("x Bitmap file.pcx", "d.txt");
    for (const std::function<void()>& missing :
         std::vector<std::function<void()>>{[&] { repository.aquire("nope"); }, [&] { repository.aquire(name.parser); },
                                            [&] { repository.aquireAs<KeytrackFloat>("screen"); }})
        EXPECT_EQ(test::errorOf(missing), "Repository::aquire failure");
    EXPECT_EQ(test::errorOf([&] { repository.load(declaration.parser); }), "unknow ResourceType");
    auto lines = test::stopLogAndReadLines();
    for (const char* fatal :
         {"Fatal: nope was not found", "Fatal: other was not found", "Fatal: screen is not a KeytrackFloat"})
        EXPECT_TRUE(test::containsRun(lines, test::framed(fatal))) << fatal;
    EXPECT_TRUE(test::containsRun(lines, {"1 - Key [x] - Id [Bitmap]", dashLine, "unknow ResourceType : Bitmap"}));
    EXPECT_EQ(repository.count(), 1);
}

TEST_F(RepositoryTest, StoreHoldsAtMost256Symbols) {
    for (int i = 0; i < Repository::capacity; ++i) addLayer(std::to_string(i), 1, 1);
    const std::string full = "Repository : more than 256 symbols";
    EXPECT_EQ(test::errorOf([&] { addLayer("more", 1, 1); }), full);
    test::ParsedLine constant("constInt 3");
    EXPECT_EQ(test::errorOf([&] { repository.aquire(constant.parser); }), full);
    test::ParsedLine declaration("z Zbuffer 4 4", "d.txt");
    EXPECT_EQ(test::errorOf([&] { repository.load(declaration.parser); }), full);
    EXPECT_EQ(repository.count(), Repository::capacity);
}

}  // namespace
}  // namespace vz
