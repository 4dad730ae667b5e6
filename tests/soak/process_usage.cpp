// SPDX-License-Identifier: MIT
#include "process_usage.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tarnwick::soak {

namespace fs = std::filesystem;

namespace {

int entriesOf(const char* directory) {
    return static_cast<int>(std::distance(fs::directory_iterator(directory), {}));
}

int childrenOfAllThreads() {
    int count = 0;
    for (const auto& thread : fs::directory_iterator("/proc/self/task")) {
        std::ifstream children(thread.path() / "children");
        count += static_cast<int>(std::distance(std::istream_iterator<int>(children), {}));
    }
    return count;
}

// Dirty pages. Whether clean pages, such as those of libraries, count as private depends on what
// else runs on this machine.
long privateMemory() {
    std::ifstream rollup("/proc/self/smaps_rollup");
    long total = 0;
    for (std::string line; std::getline(rollup, line);)
        if (line.starts_with("Private_Dirty:") || line.starts_with("Swap:"))
            total += std::stol(line.substr(line.find(':') + 1));
    return total;
}

} // namespace

ProcessUsage ProcessUsage::now() {
    return {
        .descriptors = entriesOf("/proc/self/fd"),
        .threads = entriesOf("/proc/self/task"),
        .children = childrenOfAllThreads(),
        .privateKiB = privateMemory(),
    };
}

} // namespace tarnwick::soak
