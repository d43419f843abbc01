#pragma once
// out[i] = value(i) for i from .. to - 1, the reads of four pixels before their writes. A
// loop that reads tables and pictures and writes each result at once keeps the processor
// waiting for every write before the next read; grouped, the reads overlap.
#include <cstddef>

namespace vz {

template <class T, class Value>
inline void fillInFours(T* out, std::ptrdiff_t from, std::ptrdiff_t to, Value value) {
    std::ptrdiff_t i = from;
    for (; i + 4 <= to; i += 4) {
        const T a = value(i), b = value(i + 1), c = value(i + 2), d = value(i + 3);
        out[i] = a;
        out[i + 1] = b;
        out[i + 2] = c;
        out[i + 3] = d;
    }
    for (; i < to; ++i) out[i] = value(i);
}

}  // namespace vz
