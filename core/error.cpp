#include "core/error.hpp"

#include "core/logstream.hpp"

namespace vz {

void fatal(const std::string& logText, const std::string& message, const std::string& detail) {
    logFramed(logText);
    throw error(message, detail);
}

std::string errorLine(const error& e) {
    std::string line = "vzplayer: ";
    if (!e.where().empty()) line += e.where() + ": ";
    line += e.message();
    if (!e.detail().empty()) line += " (" + e.detail() + ")";
    return line;
}

}  // namespace vz
