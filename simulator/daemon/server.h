// SPDX-License-Identifier: MIT
#pragma once

#include "core/simulator.h"
#include "daemon/connection.h"
#include "daemon/listener.h"

#include <list>

namespace tarnwick::simulator {

/// Serves the socket until told to stop, in one thread and without ever blocking on one tool.
class Server {
public:
    /// More tools at once than this make the longest waiting one go.
    static constexpr std::size_t maximumConnections = 200;

    Server(Simulator& simulator, Listener& listener);

    /// Returns when `stopDescriptor` becomes readable.
    void run(int stopDescriptor);

private:
    using Time = Connection::Time;

    int timeout(Time now) const;
    void serve(Connection& connection, short events, Time now);
    void acceptAll(Time now);
    int openCommands() const;
    Moment moment(Time now) const;

    Simulator& simulator_;
    Listener& listener_;
    Time start_;
    std::list<Connection> connections_;
};

} // namespace tarnwick::simulator
