// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace tarnwick::test {

/// A simulated daemon in a directory of its own. It is started by the constructor or `start`, and
/// ended by `stop` or the destructor. Every call is bounded by half a minute. simulator/README.md
/// tells the auth keys, the faults and what the daemon reports of itself.
///
/// Link tarnwick_simulated_daemon_support.
class SimulatedDaemon {
public:
    /// The file of the tool, to be run or copied.
    static QString toolPath();

    /// The file of the daemon, to be run or copied.
    static QString daemonPath();

    /// Prepares a world in which the daemon is "Starting" for so many seconds and peers stay as
    /// they are, and starts the daemon.
    explicit SimulatedDaemon(double startingSeconds = 0);
    ~SimulatedDaemon();

    QString directory() const { return directory_.path(); }

    QString socketPath() const { return directory_.filePath(QStringLiteral("tarnwick.sock")); }

    QString statePath() const { return directory_.filePath(QStringLiteral("state.json")); }

    /// Starts the daemon and returns when it listens; false when it does not come to that.
    bool start();

    /// Ends the daemon; returns its exit status, or -1 when it did not end by itself.
    int stop();

    bool isRunning() const { return process_.state() != QProcess::NotRunning; }

    /// What the tool prints for these arguments, on both its outputs.
    QByteArray tool(const QStringList& arguments) const;

    /// Logs in with an auth key of the built-in world.
    QByteArray logIn(const QString& key) const;

    /// Sets faults such as "hang@up"; "none" takes them away.
    void setFaults(const QStringList& specs) const;

    /// Where the daemon says it stands: "backendState", "current", "profiles", "faults".
    QJsonObject account() const;

    /// What the daemon says it was asked, oldest first.
    QList<QJsonObject> log() const;

private:
    QTemporaryDir directory_;
    QProcess process_;
};

} // namespace tarnwick::test
