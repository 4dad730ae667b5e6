// SPDX-License-Identifier: MIT
#include "desktop/message_bus_linux.h"

#include <QFile>

#include <optional>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds reconnectInterval{2};
constexpr std::chrono::seconds answerTimeout{3};

/// The first line that every client of a bus sends, and that a working bus answers.
QByteArray authentication() {
    return '\0' + QByteArray("AUTH EXTERNAL ") + QByteArray::number(getuid()).toHex() + "\r\n";
}

/// The socket of an address such as "unix:path=/run/user/1000/bus,guid=…"; none for other kinds.
std::optional<QString> socketPath(const QString& address) {
    const QString first = address.section(u';', 0, 0);
    if (!first.startsWith("unix:"_L1))
        return std::nullopt;
    const QStringList entries = first.sliced(5).split(u',');
    for (const QString& entry : entries) {
        const QString value =
            QFile::decodeName(QByteArray::fromPercentEncoding(entry.section(u'=', 1).toUtf8()));
        if (entry.startsWith("path="_L1))
            return value;
        if (entry.startsWith("abstract="_L1))
            return QChar(u'\0') + value;
    }
    return std::nullopt;
}

} // namespace

LocalEnd::LocalEnd(const QDBusConnection& connection)
    : QDBusAbstractInterface(QString(), u"/org/freedesktop/DBus/Local"_s,
                             "org.freedesktop.DBus.Local", connection, nullptr) {}

MessageBus::MessageBus(QString address)
    : address_(std::move(address)),
      name_(u"tarnwick-%1"_s.arg(reinterpret_cast<quintptr>(this), 0, 16)), connection_(QString()) {
    retry_.setSingleShot(true);
    retry_.setInterval(std::chrono::milliseconds::zero());
    QObject::connect(&retry_, &QTimer::timeout, this, &MessageBus::look);
    answerLimit_.setSingleShot(true);
    answerLimit_.setInterval(answerTimeout);
    QObject::connect(&answerLimit_, &QTimer::timeout, this, &MessageBus::becomeUnavailable);
    retry_.start();
}

MessageBus::~MessageBus() {
    close();
}

QString MessageBus::sessionAddress() {
    const QString given = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!given.isEmpty())
        return given;
    const QString usual = qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus"_L1;
    return QFile::exists(usual) ? "unix:path="_L1 + usual : u"autolaunch:"_s;
}

QString MessageBus::systemAddress() {
    return qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS",
                                u"unix:path=/run/dbus/system_bus_socket"_s);
}

bool MessageBus::isUnresponsive(const QString& address, std::chrono::milliseconds timeout) {
    const auto path = socketPath(address);
    const LocalSocket socket = path ? LocalSocket::connectedTo(*path) : LocalSocket();
    if (!socket.isOpen() || !socket.write(authentication()))
        return false;
    pollfd entry = {socket.descriptor(), POLLIN, 0};
    return poll(&entry, 1, static_cast<int>(timeout.count())) == 0;
}

void MessageBus::look() {
    const auto path = socketPath(address_);
    if (!path) { // cannot be probed
        open();
        return;
    }
    probe_ = LocalSocket::connectedTo(*path);
    if (!probe_.isOpen() || !probe_.write(authentication())) {
        retryLater();
        return;
    }
    answer_ = std::make_unique<QSocketNotifier>(probe_.descriptor(), QSocketNotifier::Read);
    QObject::connect(answer_.get(), &QSocketNotifier::activated, this, &MessageBus::readAnswer);
    answerLimit_.start();
}

void MessageBus::readAnswer() {
    answerLimit_.stop();
    const auto answer = probe_.read();
    answer_->setEnabled(false);
    answer_.release()->deleteLater();
    probe_ = LocalSocket();
    if (answer)
        open();
    else
        retryLater();
}

void MessageBus::open() {
    connection_ = QDBusConnection::connectToBus(address_, name_);
    if (!connection_.isConnected()) {
        close();
        retryLater();
        return;
    }
    localEnd_ = std::make_unique<LocalEnd>(connection_);
    // Queued, because the slot destroys the sender.
    QObject::connect(
        localEnd_.get(), &LocalEnd::Disconnected, this,
        [this] {
            close();
            retryLater();
        },
        Qt::QueuedConnection);
    state_ = State::Connected;
    Q_EMIT connected();
}

void MessageBus::close() {
    localEnd_.reset();
    connection_ = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(name_);
}

void MessageBus::retryLater() {
    retry_.start(reconnectInterval);
    becomeUnavailable();
}

void MessageBus::becomeUnavailable() {
    if (std::exchange(state_, State::Unavailable) != State::Unavailable)
        Q_EMIT unavailable();
}

} // namespace tarnwick
