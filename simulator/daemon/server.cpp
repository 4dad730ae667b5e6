// SPDX-License-Identifier: MIT
#include "daemon/server.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tarnwick::simulator {

using namespace Qt::StringLiterals;

/// One tool at the other end of the socket: reads its request, writes the answer, disconnects.
class Connection : public QObject {
public:
    using Handler = std::function<Reply(const QByteArrayList& arguments)>;

    /// Takes ownership of `socket`.
    Connection(QLocalSocket* socket, Handler handler, std::chrono::milliseconds timeout,
               QObject* parent);

    /// Whether the request has arrived; what follows is to answer it.
    bool isUnderWay() const { return isUnderWay_; }

private:
    void read();
    void answer(const Reply& reply);
    void send(const QByteArray& bytes);

    QLocalSocket* socket_;
    Handler handler_;
    QTimer timeout_; // not running while a fault holds the answer back
    QByteArray request_;
    bool isUnderWay_ = false;
};

Connection::Connection(QLocalSocket* socket, Handler handler, std::chrono::milliseconds timeout,
                       QObject* parent)
    : QObject(parent), socket_(socket), handler_(std::move(handler)) {
    socket_->setParent(this);
    timeout_.setSingleShot(true);
    timeout_.setInterval(timeout);
    timeout_.start();
    connect(&timeout_, &QTimer::timeout, socket_, &QLocalSocket::abort);
    connect(socket_, &QLocalSocket::readyRead, this, &Connection::read);
    connect(socket_, &QLocalSocket::bytesWritten, &timeout_, qOverload<>(&QTimer::start));
}

void Connection::read() {
    const QByteArray bytes = socket_->readAll();
    if (isUnderWay_) // ignores what follows the request
        return;
    timeout_.start();
    request_ += bytes;
    const Request request = Request::decode(request_);
    if (request.status == Request::Status::Incomplete)
        return;
    isUnderWay_ = true;
    answer(request.status == Request::Status::Complete
               ? handler_(request.arguments)
               : Reply::failure(u"error: malformed request"_s));
}

void Connection::answer(const Reply& reply) {
    timeout_.stop();
    if (reply.kind == Reply::Kind::Hang)
        return;
    if (reply.delay.count() == 0)
        return send(reply.encode());
    constexpr std::chrono::milliseconds longest(std::numeric_limits<int>::max()); // for a QTimer
    QTimer::singleShot(std::min(reply.delay, longest), Qt::PreciseTimer, this,
                       [this, bytes = reply.encode()] { send(bytes); });
}

void Connection::send(const QByteArray& bytes) {
    timeout_.start();
    socket_->write(bytes);
    socket_->flush(); // before the event loop notices if the tool has shut down its half
    socket_->disconnectFromServer();
}

namespace {

struct stat fileStatus(const QString& path) {
    struct stat status {};

    if (lstat(QFile::encodeName(path).constData(), &status) != 0)
        status.st_mode = 0;
    return status;
}

/// Why the daemon cannot listen at this path; "" if it is free or left over from a dead daemon.
QString obstacleAt(const QString& path) {
    const mode_t mode = fileStatus(path).st_mode;
    if (mode == 0)
        return {};
    if (!S_ISSOCK(mode))
        return path + u" is not a socket; it is left alone"_s;
    QLocalSocket probe;
    probe.connectToServer(path);
    if (probe.state() != QLocalSocket::UnconnectedState) // connecting: it is too busy to accept
        return u"another daemon already answers at "_s + path;
    if (probe.error() != QLocalSocket::ConnectionRefusedError)
        return u"cannot tell whether a daemon answers at %1: %2"_s.arg(path, probe.errorString());
    return {};
}

} // namespace

Server::Server(Simulator& simulator, std::chrono::milliseconds timeout)
    : simulator_(simulator), timeout_(timeout) {
    clock_.start();
    server_.setListenBacklogSize(SOMAXCONN);
    connect(&server_, &QLocalServer::newConnection, this, &Server::accept);
}

Server::~Server() {
    const struct stat there = fileStatus(path_);
    if (server_.isListening() && there.st_dev == device_ && there.st_ino == inode_)
        QFile::remove(path_);
}

QString Server::listen(const QString& path) {
    path_ = QFileInfo(path).absoluteFilePath();
    QDir().mkpath(QFileInfo(path_).path());
    if (const QString obstacle = obstacleAt(path_); !obstacle.isEmpty())
        return obstacle;
    // On closing, QLocalServer removes whatever file has its name by then. So it gets a temporary
    // name, and the socket is moved to the path, where it replaces that of a dead daemon.
    const QTemporaryDir temporary(path_ + u".XXXXXX"_s);
    const QString name = temporary.filePath(u"s"_s);
    if (!temporary.isValid() || !server_.listen(name))
        return u"cannot listen at %1: %2"_s.arg(
            path_, temporary.isValid() ? server_.errorString() : temporary.errorString());
    // A daemon that runs as root serves all users of the machine, any other only its own user.
    const QByteArray file = QFile::encodeName(name);
    chmod(file.constData(), geteuid() == 0 ? 0666 : 0600);
    const struct stat made = fileStatus(name);
    device_ = made.st_dev;
    inode_ = made.st_ino;
    if (std::rename(file.constData(), QFile::encodeName(path_).constData()) != 0)
        return u"cannot create "_s + path_;
    return {};
}

void Server::accept() {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
        if (connections_.size() >= maximumConnections)
            delete connections_.takeFirst();
        auto* connection = new Connection(
            socket, [this](const QByteArrayList& arguments) { return handle(arguments); }, timeout_,
            this);
        connections_.append(connection);
        connect(socket, &QLocalSocket::disconnected, this, [this, connection] {
            connections_.removeOne(connection);
            connection->deleteLater();
        });
    }
}

Reply Server::handle(const QByteArrayList& arguments) {
    const auto open = std::ranges::count_if(connections_, &Connection::isUnderWay);
    const Moment now{.sinceStart = std::chrono::milliseconds(clock_.elapsed()),
                     .sinceEpoch = std::chrono::milliseconds(QDateTime::currentMSecsSinceEpoch())};
    return simulator_.handle(arguments, now, static_cast<int>(open));
}

} // namespace tarnwick::simulator
