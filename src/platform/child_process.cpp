// SPDX-License-Identifier: MIT
#include "platform/child_process.h"

#include "platform/cancellation_token.h"
#include "platform/environment.h"
#include "platform/pipe.h"
#include "platform/system_calls.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// Only a grandchild that floods the pipe after the tool has ended reaches this; it must not exhaust
// the memory.
constexpr int outputLimit = 16 * 1024 * 1024;

/// The settings of posix_spawn() besides the program: streams, signals, descriptors.
class SpawnSettings {
public:
    /// A stream that is given as -1 is left as it is, or goes to the null device.
    explicit SpawnSettings(int inputEnd, int outputEnd) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawnattr_init(&attributes_);
        if (inputEnd >= 0)
            posix_spawn_file_actions_adddup2(&actions_, inputEnd, STDIN_FILENO);
        sendOutputTo(outputEnd);
        short flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
        closeInheritedDescriptors(attributes_, actions_, flags);
        resetSignals();
        posix_spawnattr_setflags(&attributes_, flags);
    }

    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }

    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    const posix_spawn_file_actions_t* actions() const { return &actions_; }

    const posix_spawnattr_t* attributes() const { return &attributes_; }

private:
    void sendOutputTo(int end) {
        if (end < 0)
            posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        else
            posix_spawn_file_actions_adddup2(&actions_, end, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO);
    }

    // A child inherits blocked and ignored signals: a SIGPIPE that we ignore, or a SIGTERM that we
    // block, would be ignored or blocked in the tool.
    void resetSignals() {
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&attributes_, &none);
        sigset_t all;
        sigfillset(&all);
        sigdelset(&all, SIGKILL);
        sigdelset(&all, SIGSTOP);
        posix_spawnattr_setsigdefault(&attributes_, &all);
    }

    posix_spawn_file_actions_t actions_ = {};
    posix_spawnattr_t attributes_ = {};
};

/// The texts of an argument list, and the null-terminated array that exec takes.
class ArgumentArray {
public:
    explicit ArgumentArray(const CommandLine& command) {
        texts_.push_back(command.program.toLocal8Bit());
        for (const QString& argument : command.arguments)
            texts_.push_back(argument.toUtf8());
        for (QByteArray& text : texts_)
            pointers_.push_back(text.data());
        pointers_.push_back(nullptr);
    }

    char* const* data() const { return pointers_.data(); }

private:
    std::vector<QByteArray> texts_;
    std::vector<char*> pointers_;
};

} // namespace

ChildProcess ChildProcess::start(const CommandLine& command, const Environment& environment,
                                 Output output) {
    ChildProcess child;
    int ends[2] = {-1, -1};
    if (output == Output::Captured) {
        child.startError_ = makePipe(ends);
        if (child.startError_ != 0)
            return child;
        enlargePipe(ends[1], outputLimit);
    }
    child.pipe_ = ends[0];

    const SpawnSettings settings(-1, ends[1]);
    const ArgumentArray arguments(command);
    pid_t pid = -1;
    child.startError_ =
        posix_spawn(&pid, command.program.toLocal8Bit().constData(), settings.actions(),
                    settings.attributes(), arguments.data(), environment.pointers().data());
    if (child.startError_ == 0)
        child.pid_ = pid;
    if (ends[1] >= 0)
        close(ends[1]);
    return child;
}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept
    : pid_(std::exchange(other.pid_, -1)), status_(other.status_), startError_(other.startError_),
      pipe_(std::exchange(other.pipe_, -1)) {}

ChildProcess::~ChildProcess() {
    if (pipe_ >= 0)
        close(pipe_);
}

bool ChildProcess::isRunning() {
    if (pid_ < 0)
        return false;
    pid_t reaped = 0;
    do {
        reaped = waitpid(pid_, &status_, WNOHANG);
    } while (reaped < 0 && errno == EINTR);
    if (reaped == 0)
        return true;
    if (reaped < 0)
        status_ = -1; // reaped elsewhere: how it ended is unknown
    pid_ = -1;
    return false;
}

bool ChildProcess::waitForEnd(QDeadlineTimer deadline, std::chrono::milliseconds step,
                              const CancellationToken& cancellation) {
    while (isRunning()) {
        if (deadline.hasExpired() || cancellation.isCancelled())
            return false;
        cancellation.waitFor(step);
    }
    return true;
}

bool ChildProcess::hasSucceeded() const {
    return pid_ < 0 && status_ >= 0 && WIFEXITED(status_) && WEXITSTATUS(status_) == 0;
}

void ChildProcess::terminate() const {
    if (pid_ > 0)
        kill(pid_, SIGTERM);
}

QByteArray ChildProcess::readOutput(QDeadlineTimer deadline,
                                    const CancellationToken& cancellation) const {
    QByteArray output;
    std::array<char, 16384> buffer;
    std::array<pollfd, 2> waits = {{{pipe_, POLLIN, 0}, {cancellation.descriptor(), POLLIN, 0}}};
    while (pipe_ >= 0 && !cancellation.isCancelled() && output.size() < outputLimit) {
        // Once everybody who writes has gone, what is left can be read without waiting.
        const int ready =
            (waits[0].revents & POLLHUP) != 0
                ? 1
                : poll(waits.data(), waits.size(), static_cast<int>(deadline.remainingTime()));
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready <= 0 || waits[0].revents == 0)
            break;
        const ssize_t count = read(pipe_, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        output.append(buffer.data(), count);
    }
    return output;
}

void ChildProcess::drainBehindUs(const Environment& environment) {
    if (pipe_ < 0)
        return;
    const CommandLine command = {u"/usr/bin/head"_s, {u"-c"_s, QString::number(outputLimit)}};
    const SpawnSettings settings(pipe_, -1);
    const ArgumentArray arguments(command);
    pid_t pid = -1; // init reaps it: it ends after us, or about as soon
    posix_spawn(&pid, command.program.toLocal8Bit().constData(), settings.actions(),
                settings.attributes(), arguments.data(), environment.pointers().data());
}

std::optional<pid_t> ChildProcess::release() {
    const pid_t pid = std::exchange(pid_, -1);
    return pid < 0 ? std::nullopt : std::optional(pid);
}

bool ChildReaper::waitForAll(QDeadlineTimer deadline) {
    constexpr int step = 5; // milliseconds; waitpid() has no timeout
    for (reap(); !children_.empty() && !deadline.hasExpired(); reap())
        poll(nullptr, 0, step);
    return children_.empty();
}

void ChildReaper::reap() {
    std::erase_if(children_, [](pid_t child) { return waitpid(child, nullptr, WNOHANG) != 0; });
}

} // namespace tarnwick
