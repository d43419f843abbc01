// The tokenizer on arbitrary text: every line read, every token taken as text, integer
// and float, until the parser says none is left.
#include <cstddef>
#include <cstdint>

#include "FuzzSupport.hpp"
#include "core/error.hpp"
#include "script/TextParser.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vz::fuzz::MemoryFiles files({{"t.txt", {data, data + size}}});
    vz::TextParser parser;
    parser.open("t.txt");
    int taken = 0;
    while (parser.nextLine()) {
        try {
            while (parser.tokensLeft()) {
                switch (taken++ % 4) {
                case 0: parser.getToken(); break;
                case 1: parser.getInt(); break;
                case 2: parser.getFloat(); break;
                default: parser.lastTokenIs(parser.getTokenCopy().c_str()); break;
                }
            }
            parser.getToken();  // none is left: always the parser's error
        } catch (const vz::error&) {
        }
    }
    return 0;
}
