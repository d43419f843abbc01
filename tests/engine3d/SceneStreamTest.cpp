#include <gtest/gtest.h>

#include "engine3d/stream/SceneStream.hpp"
#include "engine3d/stream/StreamPlayer.hpp"
#include "engine3d/stream/StreamRecorder.hpp"
#include "support/TestSupport.hpp"

namespace vz {
namespace {

using Bytes = std::vector<std::uint8_t>;

// A stream file put together word by word.
struct StreamBytes {
    Bytes bytes;
    StreamBytes& word(std::uint32_t v) {
        stream::put32(bytes, v);
        return *this;
    }
    StreamBytes& time(float t) { return word(stream::floatBits(t)); }
    StreamBytes& entries(std::initializer_list<std::uint16_t> values) {
        for (std::uint16_t v : values) stream::put16(bytes, v);
        return *this;
    }
    // Magic, the size (patched by done), face counts of objects 0 and 1, the empty frame.
    static StreamBytes header(std::uint32_t faces0, std::uint32_t faces1) {
        StreamBytes s;
        s.word(12321).word(0).word(faces0).word(faces1);
        for (int i = 2; i < 32; ++i) s.word(0);
        return s.word(69).word(12).time(0);
    }
    Bytes done() {
        stream::set32(bytes, 4, static_cast<std::uint32_t>(bytes.size()));
        return bytes;
    }
};

Bytes asBytes(const std::string& text) { return Bytes(text.begin(), text.end()); }

TEST(SceneStreamTest, RecorderWritesTheHeaderTheEmptyFrameAndTheChanges) {
    test::ScratchDir dir;
    test::startLog();
    {
        StreamRecorder recorder("rec.str", {16384});
        EXPECT_EQ(std::filesystem::file_size("rec.str"), 148u);
        // Faces 0 and 16383 inside; the border names face 5, which is not looked at.
        const std::uint32_t ids[4 * 3] = {6, 6, 6, 6, 6, 1, 16384, 6, 6, 6, 6, 6};
        recorder.mark(ids, 4, 3);
        EXPECT_EQ(recorder.visibility(0)[0], stream::visibleBit | stream::everSeenBit);
        EXPECT_EQ(recorder.visibility(0)[5], 0);
        recorder.writeFrame(0.5f);
        recorder.writeFrame(1.0f);
    }
    StreamBytes expected = StreamBytes::header(16384, 0);
    expected.word(69).word(32).time(0.5f).word(16).word(20).word(0).entries({0, 16384, 16383, 32767});
    expected.word(69).word(12).time(1.0f);
    EXPECT_EQ(asBytes(test::readFile("rec.str")), expected.done());
    const std::vector<std::string> lines = test::stopLogAndReadLines();
    const std::vector<std::string> frames = {"Streamer: size of Frame = 32", "Streamer: size of Frame = 12"};
    EXPECT_NE(std::search(lines.begin(), lines.end(), frames.begin(), frames.end()), lines.end());
}

TEST(SceneStreamTest, EncoderKeepsAnEmptyChunkOnlyWhileAFaceStaysWritten) {
    Bytes faces = {stream::visibleBit | stream::secondBit | stream::writtenBit, 0}, out;
    // Seen, second flag and written: nothing to say, but the chunk is kept.
    EXPECT_EQ(StreamRecorder::encode(faces, out), 0);
    EXPECT_EQ(faces[0], stream::writtenBit);
    faces = {0, 0};
    EXPECT_EQ(StreamRecorder::encode(faces, out), -1);
    EXPECT_TRUE(out.empty());
}

TEST(SceneStreamTest, PlayerAppliesSamplesUpToTheFirstAtOrAfterTheTimeAndHoldsTheLast) {
    test::ScratchDir dir;
    StreamBytes s = StreamBytes::header(3, 2);
    s.word(69).word(26).time(1).word(16).word(14).word(0).entries({0});
    s.word(69).word(40).time(2).word(16).word(14).word(0).entries({16385}).word(16).word(14).word(1).entries({1});
    s.word(69).word(26).time(3).word(16).word(14).word(0).entries({0});
    test::writeBytes("play.str", s.done());
    StreamPlayer player("play.str");
    const struct {
        float time;
        std::uint8_t face0, face1, other1;
    } steps[] = {
        {0, 0, 0, 0},     // nothing at 0
        {1.5f, 1, 2, 2},  // the samples at 1 and 2
        {2, 1, 2, 2},     // already in force
        {10, 0, 2, 2},    // the last sample, then held
        {20, 0, 2, 2},
    };
    for (const auto& step : steps) {
        player.advance(step.time);
        EXPECT_EQ(player.visibility(0)[0], step.face0) << step.time;
        EXPECT_EQ(player.visibility(0)[1], step.face1) << step.time;
        EXPECT_EQ(player.visibility(1)[1], step.other1 == 2 ? 1 : 0) << step.time;
    }
    EXPECT_TRUE(player.touched(0));
    EXPECT_FALSE(player.touched(1));
}

TEST(SceneStreamTest, WrongChunkIdsAreLoggedAndRead) {
    test::ScratchDir dir;
    StreamBytes s = StreamBytes::header(1, 0);
    s.word(70).word(26).time(1).word(17).word(14).word(0).entries({0});
    test::writeBytes("ids.str", s.done());
    test::startLog();
    StreamPlayer player("ids.str");
    player.advance(1);
    const std::vector<std::string> lines = test::stopLogAndReadLines();
    EXPECT_NE(std::find(lines.begin(), lines.end(), "chunkIdFrame = 70"), lines.end());
    EXPECT_NE(std::find(lines.begin(), lines.end(), "chunkIdObject = 17"), lines.end());
    EXPECT_EQ(player.visibility(0)[0], 1);
}

TEST(SceneStreamTest, BadFilesAreRefusedAtOpen) {
    test::ScratchDir dir;
    auto withFrame = [](std::initializer_list<std::uint32_t> words) {
        StreamBytes s = StreamBytes::header(2, 0);
        for (std::uint32_t w : words) s.word(w);
        return s.done();
    };
    Bytes wrongMagic = withFrame({});
    wrongMagic[0] = 1;
    Bytes longerThanFile = withFrame({});
    stream::set32(longerThanFile, 4, 400);
    const struct {
        Bytes file;
        std::string log;
    } cases[] = {
        {wrongMagic, "loading of streaming : bad file format"},
        {Bytes(100, 0), "bad.str : the header is cut short"},
        {longerThanFile, "bad.str : its size says 400 bytes, it holds 148"},
        {withFrame({69, 40, 0}), "bad.str : byte 148 : the frame size 40 does not fit"},
        {withFrame({69, 24, 0, 16, 30, 0}), "bad.str : byte 160 : the object chunk size 30 does not fit"},
        {withFrame({69, 24, 0, 16, 12, 32}), "bad.str : byte 160 : object 32 is no object"},
        {withFrame({69, 28, 0, 16, 16, 0, 2}), "bad.str : byte 172 : face 2 of object 0 does not exist"},
    };
    for (const auto& c : cases) {
        test::writeBytes("bad.str", c.file);
        test::startLog();
        EXPECT_EQ(test::errorOf([] { StreamPlayer player("bad.str"); }), "loading of streaming : bad file format");
        const std::vector<std::string> lines = test::stopLogAndReadLines();
        EXPECT_NE(std::find(lines.begin(), lines.end(), c.log), lines.end()) << c.log;
    }
    EXPECT_EQ(test::errorOf([] { StreamPlayer player("none.str"); }), "loading of streaming : file not found");
}

}  // namespace
}  // namespace vz
