// MP3 streams through libmpg123, decoded from the file's bytes held in memory.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <mutex>

#include <mpg123.h>

#include "shell/sound/MusicDecoder.hpp"
#include "shell/sound/SampleRate.hpp"

namespace vz {

namespace {

void initialiseLibraryOnce() {
    static std::once_flag once;
    std::call_once(once, [] { mpg123_init(); });
}

class StreamDecoder : public MusicDecoder {
public:
    explicit StreamDecoder(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}
    ~StreamDecoder() override {
        if (handle_) {
            mpg123_close(handle_);
            mpg123_delete(handle_);
        }
    }

    bool open(int startMs, std::string& why) {
        initialiseLibraryOnce();
        int err = MPG123_OK;
        handle_ = mpg123_new(nullptr, &err);
        if (!handle_) return fail(mpg123_plain_strerror(err), why);
        // Whatever the file's rate and channels, the decoder hands out the player's format.
        mpg123_param(handle_, MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_FORCE_STEREO, 0);
        // Whole frames are decoded, the encoder's delay and padding included. The gapless
        // mode works in proportion to the frame count an Info frame declares, which a file
        // of a few kilobytes can set to four billion: half a minute before the first sample.
        mpg123_param(handle_, MPG123_REMOVE_FLAGS, MPG123_GAPLESS, 0);
        mpg123_format_none(handle_);
        mpg123_format(handle_, sampleRate, MPG123_STEREO, MPG123_ENC_SIGNED_16);
        if (mpg123_replace_reader_handle(handle_, &readBytes, &seekBytes, nullptr) != MPG123_OK ||
            mpg123_open_handle(handle_, this) != MPG123_OK)
            return fail(mpg123_strerror(handle_), why);
        long rate = 0;
        int channels = 0, encoding = 0;
        if (mpg123_getformat(handle_, &rate, &channels, &encoding) != MPG123_OK) return fail("not an MP3 stream", why);
        // A full scan makes seeking exact (the bytes are in memory, so it is cheap).
        mpg123_scan(handle_);
        if (startMs > 0) {
            off_t target = static_cast<off_t>(startMs) * sampleRate / 1000;
            startFrame_ = target;
            if (mpg123_seek(handle_, target, SEEK_SET) < 0) finished_ = true;  // past the end
        }
        return true;
    }

    std::size_t render(std::int16_t* out, std::size_t frames) override {
        std::size_t done = 0;
        while (done < frames && !finished_) {
            std::size_t got = 0;
            int result = mpg123_read(handle_, out + 2 * done, (frames - done) * 4, &got);
            done += got / 4;
            if (result == MPG123_DONE || (result != MPG123_OK && result != MPG123_NEW_FORMAT && got == 0))
                finished_ = true;
        }
        return done;
    }

    void seek(double seconds) override {
        const auto target = static_cast<off_t>(startFrame_ + std::llround(std::max(seconds, 0.0) * sampleRate));
        finished_ = mpg123_seek(handle_, target, SEEK_SET) < 0;  // past the end
    }

private:
    static bool fail(const char* reason, std::string& why) {
        why = reason ? reason : "unknown decoder error";
        return false;
    }

    static mpg123_ssize_t readBytes(void* self, void* buffer, size_t count) {
        auto& s = *static_cast<StreamDecoder*>(self);
        std::size_t left = s.bytes_.size() - s.position_;
        std::size_t n = count < left ? count : left;
        if (n == 0) return 0;  // an empty file has no data to copy from
        std::memcpy(buffer, s.bytes_.data() + s.position_, n);
        s.position_ += n;
        return static_cast<mpg123_ssize_t>(n);
    }

    static off_t seekBytes(void* self, off_t offset, int whence) {
        auto& s = *static_cast<StreamDecoder*>(self);
        off_t base = whence == SEEK_SET   ? 0
                     : whence == SEEK_CUR ? static_cast<off_t>(s.position_)
                                          : static_cast<off_t>(s.bytes_.size());
        off_t target = base + offset;
        if (target < 0 || target > static_cast<off_t>(s.bytes_.size())) return -1;
        s.position_ = static_cast<std::size_t>(target);
        return target;
    }

    std::vector<std::uint8_t> bytes_;
    std::size_t position_ = 0;
    mpg123_handle* handle_ = nullptr;
    off_t startFrame_ = 0;  // the sample frame it was opened to start at
    bool finished_ = false;
};

}  // namespace

std::unique_ptr<MusicDecoder> openStream(std::vector<std::uint8_t> bytes, int startMs, std::string& why) {
    auto stream = std::make_unique<StreamDecoder>(std::move(bytes));
    if (!stream->open(startMs, why)) return nullptr;
    return stream;
}

}  // namespace vz
