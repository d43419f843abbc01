#pragma once
// The player's one fatal exception. It carries a single message; only the entry
// function catches it, logs "exeption : " + message and shuts the player down.
#include <stdexcept>
#include <string>

namespace vz {

class error : public std::runtime_error {
public:
    explicit error(const std::string& message) : std::runtime_error(message) {}
    const char* message() const noexcept { return what(); }
};

}  // namespace vz
