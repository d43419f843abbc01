#include "core/MemoryBudget.hpp"

#include <cstdio>

namespace vz::MemoryBudget {

namespace {

struct State {
    std::int64_t limit = defaultLimit;
    std::int64_t used = 0;
};

State& state() {
    static State s;
    return s;
}

// Whole MiB where they are whole, else one decimal, or KiB below one MiB.
std::string sizeText(std::int64_t bytes) {
    char text[48];
    if (bytes % (1 << 20) == 0)
        std::snprintf(text, sizeof text, "%lld MiB", static_cast<long long>(bytes >> 20));
    else if (bytes >= 1 << 20)
        std::snprintf(text, sizeof text, "%.1f MiB", static_cast<double>(bytes) / (1 << 20));
    else
        std::snprintf(text, sizeof text, "%lld KiB", static_cast<long long>((bytes + 1023) >> 10));
    return text;
}

}  // namespace

void setLimit(std::int64_t bytes) { state().limit = bytes; }
std::int64_t limit() { return state().limit; }
std::int64_t used() { return state().used; }

bool take(std::int64_t bytes) {
    State& s = state();
    if (bytes > s.limit - s.used) return false;
    s.used += bytes;
    return true;
}

void giveBack(std::int64_t bytes) { state().used -= bytes; }

std::string refusal(const std::string& what, std::int64_t bytes) {
    return what + " needs " + sizeText(bytes) + ", beyond the memory budget of " + sizeText(limit()) + " (" +
           sizeText(used()) + " in use; see --memory-limit)";
}

}  // namespace vz::MemoryBudget
