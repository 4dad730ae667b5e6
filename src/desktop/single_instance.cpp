// SPDX-License-Identifier: MIT
#include "desktop/single_instance.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>
#include <QTimer>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace tarnwick {

namespace {

constexpr qsizetype longestLine = 1024;
constexpr std::chrono::milliseconds retryInterval{50};
constexpr qsizetype mostCallers = 8;

// Returns whether there is something to read before the deadline; the end of the stream counts.
bool waitForText(const LocalSocket& socket, const QDeadlineTimer& deadline) {
    pollfd entry = {socket.descriptor(), POLLIN, 0};
    return poll(&entry, 1, static_cast<int>(deadline.remainingTime())) > 0;
}

QByteArray answerOn(const LocalSocket& socket, const QDeadlineTimer& deadline) {
    QByteArray answer;
    while (!answer.endsWith('\n') && waitForText(socket, deadline)) {
        const auto arrived = socket.read();
        if (!arrived)
            break;
        answer += *arrived;
    }
    return answer;
}

} // namespace

InstanceLock::InstanceLock(const QString& path)
    : descriptor_(open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    if (descriptor_ < 0)
        return;
    if (flock(descriptor_, LOCK_EX | LOCK_NB) == 0)
        state_ = State::Held;
    else if (errno == EWOULDBLOCK)
        state_ = State::HeldByOther;
}

// The file stays: were it removed, a third process could lock a new one beside a second that has
// just opened the old one.
InstanceLock::~InstanceLock() {
    if (descriptor_ >= 0)
        close(descriptor_);
}

/// The connection of a second launch. Deletes itself after its request, or after a time without.
class SingleInstanceChannel::Caller : public QObject {
public:
    Caller(LocalSocket socket, SingleInstanceChannel& channel)
        : QObject(&channel), socket_(std::move(socket)), channel_(channel),
          notifier_(socket_.descriptor(), QSocketNotifier::Read) {
        connect(&notifier_, &QSocketNotifier::activated, this, &Caller::read);
        QTimer::singleShot(channel.callerTimeout_, this, &QObject::deleteLater);
        channel_.callers_.append(this);
    }

    ~Caller() override { channel_.callers_.removeOne(this); }

    Caller(const Caller&) = delete;
    Caller& operator=(const Caller&) = delete;

private:
    void read() {
        const auto arrived = socket_.read();
        request_ += arrived.value_or(QByteArray());
        const qsizetype end = request_.indexOf('\n');
        if (arrived && end < 0 && request_.size() <= longestLine)
            return; // the line is not complete
        notifier_.setEnabled(false);
        deleteLater();
        const QByteArray line = request_.left(end).trimmed();
        if (end < 0 || (line != "show" && !line.startsWith("show ")))
            return;
        socket_.write("shown\n");
        Q_EMIT channel_.showRequested(line.mid(5));
    }

    LocalSocket socket_;
    SingleInstanceChannel& channel_;
    QSocketNotifier notifier_;
    QByteArray request_;
};

SingleInstanceChannel::SingleInstanceChannel(const QString& path,
                                             std::chrono::milliseconds callerTimeout)
    : path_(path), socket_(LocalSocket::listeningAt(path)), callerTimeout_(callerTimeout) {
    if (!socket_.isOpen())
        return;
    notifier_ = std::make_unique<QSocketNotifier>(socket_.descriptor(), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &SingleInstanceChannel::serve);
}

SingleInstanceChannel::~SingleInstanceChannel() {
    while (!callers_.isEmpty())
        delete callers_.constLast();
    if (socket_.isOpen())
        QFile::remove(path_);
}

void SingleInstanceChannel::serve() {
    LocalSocket caller = socket_.accept();
    if (caller.isOpen()) {
        // A real one sends its request at once: the oldest is one that keeps silent.
        if (callers_.size() == mostCallers)
            delete callers_.constFirst();
        new Caller(std::move(caller), *this);
        return;
    }
    // Out of descriptors. The connection stays pending: without a pause this would spin.
    notifier_->setEnabled(false);
    QTimer::singleShot(retryInterval, notifier_.get(), [this] { notifier_->setEnabled(true); });
}

bool SingleInstanceChannel::askToShow(const QString& path, const QByteArray& activationToken,
                                      std::chrono::milliseconds timeout) {
    const QByteArray request = "show " + activationToken.left(longestLine / 2).simplified() + '\n';
    const QDeadlineTimer deadline(timeout);
    while (!deadline.hasExpired()) {
        const LocalSocket socket = LocalSocket::connectedTo(path);
        if (socket.isOpen())
            return socket.write(request) && answerOn(socket, deadline) == "shown\n";
        QThread::msleep(static_cast<unsigned long>(retryInterval.count()));
    }
    return false;
}

} // namespace tarnwick
