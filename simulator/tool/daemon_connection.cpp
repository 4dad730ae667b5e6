// SPDX-License-Identifier: MIT
#include "tool/daemon_connection.h"

#include "protocol/messages.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarnwick::simulator {

namespace {

bool connectTo(int descriptor, const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::memcpy(address.sun_path, path.data(), path.size());
    int result = 0;
    do
        result = connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

void sendAll(int descriptor, std::string_view bytes) {
    // A daemon that hangs up early may still have answered, so a failed write ends only the
    // writing.
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            break;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    std::signal(SIGPIPE, before);
}

std::string receiveAll(int descriptor) {
    std::string bytes;
    std::array<char, 16384> chunk;
    for (;;) {
        const ssize_t count = read(descriptor, chunk.data(), chunk.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return bytes;
        bytes.append(chunk.data(), static_cast<std::size_t>(count));
    }
}

} // namespace

DaemonConnection::Answer DaemonConnection::ask(const std::string& socketPath,
                                               const std::vector<std::string>& arguments) {
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    if (descriptor < 0)
        return {.failure = std::strerror(errno)};
    Answer answer;
    if (connectTo(descriptor, socketPath)) {
        sendAll(descriptor, encodeRequest(arguments));
        answer.bytes = receiveAll(descriptor);
    } else {
        answer.failure = std::strerror(errno);
    }
    close(descriptor);
    return answer;
}

} // namespace tarnwick::simulator
