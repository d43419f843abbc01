#pragma once
// The size a layer declaration asks for: "size" w h, or "sizeof" symbol (a layer of any
// kind). Shared by every kind that can be declared empty.
#include <string>

namespace vz {

class Repository;
class TextParser;

struct DeclaredSize {
    int width = 0;
    int height = 0;
};

// Reads the size that follows `token` when it is "size" or "sizeof" (checked against the
// layer limits under `kind`'s name) and returns true; false when `token` is neither (it
// then names a file).
bool readDeclaredSize(const char* kind, const std::string& token, TextParser& parser, Repository& repository,
                      DeclaredSize& size);

}  // namespace vz
