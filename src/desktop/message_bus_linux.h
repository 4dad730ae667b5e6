// SPDX-License-Identifier: MIT
#pragma once

#include "platform/local_socket.h"

#include <QDBusAbstractInterface>
#include <QDBusConnection>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>

namespace tarnwick {

/// This process's own end of a connection to a bus.
class LocalEnd : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit LocalEnd(const QDBusConnection& connection);

Q_SIGNALS:
    /// The signal of this name: the other end has gone.
    void Disconnected();
};

/// A connection to a message bus that may be missing, hang, start late, or die and come back. Main
/// thread, which it does not block: it connects only once the bus has answered a probe.
class MessageBus : public QObject {
    Q_OBJECT

public:
    /// Looks for the bus at `address`, in D-Bus's notation, from the next turn of the event loop on
    /// and for as long as this object lives.
    explicit MessageBus(QString address);
    ~MessageBus() override;
    MessageBus(const MessageBus&) = delete;
    MessageBus& operator=(const MessageBus&) = delete;

    static QString sessionAddress();
    static QString systemAddress();

    /// Whether somebody listens at `address` but sends nothing within `timeout`, which this waits
    /// for.
    static bool isUnresponsive(const QString& address, std::chrono::milliseconds timeout);

    /// Usable from connected() until unavailable(): an asynchronous call on a connection that is
    /// not connected never finishes.
    const QDBusConnection& connection() const { return connection_; }

    bool isConnected() const { return state_ == State::Connected; }

    bool isUnavailable() const { return state_ == State::Unavailable; }

Q_SIGNALS:
    void connected();

    /// There is no bus, it does not answer, or it has gone. Every connected() but the first follows
    /// one of these.
    void unavailable();

private:
    enum class State { Unknown, Connected, Unavailable };

    void look();
    void readAnswer();
    void open();
    void close();
    void retryLater();
    void becomeUnavailable();

    const QString address_;
    const QString name_; ///< The connection's, unique in this process.
    State state_ = State::Unknown;
    QTimer retry_;
    QTimer answerLimit_; ///< Of a probe; an answer stops it, or it would wake us for nothing.
    LocalSocket probe_;
    std::unique_ptr<QSocketNotifier> answer_;
    QDBusConnection connection_;
    std::unique_ptr<LocalEnd> localEnd_;
};

} // namespace tarnwick
