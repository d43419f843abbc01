// Demos a user might download that lie, point at things that are not files, or ask for
// impossible numbers: the player ends with a status and one line on standard error that
// names the file (and line) and what is wrong, and leaves everything outside the demo
// directory as it was.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <map>

#include "support/PlayerRun.hpp"
#include "support/TestSupport.hpp"
#include "support/ZipWriter.hpp"

namespace vz::test {
namespace {

namespace fs = std::filesystem;

const std::string config = "64\n48\n40\n4\n8\n2\nNOSOUND\n";
const std::string archiveConfig = config + "ARCHIVE data.zip\n";

// Every file outside the demo directory with its mode and content.
std::map<std::string, std::string> outside(const fs::path& root) {
    std::map<std::string, std::string> files;
    for (auto it = fs::recursive_directory_iterator(root); it != fs::recursive_directory_iterator(); ++it) {
        if (it->path().filename() == "demo") {
            it.disable_recursion_pending();
            continue;
        }
        const auto status = fs::symlink_status(it->path());
        files[it->path().string()] = std::to_string(static_cast<int>(status.permissions())) + ":" +
                                     (fs::is_regular_file(status) ? readFile(it->path()) : "");
    }
    return files;
}

struct Case {
    const char* what;
    void (*setUp)();   // run inside demo/, after config.txt and main.txt are written
    std::string main;  // main.txt ("" writes none)
    int status;
    std::string standardError;           // "{demo}" stands for the demo directory's path
    std::string demo = ".";              // the DEMO argument, given from inside the demo directory
    std::vector<std::string> options{};  // further options
};

void play(const Case& c) {
    ScratchDir dir;
    fs::create_directory("outside");
    writeFile("outside/precious.txt", "the user's own file\n");
    fs::create_directory("demo");
    fs::current_path("demo");
    writeFile("config.txt", config);
    if (!c.main.empty()) writeFile("main.txt", c.main);
    c.setUp();
    const auto before = outside(dir.path());
    std::vector<std::string> args{"--headless", "--until", "1"};
    args.insert(args.end(), c.options.begin(), c.options.end());
    args.push_back(c.demo);
    RunResult run = runPlayer(args, fs::current_path().string());
    std::string expected = c.standardError.empty() ? "" : c.standardError + "\n";
    if (auto at = expected.find("{demo}"); at != std::string::npos) expected.replace(at, 6, fs::current_path());
    EXPECT_EQ(run.status, c.status) << c.what;
    EXPECT_EQ(run.standardError, expected) << c.what;
    EXPECT_EQ(outside(dir.path()), before) << c.what;
}

void nothing() {}
void configIsADirectory() { fs::remove("config.txt"), fs::create_directory("config.txt"); }
void mainIsAFifo() { ::mkfifo("main.txt", 0644); }
void mainIsZero() { fs::create_symlink("/dev/zero", "main.txt"); }
void partIsADirectory() { fs::create_directory("part"); }
void logLinksOutside() { fs::create_symlink("../outside/precious.txt", "logfile.txt"); }

TEST(HostileDemo, SpecialFilesInPlaceOfDemoFiles) {
    const std::string notRegular = "not a regular file)";
    const Case cases[] = {
        {"config.txt a directory", configIsADirectory, "wait 9\n", 1,
         "vzplayer: TextParser can not open file (config.txt: " + notRegular},
        {"main.txt a FIFO", mainIsAFifo, "", 1, "vzplayer: TextParser can not open file (main.txt: " + notRegular},
        {"main.txt a link to /dev/zero", mainIsZero, "", 1,
         "vzplayer: TextParser can not open file (main.txt: " + notRegular},
        {"a composite script a directory", partIsADirectory, "composite part\n0 9 0 1 0\n", 1,
         "vzplayer: main.txt:1: TextParser can not open file (part: " + notRegular},
        {"a key file /dev/zero", nothing, "add k KeytrackFloat /dev/zero\n", 1,
         "vzplayer: main.txt:1: TextParser can not open file (/dev/zero: " + notRegular},
        {"logfile.txt a link to a file outside", logLinksOutside, "wait 9\n", 1,
         "vzplayer: logstream: could not open file for writing (logfile.txt: a symbolic link, which the player does "
         "not follow)"},
    };
    for (const Case& c : cases) play(c);
}

// ---- Archives whose member main.txt (or pic.pcx) lies ----

void put32(std::string& zip, std::size_t at, std::uint32_t value) {
    for (int i = 0; i < 4; ++i) zip[at + i] = static_cast<char>(value >> (8 * i));
}

// data.zip with config.txt naming it; `patch` damages the member `victim`, given the
// offsets of its local header and of its central directory record.
using Patch = void (*)(std::string& zip, std::size_t local, std::size_t central);

void writeDamagedZip(const std::vector<std::pair<std::string, std::string>>& members, const std::string& victim,
                     Patch patch) {
    writeFile("config.txt", archiveConfig);
    writeZip("data.zip", members);
    std::string zip = readFile("data.zip");
    std::size_t local = 0, central = 0;
    for (std::size_t at = 0; (at = zip.find("PK\x03\x04", at)) != std::string::npos; at += 4)
        if (zip.compare(at + 30, victim.size(), victim) == 0) local = at;
    for (std::size_t at = 0; (at = zip.find("PK\x01\x02", at)) != std::string::npos; at += 4)
        if (zip.compare(at + 46, victim.size(), victim) == 0) central = at;
    patch(zip, local, central);
    writeFile("data.zip", zip);
}

void encrypted(std::string& zip, std::size_t l, std::size_t c) { zip[l + 6] |= 1, zip[c + 8] |= 1; }
void wrongCrc(std::string& zip, std::size_t l, std::size_t c) {
    put32(zip, l + 14, 0x1234), put32(zip, c + 16, 0x1234);
}
void declares4GiB(std::string& zip, std::size_t l, std::size_t c) { put32(zip, l + 22, ~0u), put32(zip, c + 24, ~0u); }
// The first deflate block gets the reserved block type: inflating it fails.
void badBlock(std::string& zip, std::size_t l, std::size_t) {
    zip[l + 30 + static_cast<unsigned char>(zip[l + 26]) + static_cast<unsigned char>(zip[l + 28])] = 0x07;
}

const std::string script = "wait 0.1\nendDemo\n";
void encryptedScript() { writeDamagedZip({{"main.txt", script}}, "main.txt", encrypted); }
void scriptFailingCrc() { writeDamagedZip({{"main.txt", script}}, "main.txt", wrongCrc); }
void scriptNotInflating() { writeDamagedZip({{"main.txt", script}}, "main.txt", badBlock); }
void scriptDeclaring4GiB() { writeDamagedZip({{"main.txt", "wait 0.1\nwait 0.2\n"}}, "main.txt", declares4GiB); }
void pictureDeclaring4GiB() {
    writeDamagedZip({{"main.txt", "add p Layer32bpp pic.pcx\n"}, {"pic.pcx", "x"}}, "pic.pcx", declares4GiB);
}
void damagedArchive() { writeFile("config.txt", archiveConfig), writeFile("data.zip", "PK not a zip"); }
void missingArchive() { writeFile("config.txt", archiveConfig); }
void moreFilesThanSlots() {
    std::string texts;
    for (int i = 0; i < 32; ++i) texts += "add t" + std::to_string(i) + " Text x.txt\n";
    writeFile("config.txt", archiveConfig);
    writeZip("data.zip", {{"main.txt", texts}, {"x.txt", "words\n"}});
}
void zipWithoutConfig() { writeZip("show.zip", {{"main.txt", "wait 9\n"}}); }

TEST(HostileDemo, LyingArchives) {
    const std::string cannotOpen = "vzplayer: TextParser can not open file (";
    const Case cases[] = {
        {"an encrypted script", encryptedScript, "", 1,
         cannotOpen + "main.txt: the member main.txt of the archive data.zip is encrypted)"},
        {"a script failing its CRC", scriptFailingCrc, "", 1,
         "vzplayer: main.txt:2: File : main.txt in data.zip : the data fails its CRC check"},
        {"a script that cannot be inflated", scriptNotInflating, "", 1,
         "vzplayer: main.txt:1: File : main.txt in data.zip : the data is damaged (error -3)"},
        {"a script declaring 4 GiB", scriptDeclaring4GiB, "", 1,
         "vzplayer: main.txt:3: File : main.txt in data.zip : the member holds fewer bytes than it declares"},
        {"a picture declaring 4 GiB", pictureDeclaring4GiB, "", 1,
         "vzplayer: main.txt:1: loadPcx error (pic.pcx: it declares 4294967295 bytes, more than the 257 MiB a file "
         "read whole may hold)"},
        {"a damaged archive", damagedArchive, "", 1,
         cannotOpen + "main.txt: the archive data.zip is not a readable zip archive)"},
        {"a missing archive", missingArchive, "", 1,
         cannotOpen + "main.txt: the archive data.zip cannot be opened: No such file or directory)"},
        {"more open files than archive slots", moreFilesThanSlots, "", 1,
         "vzplayer: main.txt:32: TextParser can not open file (x.txt: more than 32 files are open in the archive "
         "data.zip)"},
        {"a zipped demo without config.txt", zipWithoutConfig, "", 1,
         cannotOpen + "config.txt: the archive {demo}/show.zip has no member config.txt)", "show.zip"},
    };
    for (const Case& c : cases) play(c);
}

// ---- Numbers, and files named but missing ----

void bandOverflows() { writeFile("config.txt", "64\n48\n40\n2147483600\n8\n2\n"); }
void emptyMusic() { writeFile("config.txt", "64\n48\n40\n4\n8\n2\n"), writeFile("empty.mp3", ""); }
void countersWithoutFont() { writeFile("config.txt", config + "COUNTERS\n"); }
void onePicture() { fs::copy_file(fs::path(VZ_SOURCE_DIR) / "demos/sample/ball.pcx", "a.pcx"); }

TEST(HostileDemo, NumbersThatCannotBeSizesTimesOrCounts) {
    const Case cases[] = {
        {"a top offset that overflows 32 bits", bandOverflows, "wait 9\n", 1,
         "vzplayer: config.txt:4: the window band (height 40 at row 2147483600) does not fit in the hardware height "
         "48"},
        {"a start time that is not a number", nothing, "playMp3 m.mp3 nan 0\n0 -1 0 1 0\n", 1,
         "vzplayer: main.txt:1: playMp3 : startTime nan is not within 0 to 100000"},
        {"an entry time beyond a float", nothing, "playModule m.mod 0 0\n1e999 1 0 1 0\n", 1,
         "vzplayer: main.txt:2: Sequencer : begin inf is not a finite time"},
        {"a layer beyond the memory budget",
         nothing,
         "add big Layer32bpp size 1024 1024\n",
         1,
         "vzplayer: main.txt:1: Layer32bpp : 1024x1024 needs 4 MiB, beyond the memory budget of 2 MiB (581 KiB in "
         "use; see --memory-limit)",
         ".",
         {"--memory-limit", "2"}},
        {"an empty music file", emptyMusic, "playMp3 empty.mp3 0 0\n0 -1 0 1 0\n", 0,
         "vzplayer: cannot play music file empty.mp3: not an MP3 stream (the show runs on the timer)"},
    };
    for (const Case& c : cases) play(c);
}

TEST(HostileDemo, MissingFilesAreNamed) {
    const Case cases[] = {
        {"the counters' font", countersWithoutFont, "wait 9\n", 1,
         "vzplayer: loadPcx error (police.pcx: No such file or directory)"},
        {"the second picture of an offsets table", onePicture, "add t OffsetsTable a.pcx b.pcx\n", 1,
         "vzplayer: main.txt:1: loadPcx error (b.pcx: No such file or directory)"},
        {"a symbol", nothing, "copyLayer32bpp screen nope constInt 32\n", 1,
         "vzplayer: main.txt:1: Repository::aquire failure (no symbol nope (a Layer32bpp was wanted))"},
    };
    for (const Case& c : cases) play(c);
}

}  // namespace
}  // namespace vz::test
