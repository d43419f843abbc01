// Picture files to layers and palettes. The file is read whole through File (disk or
// archive), the decoder chosen by the extension works on the bytes, and this file turns
// the result into the object asked for and reports every failure.
#include "assets/ImageLoader.hpp"

#include <algorithm>
#include <array>
#include <cstring>

#include "assets/File.hpp"
#include "assets/PictureConversions.hpp"
#include "assets/decoders/BmpDecoder.hpp"
#include "assets/decoders/BmpReport.hpp"
#include "assets/decoders/GifDecoder.hpp"
#include "assets/decoders/JpegDecoder.hpp"
#include "assets/decoders/PcxDecoder.hpp"
#include "assets/decoders/PictureSize.hpp"
#include "core/Layer.hpp"
#include "core/Palette.hpp"
#include "core/error.hpp"
#include "core/logstream.hpp"

namespace vz::ImageLoader {

namespace {

enum class Format { pcx, gif, bmp, jpg, unknown };

// The extension is everything after the first dot, compared exactly: "LOGO.PCX" and
// "scene.v2.pcx" have no known extension.
Format formatOf(const std::string& fileName) {
    static constexpr std::array<const char*, 4> extensions = {"pcx", "gif", "bmp", "jpg"};
    std::size_t dot = fileName.find('.');
    if (dot == std::string::npos) return Format::unknown;
    const char* extension = fileName.c_str() + dot + 1;
    for (std::size_t i = 0; i < extensions.size(); ++i)
        if (std::strcmp(extension, extensions[i]) == 0) return static_cast<Format>(i);
    return Format::unknown;
}

// A decoder failure: the log names the decoder and the file between dash lines, the
// exception carries the short text alone. What is wrong, and with which file, goes
// beside it for standard error.
struct FailureTexts {
    const char* log;
    const char* exception;
    const char* refusal;  // the reason when the decoder refuses the file as not its own
};

constexpr FailureTexts pcxLayerFailure{"loadPcx error, the file was : ", "loadPcx error",
                                       "not an 8-bit run-length PCX picture"};
constexpr FailureTexts pcxPaletteFailure{"loadPalettePcx error, the file was : ", "loadPalettePcx error",
                                         "not an 8-bit run-length PCX picture"};
constexpr FailureTexts bmpFailure{"loadBmp error, the file was : ", "loadBmp error", "not a BMP picture"};

struct GifFailureTexts {
    FailureTexts sizeQuery;
    FailureTexts read;
};

constexpr GifFailureTexts gifLayerFailure{
    {"loadGif error in get_size, the file was : ", "loadGif error", "not a GIF picture"},
    {"loadGif error in read_gif, the file was : ", "loadGif error", "not a GIF picture this player reads"}};
constexpr GifFailureTexts gifPaletteFailure{
    {"loadPaletteGif error in get_size, the file was : ", "loadPaletteGif error", "not a GIF picture"},
    {"loadGif error in read_gif, the file was : ", "loadPaletteGif error", "not a GIF picture this player reads"}};

[[noreturn]] void fail(const FailureTexts& texts, const std::string& fileName, const char* reason = nullptr) {
    fatal(texts.log + fileName, texts.exception, fileName + ": " + (reason ? reason : texts.refusal));
}

[[noreturn]] void fail(const FailureTexts& texts, const std::string& fileName, const std::string& reason) {
    fail(texts, fileName, reason.c_str());
}

// The detail of a name an entry point does not serve.
std::string extensionDetail(const std::string& fileName, const char* served) {
    return fileName + ": the text after the first dot is not one of " + served;
}

// Unknown extension: the log text is followed by the file name; the exception has the
// text without its trailing " :".
[[noreturn]] void failUnknownExtension(const char* entryPoint, const std::string& fileName, const char* served) {
    const std::string text = std::string("ImageLoader::") + entryPoint + " : unknow file extention";
    fatal(text + " :" + fileName, text, extensionDetail(fileName, served));
}

// ---- PCX ----

IndexedPicture loadPcx(const std::string& fileName, const FailureTexts& texts) {
    std::vector<std::uint8_t> bytes;
    std::string why;
    if (!readWholeFile(fileName, bytes, why)) fail(texts, fileName, why);
    IndexedPicture picture;
    DecodeStatus status = decodePcx(bytes, picture);
    if (status != DecodeStatus::ok) fail(texts, fileName, damageReason(status));
    return picture;
}

// ---- GIF: the buffer is sized by the logical screen, the image descriptor gives the
// pixels written into it. ----

struct GifFile {
    std::vector<std::uint8_t> bytes;
    GifScreen screen;
};

GifFile openGif(const std::string& fileName, const GifFailureTexts& texts) {
    GifFile gif;
    std::string why;
    if (!readWholeFile(fileName, gif.bytes, why)) fail(texts.sizeQuery, fileName, why);
    if (queryGifSize(gif.bytes, gif.screen) != GifSizeResult::ok) fail(texts.sizeQuery, fileName);
    if (!pictureSizeAccepted(gif.screen.width, gif.screen.height))
        fail(texts.sizeQuery, fileName, damageReason(DecodeStatus::badSize));
    return gif;
}

std::size_t screenPixels(const GifFile& gif) {
    return static_cast<std::size_t>(gif.screen.width) * static_cast<std::size_t>(gif.screen.height);
}

// Decodes into destination (screen-sized); returns the image's palette.
Palette256 decodeGifInto(const GifFile& gif, std::uint8_t* destination, const std::string& fileName,
                         const GifFailureTexts& texts) {
    std::fill(destination, destination + screenPixels(gif), std::uint8_t{0});
    GifImage image;
    GifResult result = decodeGif(gif.bytes, destination, screenPixels(gif), image);
    if (result != GifResult::ok) fail(texts.read, fileName, gifDamageReason(result));
    return image.palette;
}

// ---- BMP ----

BmpPicture loadBmp(const std::string& fileName) {
    std::vector<std::uint8_t> bytes;
    std::string why;
    if (!readWholeFile(fileName, bytes, why)) fail(bmpFailure, fileName, why);
    BmpHeader header;
    DecodeStatus status = readBmpHeader(bytes, header);
    if (status == DecodeStatus::rejected) printBmpUnsupportedType(fileName);
    if (status != DecodeStatus::ok) fail(bmpFailure, fileName, damageReason(status));
    printBmpHeaderReport(header, quietReportLevel);
    if (!bmpBitCountSupported(header)) {
        printBmpUnsupportedBitCount();
        fail(bmpFailure, fileName, "bits per pixel other than 1, 4, 8 or 24");
    }
    BmpPicture picture;
    status = decodeBmpPixels(bytes, header, picture);
    if (status != DecodeStatus::ok) fail(bmpFailure, fileName, damageReason(status));
    return picture;
}

// ---- JPEG ----

// Consecutive 3-byte groups with no regard to the row padding: widths whose rows are
// not a multiple of 4 bytes come out sheared, as they always have. Freeing the
// library's state cannot fail here, so that failure has no message to give.
std::unique_ptr<Layer32bpp> layerFromJpeg(const JpegPicture& picture) {
    auto layer = std::make_unique<Layer32bpp>(picture.width, picture.height);
    pixelsFromByteTriples(picture.samples.data(), static_cast<std::size_t>(layer->pixelCount()), layer->pixels);
    return layer;
}

std::unique_ptr<Layer32bpp> loadJpg(const std::string& fileName) {
    std::vector<std::uint8_t> bytes;
    std::string why;
    // A file that cannot be read has no header to read: the header failure reports it.
    if (!readWholeFile(fileName, bytes, why)) bytes.clear();
    JpegPicture picture;
    const JpegResult result = decodeJpeg(bytes, picture);
    if (result == JpegResult::initFailed) {
        logout() << "Cannot initialize Intel JPEG library\n" << lend;
        return nullptr;
    }
    if (result == JpegResult::ok) return layerFromJpeg(picture);
    const bool header = result != JpegResult::dataFailed;
    logout() << (header ? "Cannot read JPEG file header from " : "Cannot read image data from ") << fileName << lend;
    if (why.empty())
        why = result == JpegResult::badSize      ? damageReason(DecodeStatus::badSize)
              : result == JpegResult::dataFailed ? "the image data is damaged or ends early"
                                                 : "no JPEG header";
    throw error("loadJpg error", fileName + ": " + why);
}

std::unique_ptr<Layer32bpp> layerFromIndices(const std::uint8_t* indices, int width, int height,
                                             const Palette256& palette) {
    auto layer = std::make_unique<Layer32bpp>(width, height);
    expandThroughPalette(indices, static_cast<std::size_t>(layer->pixelCount()), palette, layer->pixels);
    return layer;
}

}  // namespace

std::unique_ptr<Layer32bpp> LoadLayer32bpp(const std::string& fileName) {
    switch (formatOf(fileName)) {
    case Format::pcx: {
        IndexedPicture picture = loadPcx(fileName, pcxLayerFailure);
        return layerFromIndices(picture.indices.data(), picture.width, picture.height, picture.palette);
    }
    case Format::gif: {
        GifFile gif = openGif(fileName, gifLayerFailure);
        std::vector<std::uint8_t> indices(screenPixels(gif));
        Palette256 palette = decodeGifInto(gif, indices.data(), fileName, gifLayerFailure);
        return layerFromIndices(indices.data(), gif.screen.width, gif.screen.height, palette);
    }
    case Format::bmp: {
        // Every depth is decoded to whole pixels, so palette files give their picture too.
        BmpPicture picture = loadBmp(fileName);
        auto layer = std::make_unique<Layer32bpp>(picture.width, picture.height);
        std::copy(picture.pixels.begin(), picture.pixels.end(), layer->pixels);
        return layer;
    }
    case Format::jpg: return loadJpg(fileName);
    case Format::unknown: break;
    }
    failUnknownExtension("LoadLayer32bpp", fileName, "pcx, gif, bmp, jpg");
}

std::unique_ptr<Layer8bpp> LoadLayer8bpp(const std::string& fileName) {
    switch (formatOf(fileName)) {
    case Format::pcx: {
        IndexedPicture picture = loadPcx(fileName, pcxLayerFailure);
        auto layer = std::make_unique<Layer8bpp>(picture.width, picture.height);
        std::copy(picture.indices.begin(), picture.indices.end(), layer->pixels);
        return layer;
    }
    case Format::gif: {
        GifFile gif = openGif(fileName, gifLayerFailure);
        auto layer = std::make_unique<Layer8bpp>(gif.screen.width, gif.screen.height);
        decodeGifInto(gif, layer->pixels, fileName, gifLayerFailure);
        return layer;
    }
    default: break;
    }
    failUnknownExtension("LoadLayer8bpp", fileName, "pcx, gif");
}

std::unique_ptr<Palette> LoadPalette(const std::string& fileName) {
    auto palette = std::make_unique<Palette>();
    switch (formatOf(fileName)) {
    case Format::pcx: palette->colors = loadPcx(fileName, pcxPaletteFailure).palette; return palette;
    case Format::gif: {
        // The palette comes with a full decode, so a damaged picture fails here too.
        GifFile gif = openGif(fileName, gifPaletteFailure);
        std::vector<std::uint8_t> indices(screenPixels(gif));
        palette->colors = decodeGifInto(gif, indices.data(), fileName, gifPaletteFailure);
        return palette;
    }
    default: break;
    }
    failUnknownExtension("LoadPalette", fileName, "pcx, gif");
}

std::unique_ptr<LayerRle> LoadLayerRle(const std::string& fileName) {
    if (formatOf(fileName) != Format::pcx) {
        // The log line has always spelt the entry point "LoadLayeRle"; the exception does not.
        fatal("ImageLoader::LoadLayeRle : we support only pcx files! :" + fileName,
              "ImageLoader::LoadLayerRle : we support only pcx files!", extensionDetail(fileName, "pcx"));
    }
    IndexedPicture picture = loadPcx(fileName, pcxLayerFailure);
    return std::make_unique<LayerRle>(picture.width, picture.height,
                                      packRuns(picture.indices.data(), picture.width, picture.height));
}

}  // namespace vz::ImageLoader
