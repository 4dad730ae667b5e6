// SPDX-License-Identifier: MIT
#include "protocol/messages.h"

#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>

// The tool passes its command line to the daemon and does what it answers. It has no application
// object, which would make it slower to start.

using namespace Qt::StringLiterals;

namespace tarnwick::simulator {

namespace {

constexpr char usage[] =
    R"(Usage: tarnwick [--socket=PATH] COMMAND

  status [--json]              show this device and the others
  up, down                     connect, disconnect
  login --login-server=URL --authkey KEY [--hostname NAME]
  switch --list                list the profiles
  switch ID                    make another profile the current one
  debug localapi DELETE /localapi/v0/profiles/ID
                               remove a profile

Of the simulated daemon only:

  simulator fault [SPEC...]    show or set the faults; "none" takes them away
  simulator log [clear]        what was asked, one JSON object a line
  simulator state              where the daemon stands, as JSON
)";

void print(std::FILE* stream, const QByteArray& text) {
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stream);
    std::fflush(stream);
}

int fail(const QByteArray& sentence) {
    print(stderr, sentence + '\n');
    return 1;
}

[[noreturn]] void flood(const QByteArray& text) {
    for (;;)
        print(stdout, text);
}

[[noreturn]] void crash() {
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    std::abort();
}

/// Why the daemon could not be reached, in the system's words: Qt's differ.
QByteArray reason(const QLocalSocket& socket) {
    switch (socket.error()) {
    case QLocalSocket::ServerNotFoundError:
        return "No such file or directory";
    case QLocalSocket::ConnectionRefusedError:
        return "Connection refused";
    case QLocalSocket::SocketAccessError:
        return "Permission denied";
    default:
        return socket.errorString().toLocal8Bit();
    }
}

/// Waits for the answer without a limit: whoever runs the tool has its own.
int ask(const QByteArray& socketPath, const QByteArrayList& arguments) {
    QLocalSocket socket;
    socket.connectToServer(QFileInfo(QFile::decodeName(socketPath)).absoluteFilePath());
    if (!socket.waitForConnected(-1))
        return fail("failed to connect to the local daemon at " + socketPath +
                    "; error: " + reason(socket));
    socket.write(Request::encode(arguments));
    while (socket.waitForReadyRead(-1)) {
    }
    std::signal(SIGPIPE, SIG_DFL); // Qt has set it to be ignored
    const std::optional<Reply> reply = Reply::decode(socket.readAll());
    if (!reply)
        return fail("error: the daemon closed the connection without a full answer");
    if (reply->kind == Reply::Kind::Flood)
        flood(reply->out);
    if (reply->kind == Reply::Kind::Crash)
        crash();
    print(stdout, reply->out);
    print(stderr, reply->err);
    return reply->exitStatus;
}

int run(QByteArrayList arguments) {
    QByteArray socketPath = "/var/run/tarnwick.sock";
    constexpr QByteArrayView socketFlag = "--socket=";
    if (arguments.value(0).startsWith(socketFlag))
        socketPath = arguments.takeFirst().sliced(socketFlag.size());
    if (arguments.isEmpty() || arguments.first() == "--help") {
        print(arguments.isEmpty() ? stderr : stdout, usage);
        return arguments.isEmpty() ? 1 : 0;
    }
    const QByteArrayList commands{"status", "up", "down", "login", "switch", "debug", "simulator"};
    if (!commands.contains(arguments.first()))
        return fail("error: unknown command \"" + arguments.first() + "\"");
    return ask(socketPath, arguments);
}

} // namespace

} // namespace tarnwick::simulator

int main(int argc, char** argv) {
    return tarnwick::simulator::run(QByteArrayList(argv + 1, argv + argc));
}
