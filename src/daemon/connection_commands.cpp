// SPDX-License-Identifier: MIT
#include "daemon/connection_commands.h"

#include "daemon/command_runner.h"
#include "platform/service_addresses.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// A healthy daemon whose status mentions an error, in a peer's name for instance, is nudged as
// well; that costs a pause and does no harm.
void ensureDaemonRunning(const CommandRunner& runner, const CommandLine& nudgeDaemon) {
    const QByteArray output =
        runner.runCLIWithTimeout({u"status"_s, u"--json"_s}, runner.timing().probeTimeout);
    if (!output.isEmpty() && !hasCommandError(output))
        return;
    runner.runSilently(nudgeDaemon, runner.timing().loginTimeout);
    runner.pause(runner.timing().daemonStartPause);
}

QStringList loginArguments(const QString& authKey, const QString& deviceName) {
    const QString cleaned = deviceName.trimmed().toLower().replace(u' ', u'-');
    QStringList arguments = {u"login"_s, u"--login-server="_s + loginServer(cleaned),
                             u"--authkey"_s, authKey};
    if (!cleaned.isEmpty())
        arguments << u"--hostname"_s << cleaned;
    return arguments;
}

} // namespace

ToolWork ConnectionCommands::connect() {
    return [](const CommandRunner& runner) {
        return runner.carryOut({u"up"_s});
    };
}

ToolWork ConnectionCommands::disconnect() {
    return [](const CommandRunner& runner) {
        return runner.carryOut({u"down"_s});
    };
}

ToolWork ConnectionCommands::switchProfile(const QString& id) {
    return [id](const CommandRunner& runner) {
        runner.carryOut({u"switch"_s, id}); // whether it worked shows in what "up" says
        runner.pause(runner.timing().switchPause);
        return runner.carryOut({u"up"_s});
    };
}

ToolWork ConnectionCommands::removeProfile(const QString& id) {
    return [path = u"/localapi/v0/profiles/"_s + id](const CommandRunner& runner) {
        return runner.carryOut({u"debug"_s, u"localapi"_s, u"DELETE"_s, path});
    };
}

ToolWork ConnectionCommands::logIn(const QString& authKey, const QString& deviceName,
                                   const CommandLine& nudgeDaemon) {
    return [arguments = loginArguments(authKey, deviceName),
            nudgeDaemon](const CommandRunner& runner) {
        ensureDaemonRunning(runner, nudgeDaemon);
        return runner.carryOut(arguments, runner.timing().loginTimeout);
    };
}

QString loginServer(const QString& deviceName) {
    const ServiceAddresses addresses = serviceAddresses();
    const bool isDevelopment = deviceName.trimmed().toLower().startsWith("dev-"_L1);
    return isDevelopment ? addresses.devLoginServer : addresses.prodLoginServer;
}

} // namespace tarnwick
