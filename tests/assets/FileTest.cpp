#include "assets/File.hpp"

#include <gtest/gtest.h>

#include "support/TestSupport.hpp"
#include "support/ZipWriter.hpp"

namespace vz::test {
namespace {

TEST(FileOnDisk, ReadSeekEndAndLines) {
    ScratchDir dir;
    writeFile("data.bin", "0123456789");
    File file;
    ASSERT_TRUE(file.open("data.bin"));
    EXPECT_EQ(file.size(), 10);
    EXPECT_EQ(file.tell(), 0);  // size() leaves the position where it was
    char buf[4] = {};
    EXPECT_EQ(file.read(buf, 1, 4), 4u);
    EXPECT_EQ(std::string(buf, 4), "0123");
    file.seek(-2, 1);
    EXPECT_EQ(file.read(buf, 2, 1), 1u);  // whole items on disk
    EXPECT_EQ(std::string(buf, 2), "23");
    file.seek(8, 0);
    EXPECT_FALSE(file.endReached());
    EXPECT_EQ(file.read(buf, 1, 4), 2u);
    EXPECT_TRUE(file.endReached());
    EXPECT_FALSE(File().open("missing.bin"));

    // Long lines are split at 255 characters; carriage returns are kept.
    writeFile("lines.txt", std::string(300, 'x') + "\nab\r\nlast");
    File lines;
    ASSERT_TRUE(lines.open("lines.txt"));
    char line[256];
    for (int length : {255, 45, 3}) EXPECT_EQ(lines.readLine(line, 256), length);
    EXPECT_STREQ(line, "ab\r");
    EXPECT_EQ(lines.readLine(line, 256), 4);
    EXPECT_STREQ(line, "last");
}

TEST(FileInArchive, MembersAreFoundWhateverTheirCase) {
    ScratchDir dir;
    std::string big;
    for (int i = 0; i < 10000; ++i) big += static_cast<char>('a' + i % 26);
    writeZip("demo.zip", {{"Main.TXT", "wait 1\n"}, {"pics/Big.bin", big}});
    writeFile("disk-only.txt", "not in the archive\n");
    ArchiveMode archive("demo.zip");

    File file;
    ASSERT_TRUE(file.open("main.txt"));
    EXPECT_EQ(file.size(), 7);
    char line[256];
    EXPECT_EQ(file.readLine(line, 256), 6);
    EXPECT_STREQ(line, "wait 1");
    EXPECT_FALSE(File().open("disk-only.txt"));  // no fall-back to the disk

    File bin;
    ASSERT_TRUE(bin.open("PICS/BIG.BIN"));
    EXPECT_EQ(bin.size(), 10000);
    char buf[8];
    EXPECT_EQ(bin.read(buf, 4, 2), 4u);  // 8 bytes as 2 items of 4: the archive counts bytes / items
    EXPECT_EQ(std::string(buf, 8), big.substr(0, 8));
    bin.seek(5000, 0);  // forward by reading
    EXPECT_EQ(bin.read(buf, 1, 8), 1u);
    EXPECT_EQ(std::string(buf, 8), big.substr(5000, 8));
    bin.seek(-4000, 1);  // backward by reopening the entry
    EXPECT_EQ(bin.tell(), 1008);
    bin.read(buf, 1, 8);
    EXPECT_EQ(std::string(buf, 8), big.substr(1008, 8));
    bin.seek(9996, 0);
    EXPECT_EQ(bin.read(buf, 1, 8), 0u);  // short: 4 bytes / 8 items
    EXPECT_TRUE(bin.endReached());
}

TEST(FileInArchive, SlotsAreBoundedAt32AndAMissingArchiveOpensNothing) {
    ScratchDir dir;
    writeZip("demo.zip", {{"a.txt", "a"}});
    ArchiveMode archive("demo.zip");
    std::vector<std::unique_ptr<File>> open;
    for (int i = 0; i < File::slotCount; ++i) {
        open.push_back(std::make_unique<File>());
        ASSERT_TRUE(open.back()->open("a.txt")) << i;
    }
    EXPECT_FALSE(File().open("a.txt"));  // a 33rd file is refused, not written past the table
    open.pop_back();
    EXPECT_TRUE(File().open("a.txt"));
    EXPECT_FALSE(File().open("b.txt"));  // a failed open gives its slot back
    open.clear();
    for (int i = 0; i < File::slotCount; ++i) EXPECT_TRUE(File().open("a.txt"));

    File::switchToArchive("nowhere.zip");  // a missing archive fails every open
    EXPECT_FALSE(File().open("a.txt"));
    std::vector<std::uint8_t> bytes;
    EXPECT_FALSE(readWholeFile("a.txt", bytes));
}

}  // namespace
}  // namespace vz::test
