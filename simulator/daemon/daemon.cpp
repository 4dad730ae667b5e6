// SPDX-License-Identifier: MIT
#include "daemon/daemon.h"

#include "core/world_reader.h"
#include "daemon/listener.h"
#include "daemon/options.h"
#include "daemon/server.h"
#include "daemon/stop_signal.h"

#include <QFile>

#include <csignal>
#include <cstdio>

namespace tarnwick::simulator {

namespace {

constexpr int usageStatus = 2;

int fail(const std::string& sentence, int status = 1) {
    std::fprintf(stderr, "tarnwick-daemon: %s\n", sentence.c_str());
    return status;
}

/// The world of the options, or nothing and what is wrong with it.
std::optional<World> readWorld(const QString& path, std::string& problem) {
    QByteArray bytes = World::builtIn();
    if (!path.isEmpty()) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            problem = file.errorString().toStdString();
            return std::nullopt;
        }
        bytes = file.readAll();
    }
    WorldReader reader;
    std::optional<World> world = reader.read(bytes);
    problem = reader.problem().toStdString();
    return world;
}

} // namespace

int runDaemon(const std::vector<std::string>& arguments) {
    const Options options = Options::parse(arguments);
    if (options.help) {
        std::fputs(Options::usage(), stdout);
        return 0;
    }
    if (!options.problem.empty())
        return fail(options.problem, usageStatus);
    if (options.printWorld) {
        std::fputs(World::builtIn().constData(), stdout);
        return 0;
    }
    std::string problem;
    std::optional<World> world = readWorld(options.worldPath, problem);
    if (!world)
        return fail("the world " + options.worldPath.toStdString() + " is no good: " + problem);

    std::signal(SIGPIPE, SIG_IGN);
    const StopSignal stop;
    Listener listener(options.socketPath);
    problem = listener.open();
    if (!problem.empty())
        return fail(problem);
    Simulator simulator(std::move(*world), StateStore(options.statePath), options.faults,
                        options.tun);
    Server server(simulator, listener);
    std::printf("listening at %s\n", options.socketPath.c_str());
    std::fflush(stdout);
    server.run(stop.descriptor());
    return 0;
}

} // namespace tarnwick::simulator
