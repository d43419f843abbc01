#pragma once
// A demo's scripts read through without being played: every resource and component
// they declare is built, waits are passed over, and each error is kept instead of
// ending the reading, so that one pass lists several mistakes. A show being checked
// points at one of these (Show::check).
#include <set>
#include <string>
#include <vector>

#include "core/error.hpp"

namespace vz {

struct ScriptCheck {
    std::vector<error> errors;    // in the order they were found
    std::set<std::string> files;  // every file the demo named that was opened, as named
    bool music = true;            // music files are read too (not under NOSOUND)
};

}  // namespace vz
