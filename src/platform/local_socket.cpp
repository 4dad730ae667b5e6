// SPDX-License-Identifier: MIT
#include "platform/local_socket.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace tarnwick {

namespace {

constexpr int backlog = 16;

struct Address {
    sockaddr_un value = {};
    socklen_t size = sizeof(sockaddr_un);

    const sockaddr* generic() const { return reinterpret_cast<const sockaddr*>(&value); }
};

// Empty when the path is too long for the system.
std::optional<Address> addressOf(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    Address address;
    if (static_cast<std::size_t>(name.size()) >= sizeof(address.value.sun_path))
        return std::nullopt;
    address.value.sun_family = AF_UNIX;
    std::memcpy(address.value.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    if (name.startsWith('\0')) // no file, and every character counts
        address.size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) +
                       static_cast<socklen_t>(name.size());
    return address;
}

} // namespace

LocalSocket::LocalSocket(int descriptor) : descriptor_(descriptor) {
    if (descriptor < 0)
        return;
    fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    fcntl(descriptor, F_SETFL, O_NONBLOCK);
    std::signal(SIGPIPE, SIG_IGN); // writing to a closed connection fails instead
}

LocalSocket::LocalSocket(LocalSocket&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

LocalSocket& LocalSocket::operator=(LocalSocket&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

LocalSocket::~LocalSocket() {
    if (isOpen())
        close(descriptor_);
}

LocalSocket LocalSocket::listeningAt(const QString& path) {
    const auto address = addressOf(path);
    if (!address)
        return {};
    LocalSocket socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    unlink(address->value.sun_path);
    // The mode is set before it listens, so nobody connects with an earlier one.
    if (bind(socket.descriptor_, address->generic(), address->size) != 0 ||
        chmod(address->value.sun_path, S_IRUSR | S_IWUSR) != 0 ||
        listen(socket.descriptor_, backlog) != 0)
        return {};
    return socket;
}

LocalSocket LocalSocket::connectedTo(const QString& path) {
    const auto address = addressOf(path);
    if (!address)
        return {};
    LocalSocket socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    if (connect(socket.descriptor_, address->generic(), address->size) != 0)
        return {};
    return socket;
}

LocalSocket LocalSocket::accept() const {
    return LocalSocket(::accept(descriptor_, nullptr, nullptr));
}

std::optional<QByteArray> LocalSocket::read() const {
    std::array<char, 1024> block;
    ssize_t count = 0;
    do {
        count = ::read(descriptor_, block.data(), block.size());
    } while (count < 0 && errno == EINTR);
    if (count > 0)
        return QByteArray(block.data(), count);
    if (count < 0 && errno == EAGAIN)
        return QByteArray();
    return std::nullopt;
}

bool LocalSocket::write(const QByteArray& text) const {
    ssize_t count = 0;
    do {
        count = ::write(descriptor_, text.constData(), static_cast<std::size_t>(text.size()));
    } while (count < 0 && errno == EINTR);
    return count == text.size();
}

} // namespace tarnwick
