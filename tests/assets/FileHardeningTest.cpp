// What the file layer refuses before a reader can loop on it: things that are not
// regular files, files too large to read whole, and more open files than the system
// allows; each refusal says why.
#include "assets/File.hpp"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <memory>

#include "support/TestSupport.hpp"

namespace vz {
namespace {

namespace fs = std::filesystem;

TEST(FileHardening, OnlyRegularFilesOpen) {
    test::ScratchDir dir;
    fs::create_directory("folder");
    ::mkfifo("fifo", 0644);
    fs::create_symlink("/dev/zero", "zero");
    test::writeFile("real.txt", "text\n");
    fs::create_symlink("real.txt", "link.txt");
    const std::pair<const char*, const char*> cases[] = {
        {"folder", "not a regular file"},
        {"fifo", "not a regular file"},  // refused without waiting for a writer
        {"zero", "not a regular file"},
        {"missing", "No such file or directory"},
        {"link.txt", ""},  // a link to a regular file is read like the file
    };
    for (const auto& [name, why] : cases) {
        File file;
        EXPECT_EQ(file.open(name), *why == '\0') << name;
        EXPECT_EQ(file.whyNot(), why) << name;
    }
}

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
