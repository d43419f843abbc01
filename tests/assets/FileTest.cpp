#include "assets/File.hpp"

#include <gtest/gtest.h>

#include "script/TextParser.hpp"
#include "shell/error.hpp"
#include "support/TestSupport.hpp"
#include "support/ZipWriter.hpp"

namespace vz {
namespace {

using test::ScratchDir;

// Every test leaves the process in disk mode, whatever happens.
struct ArchiveModeGuard {
    ~ArchiveModeGuard() { File::resetToDisk(); }
};

std::string numbers(int n) {
    std::string s;
    for (int i = 0; i < n; ++i) s += static_cast<char>('a' + i % 26);
    return s;
}

TEST(FileOnDisk, SizeReadSeekAndEnd) {
    ScratchDir dir;
    test::writeFile("data.bin", "0123456789");
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
}

TEST(FileOnDisk, ReadLineSplitsLongLinesAndKeepsCarriageReturns) {
    ScratchDir dir;
    test::writeFile("lines.txt", std::string(300, 'x') + "\nab\r\nlast");
    File file;
    ASSERT_TRUE(file.open("lines.txt"));
    char buf[256];
    EXPECT_EQ(file.readLine(buf, 256), 255);
    EXPECT_EQ(file.readLine(buf, 256), 45);
    EXPECT_EQ(file.readLine(buf, 256), 3);
    EXPECT_STREQ(buf, "ab\r");
    EXPECT_EQ(file.readLine(buf, 256), 4);
    EXPECT_STREQ(buf, "last");
}

TEST(FileInArchive, MembersAreFoundWhateverTheirCase) {
    ScratchDir dir;
    ArchiveModeGuard guard;
    std::string big = numbers(10000);
    test::writeZip("demo.zip", {{"Main.TXT", "wait 1\n"}, {"pics/Big.bin", big}});
    test::writeFile("disk-only.txt", "not in the archive\n");
    File::switchToArchive("demo.zip");

    File file;
    ASSERT_TRUE(file.open("main.txt"));
    EXPECT_EQ(file.size(), 7);
    char line[256];
    EXPECT_EQ(file.readLine(line, 256), 6);
    EXPECT_STREQ(line, "wait 1");
    file.close();

    EXPECT_FALSE(File().open("disk-only.txt"));  // no fall-back to the disk

    File bin;
    ASSERT_TRUE(bin.open("PICS/BIG.BIN"));
    EXPECT_EQ(bin.size(), 10000);
    char buf[8];
    // 8 bytes as 2 items of 4: the archive counts bytes / items.
    EXPECT_EQ(bin.read(buf, 4, 2), 4u);
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

TEST(FileInArchive, SlotsAreReusedAndBoundedAt32) {
    ScratchDir dir;
    ArchiveModeGuard guard;
    test::writeZip("demo.zip", {{"a.txt", "a"}});
    File::switchToArchive("demo.zip");
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
}

TEST(FileInArchive, ScriptsAreParsedFromTheArchive) {
    ScratchDir dir;
    ArchiveModeGuard guard;
    test::writeZip("demo.zip", {{"config.txt", "640\r\n# comment\r\n480\r\n"}});
    File::switchToArchive("demo.zip");
    TextParser parser;
    parser.open("CONFIG.txt");
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(parser.getInt(), 640);
    ASSERT_TRUE(parser.nextLine());
    EXPECT_EQ(parser.getInt(), 480);
    EXPECT_FALSE(parser.nextLine());
}

TEST(FileInArchive, AMissingArchiveFailsEveryOpen) {
    ScratchDir dir;
    ArchiveModeGuard guard;
    File::switchToArchive("nowhere.zip");
    EXPECT_FALSE(File().open("main.txt"));
    std::vector<std::uint8_t> bytes;
    EXPECT_FALSE(readWholeFile("main.txt", bytes));
}

}  // namespace
}  // namespace vz
