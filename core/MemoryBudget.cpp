#include "core/MemoryBudget.hpp"

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

}  // namespace vz::MemoryBudget
