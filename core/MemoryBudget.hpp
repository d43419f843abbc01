#pragma once
// The memory a demo may make the player set aside for pixels: the slot pools that
// config.txt asks for, and every layer taken from the heap while the show plays. A
// script that declares more stops with an error naming the layer, instead of
// exhausting the machine. 4 GiB unless the command line says otherwise
// (--memory-limit).
#include <cstdint>
#include <string>

namespace vz {

namespace MemoryBudget {

constexpr std::int64_t defaultLimit = std::int64_t{4} << 30;

void setLimit(std::int64_t bytes);
std::int64_t limit();
std::int64_t used();
// Counts `bytes` against the budget; false, counting nothing, when they would pass it.
bool take(std::int64_t bytes);
void giveBack(std::int64_t bytes);
// The message refusing `what`, which needs `bytes`: "<what> needs 6 MiB, beyond the memory
// budget of 4096 MiB (4093.5 MiB in use; see --memory-limit)".
std::string refusal(const std::string& what, std::int64_t bytes);

}  // namespace MemoryBudget

}  // namespace vz
