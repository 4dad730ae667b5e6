// SPDX-License-Identifier: MIT
#include "support/cpu_time.h"

#include <sys/resource.h>

namespace tarnwick::bench {

namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

double secondsOf(int who) {
    rusage usage = {};
    getrusage(who, &usage);
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

double cpuSecondsWithChildren() {
    return secondsOf(RUSAGE_SELF) + secondsOf(RUSAGE_CHILDREN);
}

} // namespace tarnwick::bench
