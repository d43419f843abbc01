#include "core/error.hpp"

#include "core/logstream.hpp"

namespace vz {

void fatal(const std::string& logText, const std::string& message) {
    logFramed(logText);
    throw error(message);
}

}  // namespace vz
