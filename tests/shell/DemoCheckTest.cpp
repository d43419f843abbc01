// --check reads a whole script tree without playing it and reports every mistake with
// its place, going on after each one.
#include "shell/DemoCheck.hpp"

#include <gtest/gtest.h>

#include "assets/File.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

using test::writeFile;

std::vector<std::string> errorLines(const ScriptCheck& check) {
    std::vector<std::string> lines;
    for (const error& e : check.errors) lines.push_back(errorLine(e));
    return lines;
}

class DemoCheckTest : public ::testing::Test {
protected:
    DemoCheckTest() {
        writeFile("config.txt", "64\n48\n40\n4\n8\n2\nNOSOUND\n");
        writeFile("keys.txt", "linear 2 1.0\n0 0\n1 2\n");
    }
    ~DemoCheckTest() override { File::resetToDisk(); }
    test::ScratchDir dir;
};

TEST_F(DemoCheckTest, ThreeMistakesInTwoScriptsAreAllReported) {
    writeFile("main.txt",
              "add back Layer32bpp missing.pcx\n"    // 1: a picture that is not there
              "add fade KeytrackInt keys.txt\n"      // 2
              "wait 3\n"                             // 3: waits are passed over
              "composite inner.txt\n"                // 4
              "0 10 0 1 0\n"                         // 5
              "fillColour32bpp screen fade\n"        // 6: a misspelt keyword
              "0 10 0 1 0\n"                         // 7: its entry says nothing more
              "copyLayer32bpp screen screen fade\n"  // 8: fine
              "0 10 0 1 0\n");
    writeFile("inner.txt",
              "waitFrame\n"
              "2 3 0 1 0\n");  // 2: an entry with no component before it
    const ScriptCheck check = checkDemo();
    EXPECT_EQ(errorLines(check), (std::vector<std::string>{
                                     "vzplayer: main.txt:1: loadPcx error (missing.pcx: No such file or directory)",
                                     "vzplayer: inner.txt:2: Sequencer : timeline entry without a component",
                                     "vzplayer: main.txt:6: unknow Component",
                                 }));
    EXPECT_EQ(check.files, (std::set<std::string>{"config.txt", "main.txt", "inner.txt", "keys.txt"}));
}

TEST_F(DemoCheckTest, ACleanTreeHasNoErrorsAndNamesItsFiles) {
    writeFile("main.txt", "add fade KeytrackInt keys.txt\ncopyLayer32bpp screen screen fade\n0 1 0 1 0\nendDemo\n");
    const ScriptCheck check = checkDemo();
    EXPECT_TRUE(check.errors.empty());
    EXPECT_EQ(check.files, (std::set<std::string>{"config.txt", "main.txt", "keys.txt"}));
}

}  // namespace
}  // namespace vz
