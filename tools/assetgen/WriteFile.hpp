#pragma once
// Whole-file writing of the generated files.
#include <string>

#include "tools/writers/Bytes.hpp"

namespace vz::assetgen {

// Writes the bytes as the whole content of the file; throws std::runtime_error on failure.
void writeFile(const std::string& path, const writers::Bytes& bytes);
void writeFile(const std::string& path, const std::string& text);

}  // namespace vz::assetgen
