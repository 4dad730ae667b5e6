// SPDX-License-Identifier: MIT
#include "daemon/stop_signal.h"

#include <array>
#include <csignal>
#include <pthread.h>
#include <unistd.h>

namespace tarnwick::simulator {

StopSignal::StopSignal() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);

    std::array<int, 2> ends{-1, -1};
    if (pipe(ends.data()) == 0) {
        readEnd_ = Descriptor(ends[0]);
        writeEnd_ = Descriptor(ends[1]);
        readEnd_.setNonBlocking();
        writeEnd_.setNonBlocking();
    }
    // A thread that waits instead of a handler: a handler could reach the pipe only through a
    // global.
    waiter_ = std::thread([signals, end = writeEnd_.get()] {
        int signal = 0;
        sigwait(&signals, &signal);
        const ssize_t ignored = write(end, "x", 1);
        static_cast<void>(ignored);
    });
}

StopSignal::~StopSignal() {
    // Blocked in every thread, so it can only wake the waiter, or stay pending if that has ended.
    kill(getpid(), SIGTERM);
    waiter_.join();
}

} // namespace tarnwick::simulator
