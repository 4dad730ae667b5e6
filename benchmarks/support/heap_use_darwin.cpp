// SPDX-License-Identifier: MIT
#include "support/heap_use.h"

#include <malloc/malloc.h>

namespace tarnwick::bench {

double heapKiB() {
    return static_cast<double>(mstats().bytes_used) / 1024;
}

} // namespace tarnwick::bench
