// SPDX-License-Identifier: MIT
#include "desktop/termination_signals.h"

#include "platform/pipe.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tarnwick {

namespace {

// Not a member: a signal handler gets nothing but the signal's number.
std::atomic<int> handlerPipe{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void handleSignal(int) {
    const int savedError = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(handlerPipe.load(), &byte, 1);
    errno = savedError;
}

void setHandler(int signal, void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals() {
    int ends[2] = {-1, -1};
    if (makePipe(ends) != 0)
        return; // the signals keep their default action, which ends the process
    pipe_ = {ends[0], ends[1]};
    // The handler must not block on a full pipe, which wakes the reader as well.
    fcntl(pipe_[1], F_SETFL, fcntl(pipe_[1], F_GETFL) | O_NONBLOCK);
    notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
        notifier_->setEnabled(false);
        Q_EMIT received();
    });
    handlerPipe = pipe_[1];
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        setHandler(signal, handleSignal);
}

TerminationSignals::~TerminationSignals() {
    if (pipe_[0] < 0)
        return;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        setHandler(signal, SIG_DFL);
    handlerPipe = -1;
    notifier_.reset();
    for (const int end : pipe_)
        close(end);
}

} // namespace tarnwick
