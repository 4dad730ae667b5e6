// SPDX-License-Identifier: MIT
#pragma once

#include "platform/local_socket.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <chrono>
#include <memory>

namespace tarnwick {

/// A lock that at most one process holds, released by the system however that process ends.
///
/// QLockFile in its place would have to recognise locks that a crash left behind, by process ids,
/// which containers reuse.
class InstanceLock {
public:
    /// Tries to take the lock that the file at `path` stands for; makes the file when missing.
    explicit InstanceLock(const QString& path);
    ~InstanceLock();
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    enum class State {
        Held,
        HeldByOther,
        Impossible, ///< The file cannot be made or locked.
    };

    State state() const { return state_; }

private:
    int descriptor_ = -1;
    State state_ = State::Impossible;
};

/// Lets a second launch of the program reach the running instance: over a socket that only the user
/// can connect to, one line is sent each way.
class SingleInstanceChannel : public QObject {
    Q_OBJECT

public:
    /// Listens at `path` and replaces what a crashed instance left there. Where that is impossible
    /// the program runs all the same, and a second launch fails.
    ///
    /// A connection that has not sent its line after `callerTimeout` is closed.
    explicit SingleInstanceChannel(
        const QString& path, std::chrono::milliseconds callerTimeout = std::chrono::seconds(3));
    ~SingleInstanceChannel() override;
    SingleInstanceChannel(const SingleInstanceChannel&) = delete;
    SingleInstanceChannel& operator=(const SingleInstanceChannel&) = delete;

    /// Asks the instance that listens at `path` to show its panel. Blocks for at most `timeout`;
    /// the instance may still be starting. `activationToken` lets it take the focus.
    static bool askToShow(const QString& path, const QByteArray& activationToken,
                          std::chrono::milliseconds timeout);

Q_SIGNALS:
    void showRequested(const QByteArray& activationToken);

private:
    class Caller;

    void serve();

    QString path_;
    LocalSocket socket_;
    std::chrono::milliseconds callerTimeout_;
    QList<Caller*> callers_;                    ///< Oldest first.
    std::unique_ptr<QSocketNotifier> notifier_; ///< Null when nothing listens.
};

} // namespace tarnwick
