// SPDX-License-Identifier: MIT
#include "daemon/connection.h"

#include "protocol/messages.h"

#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tarnwick::simulator {

namespace {

bool isTemporary(int failure) {
    return failure == EAGAIN || failure == EWOULDBLOCK || failure == EINTR;
}

} // namespace

Connection::Connection(Descriptor descriptor, Time now)
    : descriptor_(std::move(descriptor)), since_(now) {}

short Connection::events() const {
    // While waiting, only the end of the connection is of interest, and poll tells that unasked.
    if (phase_ == Phase::Waiting)
        return 0;
    return phase_ == Phase::Answering ? POLLOUT : POLLIN;
}

std::optional<Connection::Time> Connection::deadline() const {
    if (phase_ == Phase::Waiting)
        return answerAt_;
    return since_ + patience;
}

bool Connection::read(Time now) {
    std::array<char, 65536> chunk;
    const ssize_t count = ::read(descriptor_.get(), chunk.data(), chunk.size());
    if (count < 0 && isTemporary(errno))
        return false;
    if (count <= 0) {
        phase_ = Phase::Over;
        return false;
    }
    since_ = now;
    const std::string_view bytes(chunk.data(), static_cast<std::size_t>(count));
    return parser_.feed(bytes) != RequestParser::Status::Incomplete;
}

void Connection::answer(const Reply& reply, Time now) {
    phase_ = Phase::Waiting;
    if (reply.kind == Reply::Kind::Hang)
        return;
    bytes_ = encodeReply(reply);
    answerAt_ = now + reply.delay;
    tick(now);
}

void Connection::tick(Time now) {
    if (phase_ == Phase::Waiting && answerAt_ && now >= *answerAt_)
        startAnswering(now);
    else if (phase_ != Phase::Waiting && now >= since_ + patience)
        phase_ = Phase::Over;
}

void Connection::startAnswering(Time now) {
    phase_ = Phase::Answering;
    since_ = now;
    write(now);
}

void Connection::write(Time now) {
    const ssize_t count = ::write(descriptor_.get(), bytes_.data(), bytes_.size());
    if (count < 0 && isTemporary(errno))
        return;
    if (count > 0) {
        bytes_.erase(0, static_cast<std::size_t>(count));
        since_ = now;
    }
    if (count < 0 || bytes_.empty())
        phase_ = Phase::Over;
}

} // namespace tarnwick::simulator
