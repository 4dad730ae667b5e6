// SPDX-License-Identifier: MIT
#include "support/simulated_daemon.h"

#include <QFile>
#include <QJsonDocument>

namespace tarnwick::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int timeLimit = 30'000; // milliseconds

QJsonObject parse(const QByteArray& json) {
    return QJsonDocument::fromJson(json).object();
}

} // namespace

QString SimulatedDaemon::toolPath() {
    return QStringLiteral(TARNWICK_SIMULATED_TOOL);
}

QString SimulatedDaemon::daemonPath() {
    return QStringLiteral(TARNWICK_SIMULATED_DAEMON);
}

// Not the user's TMPDIR, which may be too long for the path of a socket.
SimulatedDaemon::SimulatedDaemon(double startingSeconds) : directory_(u"/tmp/tw-XXXXXX"_s) {
    QProcess printer;
    printer.start(daemonPath(), {u"--print-world"_s});
    printer.waitForFinished(timeLimit);
    QJsonObject world = parse(printer.readAllStandardOutput());
    world.insert("startingSeconds"_L1, startingSeconds);
    world.insert("churnSeconds"_L1, 0);
    QFile file(directory_.filePath(u"world.json"_s));
    if (file.open(QIODevice::WriteOnly))
        file.write(QJsonDocument(world).toJson());
    file.close();
    start();
}

SimulatedDaemon::~SimulatedDaemon() {
    stop();
}

bool SimulatedDaemon::start() {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(daemonPath(),
                   {u"--state="_s + statePath(), u"--socket="_s + socketPath(),
                    u"--tun=tarnwick0"_s, u"--world="_s + directory_.filePath(u"world.json"_s),
                    u"--no-logs-no-support"_s});
    return process_.waitForReadyRead(timeLimit) &&
           process_.readAllStandardOutput().startsWith("listening at ");
}

int SimulatedDaemon::stop() {
    if (!isRunning())
        return -1;
    process_.terminate();
    const bool ended = process_.waitForFinished(timeLimit);
    if (!ended) {
        process_.kill();
        process_.waitForFinished(timeLimit);
    }
    return ended && process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

QByteArray SimulatedDaemon::tool(const QStringList& arguments) const {
    QProcess tool;
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(toolPath(), QStringList{u"--socket="_s + socketPath()} + arguments);
    if (!tool.waitForFinished(timeLimit))
        tool.kill();
    return tool.readAll();
}

QByteArray SimulatedDaemon::logIn(const QString& key) const {
    return tool(
        {u"login"_s, u"--login-server=https://control.tarnwick.example"_s, u"--authkey"_s, key});
}

void SimulatedDaemon::setFaults(const QStringList& specs) const {
    tool(QStringList{u"simulator"_s, u"fault"_s} + specs);
}

QJsonObject SimulatedDaemon::account() const {
    return parse(tool({u"simulator"_s, u"state"_s}));
}

QList<QJsonObject> SimulatedDaemon::log() const {
    QList<QJsonObject> entries;
    for (const QByteArray& line : tool({u"simulator"_s, u"log"_s}).split('\n')) {
        if (!line.isEmpty())
            entries.append(parse(line));
    }
    return entries;
}

} // namespace tarnwick::test
