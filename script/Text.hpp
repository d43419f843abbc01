#pragma once
// A text file left open for a component that reads its own data line by line.
#include <memory>
#include <string>

#include "core/Resource.hpp"
#include "script/TextParser.hpp"

namespace vz {

class Text : public Resource {
public:
    static const char* staticKind() { return "Text"; }
    const char* kindName() const override { return staticKind(); }

    // Opens the file (a missing file is the parser's fatal error).
    static std::unique_ptr<Text> open(const std::string& fileName) {
        auto text = std::make_unique<Text>();
        text->parser.open(fileName);
        return text;
    }

    TextParser parser;
};

}  // namespace vz
