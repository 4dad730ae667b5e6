// SPDX-License-Identifier: MIT
#include "support/heap_use.h"

#include <malloc.h>

namespace tarnwick::bench {

double heapKiB() {
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd) / 1024;
}

} // namespace tarnwick::bench
