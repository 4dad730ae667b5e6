// SPDX-License-Identifier: MIT
#include "platform/cancellation_token.h"

#include "platform/pipe.h"

#include <QDeadlineTimer>

#include <atomic>
#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace tarnwick {

class CancellationToken::Pipe {
public:
    Pipe() { makePipe(ends_); }

    ~Pipe() {
        for (const int end : ends_)
            if (end >= 0)
                close(end);
    }

    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    void request() {
        if (isRequested_.exchange(true) || ends_[1] < 0)
            return;
        while (write(ends_[1], "", 1) < 0 && errno == EINTR) {
        }
    }

    bool isCancelled() const { return isRequested_; }

    int readEnd() const { return ends_[0]; }

private:
    std::atomic<bool> isRequested_ = false;
    int ends_[2] = {-1, -1};
};

CancellationToken::CancellationToken() : pipe_(std::make_shared<Pipe>()) {}

void CancellationToken::cancel() const {
    pipe_->request();
}

bool CancellationToken::isCancelled() const {
    return pipe_->isCancelled();
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
