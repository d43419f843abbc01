// What may stand in the log's place: the log is written only into a regular file that
// is not read-only, never through a symbolic link, and an existing file keeps its mode.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <functional>

#include "core/error.hpp"
#include "core/logstream.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

namespace fs = std::filesystem;

TEST(LogFile, RefusesWhatIsNotAWritableRegularFileAndLeavesItAsItWas) {
    const struct {
        const char* what;
        std::function<void()> setUp;
        std::string line;
    } cases[] = {
        {"a dangling link", [] { fs::create_symlink("nowhere.txt", logstream::fileName); },
         "a symbolic link, which the player does not follow"},
        {"a read-only file",
         [] {
             test::writeFile(logstream::fileName, "an old log\n");
             fs::permissions(logstream::fileName, fs::perms::owner_read | fs::perms::others_read);
         },
         "the file is read-only"},
        {"a FIFO", [] { ::mkfifo(logstream::fileName, 0644); }, "not a regular file"},
    };
    for (const auto& c : cases) {
        test::ScratchDir dir;
        c.setUp();
        const auto status = fs::symlink_status(logstream::fileName);
        logstream::instance().reset();
        EXPECT_EQ(test::errorLineOf([] { logstream::instance().open(); }),
                  "vzplayer: logstream: could not open file for writing (logfile.txt: " + c.line + ")")
            << c.what;
        EXPECT_FALSE(fs::exists("nowhere.txt")) << c.what;
        EXPECT_EQ(fs::symlink_status(logstream::fileName).permissions(), status.permissions()) << c.what;
        if (c.line == "the file is read-only") {
            EXPECT_EQ(test::readFile(logstream::fileName), "an old log\n");
        }
    }
}

TEST(LogFile, AnExistingLogKeepsItsMode) {
    test::ScratchDir dir;
    test::writeFile(logstream::fileName, "an old log\n");
    fs::permissions(logstream::fileName, fs::perms::owner_read | fs::perms::owner_write);
    test::startLog();
    logout() << "new" << lend;
    EXPECT_EQ(test::stopLogAndReadLines()[2], "new");
    EXPECT_EQ(fs::status(logstream::fileName).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace
}  // namespace vz
