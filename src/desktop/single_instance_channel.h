// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/local_socket.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <chrono>
#include <memory>

namespace tarnwick {

/// How a second launch of the program reaches the copy that runs: a socket that only the user can
/// connect to, over which one line goes each way.
class SingleInstanceChannel : public QObject {
    Q_OBJECT

public:
    /// Listens at `path`, in place of whatever a crashed copy has left there. Where that is
    /// impossible the program runs without: a second launch then finds nobody.
    explicit SingleInstanceChannel(const QString& path);
    ~SingleInstanceChannel() override;
    SingleInstanceChannel(const SingleInstanceChannel&) = delete;
    SingleInstanceChannel& operator=(const SingleInstanceChannel&) = delete;

    /// Asks the copy that listens at `path` to show its panel, and waits for its answer for at most
    /// `timeout`: it may have started only just now. `activationToken` lets it take the focus.
    static bool askToShow(const QString& path, const QByteArray& activationToken,
                          std::chrono::milliseconds timeout);

Q_SIGNALS:
    void showRequested(const QByteArray& activationToken);

private:
    class Caller;

    void serve();

    QString path_;
    LocalSocket socket_;
    std::unique_ptr<QSocketNotifier> notifier_; ///< Null when nothing listens.
};

} // namespace tarnwick
