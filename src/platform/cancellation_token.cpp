// SPDX-License-Identifier: MIT
#include "platform/cancellation_token.h"

#include "platform/pipe.h"

#include <atomic>
#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace tarnwick {

class CancellationToken::Pipe {
public:
    using Clock = std::chrono::steady_clock;

    Pipe() { makePipe(ends_); }

    ~Pipe() {
        for (const int end : ends_)
            if (end >= 0)
                close(end);
    }

    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    void request() {
        Clock::rep notYet = 0;
        const bool isFirst =
            requestedAt_.compare_exchange_strong(notYet, Clock::now().time_since_epoch().count());
        if (!isFirst || ends_[1] < 0)
            return;
        while (write(ends_[1], "", 1) < 0 && errno == EINTR) {
        }
    }

    bool isCancelled() const { return requestedAt_ != 0; }

    Clock::duration timeSinceRequest() const {
        return isCancelled() ? Clock::now().time_since_epoch() - Clock::duration(requestedAt_)
                             : Clock::duration::zero();
    }

    int readEnd() const { return ends_[0]; }

private:
    std::atomic<Clock::rep> requestedAt_ = 0; ///< 0: not yet.
    int ends_[2] = {-1, -1};
};

CancellationToken::CancellationToken() : pipe_(std::make_shared<Pipe>()) {}

void CancellationToken::cancel() const {
    pipe_->request();
}

bool CancellationToken::isCancelled() const {
    return pipe_->isCancelled();
}

QDeadlineTimer
CancellationToken::deadlineAfterCancellation(std::chrono::milliseconds duration) const {
    if (!isCancelled())
        return {QDeadlineTimer::Forever};
    const auto left = duration - pipe_->timeSinceRequest();
    return {std::chrono::duration_cast<std::chrono::milliseconds>(left)};
}

bool CancellationToken::waitFor(std::chrono::milliseconds duration) const {
    const QDeadlineTimer deadline(duration);
    pollfd stop = {descriptor(), POLLIN, 0}; // poll() ignores a negative descriptor
    do {
        poll(&stop, 1, static_cast<int>(deadline.remainingTime()));
    } while (!isCancelled() && !deadline.hasExpired());
    return isCancelled();
}

int CancellationToken::descriptor() const {
    return pipe_->readEnd();
}

} // namespace tarnwick
