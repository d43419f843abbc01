#pragma once
// The checks every mesh reader makes before a number from its file becomes a size or an
// index: a failure is a fatal error naming the reader, the file and the line.
#include <string>

#include "script/TextParser.hpp"

namespace vz {

// Largest vertex or face count a mesh file may declare.
constexpr int maxMeshCount = 1 << 20;

// Fails with "<reader> : <file>:<line>: <what>".
[[noreturn]] void meshFileError(const char* reader, const TextParser& parser, const std::string& what);

// A vertex or face count of 0..maxMeshCount.
int checkedCount(const char* reader, const TextParser& parser, const char* name, int count);

// A 0-based vertex index of a face, within the mesh's vertexCount vertices.
int checkedIndex(const char* reader, const TextParser& parser, int index, int vertexCount);

// Goes to the next line; a file that ends there ends before `what`.
void requireLine(const char* reader, TextParser& parser, const std::string& what);

}  // namespace vz
