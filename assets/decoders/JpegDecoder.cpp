#include "assets/decoders/JpegDecoder.hpp"

#include <algorithm>
#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>
// After jpeglib.h, which it needs.
#include <jerror.h>

#include "assets/decoders/PictureSize.hpp"

namespace vz {

namespace {

// Fatal library errors jump back to the setjmp of the step that called the library.
// The step functions below keep only plain locals, so the jump skips no destructor.
struct Session {
    jpeg_decompress_struct info{};
    jpeg_error_mgr errors{};
    std::jmp_buf fatal;
    bool created = false;
};

[[noreturn]] void onFatalError(j_common_ptr info) {
    Session* session = static_cast<Session*>(info->client_data);
    std::longjmp(session->fatal, 1);
}

void onMessage(j_common_ptr) {}  // warnings stay quiet

// A file whose data ends early is a failure, like any other data the library cannot
// decode, rather than a picture whose rest the library has filled with grey.
void onEmit(j_common_ptr info, int level) {
    if (level < 0 && info->err->msg_code == JWRN_JPEG_EOF) onFatalError(info);
}

// Upper bound of the library's working memory, so a lying progressive file cannot
// demand more than any picture a layer can hold needs.
constexpr long maxLibraryMemory = 1L << 30;

bool createSession(Session& s) {
    s.info.err = jpeg_std_error(&s.errors);
    s.errors.error_exit = onFatalError;
    s.errors.output_message = onMessage;
    s.errors.emit_message = onEmit;
    s.info.client_data = &s;
    if (setjmp(s.fatal)) return false;
    jpeg_create_decompress(&s.info);
    s.created = true;
    s.info.mem->max_memory_to_use = maxLibraryMemory;
    return true;
}

bool readHeader(Session& s, const std::uint8_t* data, std::size_t size) {
    if (setjmp(s.fatal)) return false;
    jpeg_mem_src(&s.info, data, static_cast<unsigned long>(size));
    return jpeg_read_header(&s.info, TRUE) == JPEG_HEADER_OK;
}

bool readScanlines(Session& s, std::uint8_t* samples, std::size_t rowStride) {
    if (setjmp(s.fatal)) return false;
    jpeg_start_decompress(&s.info);
    while (s.info.output_scanline < s.info.output_height) {
        JSAMPROW row = samples + s.info.output_scanline * rowStride;
        if (jpeg_read_scanlines(&s.info, &row, 1) != 1) return false;
    }
    jpeg_finish_decompress(&s.info);
    return true;
}

// Output colours by the file's channel count: grey and colour files give blue, green,
// red bytes; four-channel files give their four channels (as CMYK: the library converts
// YCCK but offers no four-channel RGB); anything else comes out unconverted.
int chooseOutput(jpeg_decompress_struct& info) {
    switch (info.num_components) {
    case 1:
    case 3: info.out_color_space = JCS_EXT_BGR; return 3;
    case 4: info.out_color_space = JCS_CMYK; return 4;
    default: info.out_color_space = info.jpeg_color_space; return info.num_components;
    }
}

class SessionGuard {
public:
    explicit SessionGuard(Session& s) : s_(s) {}
    ~SessionGuard() {
        if (s_.created) jpeg_destroy_decompress(&s_.info);
    }

private:
    Session& s_;
};

}  // namespace

JpegResult decodeJpeg(std::span<const std::uint8_t> file, JpegPicture& picture) {
    Session session;
    SessionGuard guard(session);
    if (!createSession(session)) return JpegResult::initFailed;
    if (!readHeader(session, file.data(), file.size())) return JpegResult::headerFailed;

    jpeg_decompress_struct& info = session.info;
    if (!pictureSizeAccepted(info.image_width, info.image_height)) return JpegResult::badSize;
    picture.width = static_cast<int>(info.image_width);
    picture.height = static_cast<int>(info.image_height);
    picture.fileChannels = info.num_components;
    picture.sampleChannels = chooseOutput(info);
    picture.rowStride = (static_cast<std::size_t>(picture.width) * picture.sampleChannels + 3) & ~std::size_t{3};
    std::size_t pixels = static_cast<std::size_t>(picture.width) * picture.height;
    picture.samples.assign(std::max(picture.rowStride * picture.height, pixels * 3), 0);
    if (!readScanlines(session, picture.samples.data(), picture.rowStride)) return JpegResult::dataFailed;
    return JpegResult::ok;
}

}  // namespace vz
