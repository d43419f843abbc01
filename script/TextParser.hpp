#pragma once
// The one tokenizer of every text file the player reads (scripts, configuration,
// keytracks, materials, models). It hands out the whitespace-separated tokens of the
// current line; readers ask for the next line and take the tokens they expect.
#include <string>

#include "assets/File.hpp"

namespace vz {

class TextParser {
public:
    static constexpr int lineCapacity = 256;  // 255 characters and the terminating zero

    TextParser() = default;
    ~TextParser();
    TextParser(const TextParser&) = delete;
    TextParser& operator=(const TextParser&) = delete;

    void open(const std::string& name);  // logs and throws error on failure
    void close();
    bool isOpen() const { return file_.isOpen(); }

    bool nextLine();             // next line holding a token; false at the end
    const char* getToken();      // throws when no token is left on the line
    std::string getTokenCopy();  // an owned copy that outlives the line
    int getInt();                // "%d" scan of the next token (0 when nothing converts)
    float getFloat();            // "%f" scan of the next token (0 when nothing converts)
    char peekChar() const;       // first non-separator character left (0 or '#': none)
    bool lastTokenIs(const char* text) const;
    bool tokensLeft() const;

    const std::string& fileName() const { return name_; }
    int lineNumber() const { return lineNumber_; }
    // "file:line" of the current line, for errors found while reading it.
    std::string location() const { return name_ + ":" + std::to_string(lineNumber_); }

private:
    bool readLine();

    char* cursor_ = line_;
    const char* lastToken_ = "";
    // One spare zero behind the line: the cursor may stand one past the line's end.
    char line_[lineCapacity + 1] = {};
    File file_;
    std::string name_;
    int lineNumber_ = 0;
    bool lineFinished_ = true;  // the previous read ended on a line feed
};

}  // namespace vz
