#pragma once
// Builds small zip archives for tests with minizip's writer.
#include <string>
#include <utility>
#include <vector>

namespace vz::test {

// Writes `path` holding each (member name, content) pair, deflated.
void writeZip(const std::string& path, const std::vector<std::pair<std::string, std::string>>& members);

}  // namespace vz::test
