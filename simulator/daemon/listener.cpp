// SPDX-License-Identifier: MIT
#include "daemon/listener.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarnwick::simulator {

namespace {

sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.data(), path.size());
    return address;
}

bool connectTo(int descriptor, const std::string& path) {
    const sockaddr_un address = addressOf(path);
    return connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

std::string platformText(const std::string& what) {
    return what + ": " + std::strerror(errno);
}

} // namespace

Listener::~Listener() {
    struct stat now {};

    if (socket_.isOpen() && lstat(path_.c_str(), &now) == 0 && now.st_dev == device_ &&
        now.st_ino == inode_)
        unlink(path_.c_str());
}

std::string Listener::open() {
    if (path_.empty() || path_.size() >= sizeof(sockaddr_un::sun_path))
        return "the socket's path is empty or too long: " + path_;
    std::error_code ignored; // a directory that is missing all the same shows when binding
    const auto directory = std::filesystem::path(path_).parent_path();
    if (!directory.empty())
        std::filesystem::create_directories(directory, ignored);
    const std::string obstacle = clearTheWay();
    return obstacle.empty() ? bindAndListen() : obstacle;
}

std::string Listener::clearTheWay() const {
    struct stat there {};

    if (lstat(path_.c_str(), &there) != 0)
        return {};
    if (!S_ISSOCK(there.st_mode))
        return path_ + " is not a socket; it is left alone";
    const Descriptor probe(socket(AF_UNIX, SOCK_STREAM, 0));
    probe.setNonBlocking();
    // EAGAIN: somebody listens there who is too busy to take one more.
    if (connectTo(probe.get(), path_) || errno == EAGAIN)
        return "another daemon already answers at " + path_;
    if (errno != ECONNREFUSED)
        return platformText("cannot tell whether a daemon answers at " + path_);
    return unlink(path_.c_str()) == 0 ? std::string() : platformText("cannot remove " + path_);
}

std::string Listener::bindAndListen() {
    Descriptor listening(socket(AF_UNIX, SOCK_STREAM, 0));
    listening.setNonBlocking();
    const sockaddr_un address = addressOf(path_);
    if (bind(listening.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return platformText("cannot create " + path_);
    // A system daemon serves every user of the machine, anyone else's only its owner.
    chmod(path_.c_str(), geteuid() == 0 ? 0666 : 0600);

    struct stat made {};

    if (lstat(path_.c_str(), &made) != 0 || listen(listening.get(), SOMAXCONN) != 0)
        return platformText("cannot listen at " + path_);
    socket_ = std::move(listening);
    device_ = made.st_dev;
    inode_ = made.st_ino;
    return {};
}

Descriptor Listener::accept() const {
    Descriptor connection(::accept(socket_.get(), nullptr, nullptr));
    if (connection.isOpen())
        connection.setNonBlocking();
    return connection;
}

} // namespace tarnwick::simulator
