#pragma once
// The fixed list of every component keyword a script may use, in registration order,
// with the class each keyword builds and the texts the registry prints for script
// authors (a French description and the parameters in script order).
#include <span>

namespace vz {

struct CatalogEntry {
    const char* keyword;      // "tunnel32bpp"
    const char* className;    // "Tunnel32bpp": what the built component's getName() says
    const char* description;  // one French sentence
    const char* syntax;       // the parameters in script order, separated by blanks
};

// All 146 entries, in the order in which every factory registers them.
std::span<const CatalogEntry> componentCatalog();

}  // namespace vz
