// SPDX-License-Identifier: MIT
#include "daemon/server.h"

#include <algorithm>
#include <cstddef>
#include <poll.h>
#include <vector>

namespace tarnwick::simulator {

Server::Server(Simulator& simulator, Listener& listener)
    : simulator_(simulator), listener_(listener), start_(std::chrono::steady_clock::now()) {}

void Server::run(int stopDescriptor) {
    for (;;) {
        std::vector<pollfd> polled{{stopDescriptor, POLLIN, 0},
                                   {listener_.descriptor(), POLLIN, 0}};
        for (const Connection& connection : connections_)
            polled.push_back({connection.descriptor(), connection.events(), 0});
        poll(polled.data(), static_cast<nfds_t>(polled.size()),
             timeout(std::chrono::steady_clock::now()));
        if (polled[0].revents != 0)
            return;
        const Time now = std::chrono::steady_clock::now();
        // Those who hung up go first, so that the count of open commands in the log is right.
        std::size_t index = 2;
        for (auto connection = connections_.begin(); connection != connections_.end(); ++index) {
            const bool gone =
                connection->phase() == Connection::Phase::Waiting && polled[index].revents != 0;
            polled[index].fd = gone ? -1 : polled[index].fd;
            connection = gone ? connections_.erase(connection) : std::next(connection);
        }
        std::erase_if(polled, [](const pollfd& entry) { return entry.fd < 0; });
        index = 2;
        for (Connection& connection : connections_)
            serve(connection, polled[index++].revents, now);
        connections_.remove_if([](const Connection& connection) {
            return connection.phase() == Connection::Phase::Over;
        });
        if (polled[1].revents != 0)
            acceptAll(now);
    }
}

int Server::timeout(Time now) const {
    std::optional<Time> first;
    for (const Connection& connection : connections_) {
        const auto deadline = connection.deadline();
        if (deadline && (!first || *deadline < *first))
            first = deadline;
    }
    if (!first)
        return -1;
    // Rounded up, so that the deadline has passed when poll returns.
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*first - now).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, 60'000));
}

void Server::serve(Connection& connection, short events, Time now) {
    if (events != 0 && connection.phase() == Connection::Phase::Answering) {
        connection.write(now);
    } else if (events != 0 && connection.phase() == Connection::Phase::Asking &&
               connection.read(now)) {
        const RequestParser& request = connection.request();
        const bool isWhole = request.status() == RequestParser::Status::Complete;
        connection.answer(
            isWhole ? simulator_.handle(request.arguments(), moment(now), openCommands() + 1)
                    : Reply::failure("error: malformed request\n"),
            now);
    }
    connection.tick(now);
}

void Server::acceptAll(Time now) {
    for (Descriptor taken = listener_.accept(); taken.isOpen(); taken = listener_.accept()) {
        if (connections_.size() >= maximumConnections)
            connections_.pop_front();
        connections_.emplace_back(std::move(taken), now);
    }
}

int Server::openCommands() const {
    return static_cast<int>(std::ranges::count_if(connections_, [](const Connection& connection) {
        return connection.phase() == Connection::Phase::Waiting ||
               connection.phase() == Connection::Phase::Answering;
    }));
}

Moment Server::moment(Time now) const {
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    return {duration_cast<milliseconds>(now - start_),
            duration_cast<milliseconds>(std::chrono::system_clock::now().time_since_epoch())};
}

} // namespace tarnwick::simulator
