// SPDX-License-Identifier: MIT
// One run of a tool that does nothing, against a bare posix_spawn(). Both poll for the child's end
// without a pause, so that they differ by their own work alone; the time counted is CPU time, the
// child's included.
#include "daemon/command_runner.h"
#include "support/cpu_time.h"

#include <benchmark/benchmark.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using tarnwick::bench::cpuSecondsWithChildren;

namespace {

constexpr auto tool = "/bin/true";

void runTool(benchmark::State& state) {
    tarnwick::Timing timing;
    timing.pollStep = std::chrono::milliseconds(0);
    const tarnwick::DaemonPaths paths{QStringLiteral("/tmp"), QStringLiteral("/tmp")};
    const tarnwick::CommandRunner runner(QLatin1StringView(tool), paths, timing, {});
    if (const QByteArray output = runner.runCLI({}); !output.isEmpty()) // the tool says nothing
        state.SkipWithError(output.constData());
    for ([[maybe_unused]] auto _ : state) {
        const double before = cpuSecondsWithChildren();
        auto output = runner.runCLI({QStringLiteral("status"), QStringLiteral("--json")});
        benchmark::DoNotOptimize(output);
        state.SetIterationTime(cpuSecondsWithChildren() - before);
    }
}

pid_t spawnBare() {
    char name[] = "/bin/true";
    char* const arguments[] = {name, nullptr};
    pid_t pid = -1;
    return posix_spawn(&pid, tool, nullptr, nullptr, arguments, environ) == 0 ? pid : -1;
}

// Without a child, waiting for it returns at once.
void requireChild(benchmark::State& state) {
    const pid_t pid = spawnBare();
    int status = -1;
    if (pid < 0 || waitpid(pid, &status, 0) != pid || status != 0)
        state.SkipWithError("the tool did not run");
}

void spawnAndLook(benchmark::State& state) {
    requireChild(state);
    for ([[maybe_unused]] auto _ : state) {
        const double before = cpuSecondsWithChildren();
        const pid_t pid = spawnBare();
        while (waitpid(pid, nullptr, WNOHANG) == 0) {
        }
        state.SetIterationTime(cpuSecondsWithChildren() - before);
    }
}

// Without polling: the least that a run costs.
void spawnAndSleep(benchmark::State& state) {
    requireChild(state);
    for ([[maybe_unused]] auto _ : state) {
        const double before = cpuSecondsWithChildren();
        waitpid(spawnBare(), nullptr, 0);
        state.SetIterationTime(cpuSecondsWithChildren() - before);
    }
}

BENCHMARK(runTool)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(spawnAndLook)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(spawnAndSleep)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace
