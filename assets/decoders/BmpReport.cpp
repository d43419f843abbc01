#include "assets/decoders/BmpReport.hpp"

#include <cstdio>

namespace vz {

namespace {

const char* bitCountName(int bitCount) {
    switch (bitCount) {
    case 1: return "BPP_MONOCHROME";
    case 4: return "BPP_16_COLORS";
    case 8: return "BPP_256_COLORS";
    case 24: return "BPP_24BIT_TRUECOLOR";
    default: return " Unsupported biBitCount";
    }
}

const char* compressionName(std::uint32_t compression) {
    switch (compression) {
    case 0: return "BI_RGB <=> uncompressed";
    case 1: return "BI_RLE8";
    case 2: return "BI_RLE4";
    default: return "Unsupported biCompression\n";
    }
}

}  // namespace

void printBmpHeaderReport(const BmpHeader& h, int level) {
    if (level == quietReportLevel) return;
    std::printf("\n\nFile Type ............ : %s", h.type);
    std::printf("\nFile Size ............ : %d", static_cast<int>(h.fileSize));
    std::printf("\nBitmap Offset ........ : %d", static_cast<int>(h.dataOffset));
    std::printf("\nBitmap Header Size ... : %x", h.headerSize);
    std::printf("\nWidth ................ : %d", h.width);
    std::printf("\nHeight ............... : %d", h.height);
    if (level == fullReportLevel) std::printf("\nPlanes ............... : %d", h.planes);
    std::printf("\nBits Per Pixel ....... : %d <=>", h.bitCount);
    std::printf("%s", bitCountName(h.bitCount));
    std::printf("\nCompression .......... : ");
    std::printf("%s", compressionName(h.compression));
    if (level == fullReportLevel) {
        std::printf("Bitmap Size .......... : %d", static_cast<int>(h.imageSize));
        std::printf("\nHResolution .......... : %d pixels per meter", h.xResolution);
        std::printf("\nVResolution .......... : %d pixels per meter", h.yResolution);
        std::printf("\nColors ............... : %d", static_cast<int>(h.colorsUsed));
        std::printf("\nImportant Colors ..... : %d\n", static_cast<int>(h.colorsImportant));
    }
    std::fflush(stdout);
}

void printBmpUnsupportedType(const std::string& fileName) {
    std::printf("\n\nError : Unsupported file format.");
    std::printf("\n\nFile : %s\n\n", fileName.c_str());
    std::fflush(stdout);
}

void printBmpUnsupportedBitCount() {
    std::printf("\nError : Unsupported biBitCount.\n\n");
    std::fflush(stdout);
}

}  // namespace vz
