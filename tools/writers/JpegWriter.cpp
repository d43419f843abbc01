#include "tools/writers/JpegWriter.hpp"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <jpeglib.h>

namespace vz::writers {

namespace {
// An exception cannot cross the library's C frames safely, and an encoder failure on
// pictures the caller drew is a bug in the caller: report it and stop.
[[noreturn]] void stopOnError(j_common_ptr info) {
    char text[JMSG_LENGTH_MAX];
    (*info->err->format_message)(info, text);
    std::fprintf(stderr, "JPEG encoder: %s\n", text);
    std::exit(1);
}
}  // namespace

Bytes encodeJpeg(const RgbPicture& picture, int quality, JpegColour colour) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    errors.error_exit = stopOnError;
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &buffer, &size);
    info.image_width = JDIMENSION(picture.width);
    info.image_height = JDIMENSION(picture.height);
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    if (colour == JpegColour::grey) jpeg_set_colorspace(&info, JCS_GRAYSCALE);
    if (colour == JpegColour::fullChroma)
        for (int i = 0; i < info.num_components; ++i)
            info.comp_info[i].h_samp_factor = info.comp_info[i].v_samp_factor = 1;
    info.dct_method = JDCT_ISLOW;
    jpeg_set_quality(&info, quality, TRUE);
    jpeg_start_compress(&info, TRUE);
    std::vector<JSAMPLE> row(size_t(picture.width) * 3);
    while (info.next_scanline < info.image_height) {
        const int y = int(info.next_scanline);
        for (int x = 0; x < picture.width; ++x) {
            const Rgb& c = picture.at(x, y);
            row[size_t(x) * 3] = c.r;
            row[size_t(x) * 3 + 1] = c.g;
            row[size_t(x) * 3 + 2] = c.b;
        }
        JSAMPROW rows[1] = {row.data()};
        jpeg_write_scanlines(&info, rows, 1);
    }
    jpeg_finish_compress(&info);
    Bytes out(buffer, buffer + size);
    jpeg_destroy_compress(&info);
    std::free(buffer);
    return out;
}

}  // namespace vz::writers
