#include "engine3d/loaders/MeshFileChecks.hpp"

#include "core/error.hpp"

namespace vz {

void meshFileError(const char* reader, const TextParser& parser, const std::string& what) {
    fatal(std::string(reader) + " : " + parser.fileName() + ":" + std::to_string(parser.lineNumber()) + ": " + what);
}

int checkedCount(const char* reader, const TextParser& parser, const char* name, int count) {
    if (count < 0 || count > maxMeshCount)
        meshFileError(reader, parser,
                      std::string(name) + " count " + std::to_string(count) + " is not within 0 to " +
                          std::to_string(maxMeshCount));
    return count;
}

int checkedIndex(const char* reader, const TextParser& parser, int index, int vertexCount) {
    if (index < 0 || index >= vertexCount)
        meshFileError(
            reader, parser,
            "vertex index " + std::to_string(index) + " is not within 0 to " + std::to_string(vertexCount - 1));
    return index;
}

void requireLine(const char* reader, TextParser& parser, const std::string& what) {
    if (!parser.nextLine()) meshFileError(reader, parser, "the file ends before " + what);
}

}  // namespace vz
