// SPDX-License-Identifier: MIT
#include "tool/tool.h"

#include "protocol/messages.h"
#include "tool/daemon_connection.h"
#include "tool/usage.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <sys/resource.h>

namespace tarnwick::simulator {

namespace {

void print(std::FILE* stream, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
}

int fail(const std::string& sentence) {
    print(stderr, sentence + '\n');
    return 1;
}

[[noreturn]] void flood(const std::string& text) {
    for (;;)
        print(stdout, text);
}

[[noreturn]] void crash() {
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    std::abort();
}

int carryOut(const Reply& reply) {
    if (reply.kind == Reply::Kind::Flood)
        flood(reply.out);
    if (reply.kind == Reply::Kind::Crash)
        crash();
    print(stdout, reply.out);
    print(stderr, reply.err);
    return reply.exitStatus;
}

} // namespace

int runTool(std::vector<std::string> arguments) {
    std::string socketPath = "/var/run/tarnwick.sock";
    constexpr std::string_view socketFlag = "--socket=";
    if (!arguments.empty() && arguments.front().starts_with(socketFlag)) {
        socketPath = arguments.front().substr(socketFlag.size());
        arguments.erase(arguments.begin());
    }
    if (arguments.empty() || arguments.front() == "--help") {
        print(arguments.empty() ? stderr : stdout, usage());
        return arguments.empty() ? 1 : 0;
    }
    if (!isKnownCommand(arguments.front()))
        return fail("error: unknown command \"" + arguments.front() + "\"");

    const DaemonConnection::Answer answer = DaemonConnection::ask(socketPath, arguments);
    if (!answer.failure.empty())
        return fail("failed to connect to the local daemon at " + socketPath +
                    "; error: " + answer.failure);
    const auto reply = decodeReply(answer.bytes);
    if (!reply)
        return fail("error: the daemon closed the connection without a full answer");
    return carryOut(*reply);
}

} // namespace tarnwick::simulator
