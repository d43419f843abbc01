#include "script/TextParser.hpp"

#include <cstdio>
#include <cstring>

#include "core/error.hpp"
#include "core/logstream.hpp"

namespace vz {

namespace {

bool isSeparator(char c) { return c == ' ' || c == '\v' || c == '\f' || c == '\n' || c == '\r' || c == '\t'; }

bool isTerminator(char c) { return c == '\0' || c == '#' || isSeparator(c); }

}  // namespace

TextParser::~TextParser() { close(); }

void TextParser::open(const std::string& name) {
    name_ = name;
    lineNumber_ = 0;
    lineFinished_ = true;
    std::memset(line_, 0, sizeof line_);
    cursor_ = line_;
    lastToken_ = "";
    if (!file_.open(name))
        fatal("Fatal: Parser : open failure of " + name, "TextParser can not open file", name + ": " + file_.whyNot());
}

void TextParser::close() {
    if (!file_.isOpen()) return;
    file_.close();
}

bool TextParser::readLine() {
    // The whole buffer is cleared first, so that a cursor standing past the end of a
    // short line still sees zeros there.
    std::memset(line_, 0, sizeof line_);
    if (lineFinished_) ++lineNumber_;
    // A line cut at the buffer's size goes on in the next read: same line number.
    lineFinished_ = file_.readLine(line_, lineCapacity) < lineCapacity - 1;
    cursor_ = line_;
    return true;
}

bool TextParser::nextLine() {
    if (!file_.isOpen() || file_.endReached()) return false;
    for (;;) {
        readLine();
        while (isSeparator(*cursor_)) ++cursor_;
        if (*cursor_ != '\0' && *cursor_ != '#') return true;
        if (file_.endReached()) return false;
    }
}

const char* TextParser::getToken() {
    char* c = cursor_;
    while (isSeparator(*c)) ++c;
    if (*c == '\0' || *c == '#') {
        error missing("Fatal: Parser : there is no tokens lefts in the line");
        missing.locate(location());
        throw missing;
    }
    char* end = c;
    while (!isTerminator(*end)) ++end;
    *end = '\0';
    lastToken_ = c;
    // Past the terminator, even the line's own end; the spare zero keeps this in bounds.
    cursor_ = end + 1 <= line_ + lineCapacity ? end + 1 : line_ + lineCapacity;
    return c;
}

std::string TextParser::getTokenCopy() { return std::string(getToken()); }

int TextParser::getInt() {
    int value = 0;
    std::sscanf(getToken(), "%d", &value);
    return value;
}

float TextParser::getFloat() {
    float value = 0.0f;
    std::sscanf(getToken(), "%f", &value);
    return value;
}

char TextParser::peekChar() const {
    const char* c = cursor_;
    while (isSeparator(*c)) ++c;
    return *c;
}

bool TextParser::tokensLeft() const {
    char c = peekChar();
    return c != '\0' && c != '#';
}

bool TextParser::lastTokenIs(const char* text) const { return std::strcmp(lastToken_, text) == 0; }

}  // namespace vz
