// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
