// What the file layer refuses, saying why: files too large to read whole, and more open
// files than the system allows (not a missing file). Files that are not regular files
// are refused in tests/e2e/HostileDemoTest.cpp.
#include "assets/File.hpp"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "support/TestSupport.hpp"

namespace vz {
namespace {

namespace fs = std::filesystem;

TEST(FileHardening, FilesTooLargeToReadWholeAreRefusedUnread) {
    test::ScratchDir dir;
    test::writeFile("huge.bin", "");
    fs::resize_file("huge.bin", File::wholeFileLimit + 1);  // sparse: nothing is written
    std::vector<std::uint8_t> bytes;
    std::string why;
    EXPECT_FALSE(readWholeFile("huge.bin", bytes, why));
    EXPECT_EQ(why, "it declares 269484033 bytes, more than the 257 MiB a file read whole may hold");
    EXPECT_TRUE(bytes.empty());
}

TEST(FileHardening, RunningOutOfDescriptorsIsNotAMissingFile) {
    test::ScratchDir dir;
    test::writeFile("a.txt", "a");
    rlimit saved{};
    ::getrlimit(RLIMIT_NOFILE, &saved);
    rlimit low = saved;
    low.rlim_cur = 64;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &low), 0);
    std::vector<std::unique_ptr<File>> open;
    std::string why;
    for (int i = 0; i < 64 && why.empty(); ++i) {
        open.push_back(std::make_unique<File>());
        if (!open.back()->open("a.txt")) why = open.back()->whyNot();
    }
    open.clear();
    ::setrlimit(RLIMIT_NOFILE, &saved);
    EXPECT_EQ(why, "Too many open files");
}

}  // namespace
}  // namespace vz
