#include "effects/rendu/BulkKernels.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace vz {

namespace {

bool scalarRequestedByEnvironment() {
    const char* value = std::getenv("VZ_SCALAR");
    return value != nullptr && value[0] != '\0' && std::strcmp(value, "0") != 0;
}

const BulkKernelSet& fastestKernels() {
    if (const BulkKernelSet* avx2 = avx2Kernels()) return *avx2;
    return sse2Kernels();
}

const BulkKernelSet*& chosenKernels() {
    static const BulkKernelSet* chosen = scalarRequestedByEnvironment() ? &scalarKernels() : &fastestKernels();
    return chosen;
}

}  // namespace

// The check runs here, in code built for the baseline instruction set.
const BulkKernelSet* avx2Kernels() {
    static const bool supported = __builtin_cpu_supports("avx2");
    return supported ? &detail::avx2KernelsUnchecked() : nullptr;
}

const BulkKernelSet& activeKernels() { return *chosenKernels(); }

void setForceScalar(bool force) { chosenKernels() = force ? &scalarKernels() : &fastestKernels(); }

void copyRunInOrder(std::uint32_t* dst, const std::uint32_t* src, std::size_t n, int rendu) {
    const auto d = reinterpret_cast<std::uintptr_t>(dst), s = reinterpret_cast<std::uintptr_t>(src);
    const std::size_t gap = (d > s ? d - s : s - d) / sizeof(std::uint32_t);
    if (gap == 0 || gap >= n) {
        copyRun(dst, src, n, rendu);
        return;
    }
    for (std::size_t done = 0; done < n; done += gap) copyRun(dst + done, src + done, std::min(gap, n - done), rendu);
}

void fillRun8(std::uint8_t* dst, std::uint8_t value, std::size_t n) {
    if (n != 0) std::memset(dst, value, n);
}

void copyRun8(std::uint8_t* dst, const std::uint8_t* src, std::size_t n) {
    if (n != 0) std::memmove(dst, src, n);
}

}  // namespace vz
