#include "script/TokenConversions.hpp"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/logstream.hpp"

namespace vz {

namespace {

struct Keyword {
    const char* text;
    int value;
};

// Tables in the order the keywords are tried.
constexpr Keyword renduKeywords[] = {{"off", 0},     {"glenz25", 8}, {"glenz50", 16},  {"glenz75", 24},
                                     {"normal", 32}, {"add", 33},    {"addnosat", 35}, {"sub", 34}};
constexpr Keyword interpolationKeywords[] = {{"linear", 1}, {"cosinus", 3}, {"spline", 2}, {"square", 0}};
constexpr Keyword materialKeywords[] = {{"texture32bpp", 0}, {"textureAnysize32bpp", 1}, {"texture8bpp", 2},
                                        {"gouraud8bpp", 3},  {"flatColor", 4},           {"flatPattern", 5},
                                        {"gouraud32bpp", 6}, {"dualTexture8bpp", 8}};

template <std::size_t N>
bool lookUp(const Keyword (&table)[N], const char* token, int& value) {
    for (const Keyword& keyword : table) {
        if (std::strcmp(keyword.text, token) == 0) {
            value = keyword.value;
            return true;
        }
    }
    return false;
}

// Unknown keywords are not fatal, but they are framed like fatal details so that they
// stand out in the log.
int unknownKeyword(const char* message, const char* token, int fallback) {
    logFramed(std::string(message) + token);
    return fallback;
}

}  // namespace

int token2rendu(const char* token) {
    int value = 0;
    if (lookUp(renduKeywords, token, value)) return value;
    // A decimal number as "%d" would read it (leading blanks, sign, digits, anything
    // after them ignored), clamped to the int range instead of overflowing. A word that
    // holds no number is taken as "normal": the mode that draws the source unchanged is
    // the least surprising result for a misspelt keyword.
    char* end = nullptr;
    long number = std::strtol(token, &end, 10);
    if (end == token) return 32;
    if (number > INT_MAX) return INT_MAX;
    if (number < INT_MIN) return INT_MIN;
    return static_cast<int>(number);
}

int token2interpolation(const char* token) {
    int value = 0;
    if (lookUp(interpolationKeywords, token, value)) return value;
    return unknownKeyword("token2interpolation : Interpolation type not supported : ", token, 1);
}

int token2materialId(const char* token) {
    int value = 0;
    if (lookUp(materialKeywords, token, value)) return value;
    return unknownKeyword("token2materialId : type not supported : ", token, 4);
}

bool token2bool(const char* token) {
    if (std::strcmp(token, "true") == 0) return true;
    if (std::strcmp(token, "false") == 0) return false;
    return unknownKeyword("token2bool : keyword must be true or false : ", token, 0) != 0;
}

}  // namespace vz
