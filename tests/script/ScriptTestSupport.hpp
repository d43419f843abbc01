#pragma once
// Helpers of the script tests: a parser standing on a line of text, and runs of log lines.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/error.hpp"
#include "core/logstream.hpp"
#include "script/TextParser.hpp"
#include "support/TestSupport.hpp"

namespace vz::test {

// A parser on `text` (written to `fileName` in the current directory), standing on its
// first line. Needs a ScratchDir.
class ParsedLine {
public:
    explicit ParsedLine(const std::string& text, const std::string& fileName = "line.txt") {
        writeFile(fileName, text + "\n");
        parser.open(fileName);
        parser.nextLine();
    }
    TextParser parser;
};

// True when `expected` appears in `lines` as consecutive lines.
inline bool containsRun(const std::vector<std::string>& lines, const std::vector<std::string>& expected) {
    return std::search(lines.begin(), lines.end(), expected.begin(), expected.end()) != lines.end();
}

}  // namespace vz::test
