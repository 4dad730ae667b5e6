// SPDX-License-Identifier: MIT
#include <QCoreApplication>

#include <benchmark/benchmark.h>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv); // a controller publishes in its event loop
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
