#pragma once
// What the BMP reader prints on standard output: its complaints about unsupported files,
// and, at report levels other than quietReportLevel, the header fields.
#include <string>

#include "assets/decoders/BmpDecoder.hpp"

namespace vz {

// The level the picture loaders use: nothing is reported.
constexpr int quietReportLevel = 20;
// The level that adds planes, image size, resolutions and colour counts.
constexpr int fullReportLevel = 22;

void printBmpHeaderReport(const BmpHeader& header, int level);
void printBmpUnsupportedType(const std::string& fileName);
void printBmpUnsupportedBitCount();

}  // namespace vz
