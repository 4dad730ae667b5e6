// SPDX-License-Identifier: MIT
// Any bytes as what a client of the simulated daemon sends: the first byte chooses between one raw
// request and a script, a line a command with its arguments parted by tabs.
#include "core/simulator.h"
#include "property.h"
#include "protocol/messages.h"

#include <QByteArrayList>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstddef>
#include <cstdint>

using namespace tarnwick::simulator;
using namespace std::chrono_literals;
using tarnwick::fuzz::require;

namespace {

constexpr qsizetype longestScript = 16;

const World& builtInWorld() {
    QString problem;
    static const World world = *World::load(World::builtIn(), problem);
    return world;
}

/// A daemon whose clock moves on by half a second a command.
class Daemon {
public:
    Reply answer(const QByteArrayList& arguments) {
        now_.sinceEpoch += 500ms;
        now_.sinceStart += 500ms;
        return simulator_.handle(arguments, now_);
    }

    Reply healthyAnswer(const QByteArrayList& arguments) {
        answer({"simulator", "fault", "none"});
        return answer(arguments);
    }

private:
    Simulator simulator_{builtInWorld(), {}, {}, QStringLiteral("tarnwick0")};
    Moment now_{.sinceEpoch = 1'700'000'000s};
};

void checkReply(const Reply& reply) {
    if (reply.kind == Reply::Kind::Hang)
        return;
    const auto decoded = Reply::decode(reply.encode());
    require(decoded && decoded->kind == reply.kind && decoded->exitStatus == reply.exitStatus &&
                decoded->out == reply.out && decoded->err == reply.err,
            "a reply survives its way to the tool");
    require(reply.delay >= 0ms, "no reply is due before its request");
}

void checkRecovery(Daemon& daemon) {
    const Reply status = daemon.healthyAnswer({"status", "--json"});
    const auto document = QJsonDocument::fromJson(status.out).object();
    const QString state = document.value(u"BackendState").toString();
    require(QStringList({QStringLiteral("NeedsLogin"), QStringLiteral("Stopped"),
                         QStringLiteral("Starting"), QStringLiteral("Running")})
                .contains(state),
            "without faults the status is a document with a known state");
    const Reply list = daemon.healthyAnswer({"switch", "--list"});
    require(list.exitStatus == 0 && !list.out.isEmpty(), "without faults the list has a header");
}

void runScript(const QByteArray& script) {
    Daemon daemon;
    for (const QByteArray& line : script.split('\n').mid(0, longestScript))
        checkReply(daemon.answer(line.split('\t')));
    checkRecovery(daemon);
}

// The same request whole and in part: every part of a header, ever fewer of what follows it.
void sendRaw(const QByteArray& bytes) {
    const Request whole = Request::decode(bytes);
    for (qsizetype size = 0; size < bytes.size(); size += 1 + size / 100) {
        const Request part = Request::decode(bytes.first(size));
        require(part.status == Request::Status::Incomplete ||
                    (part.status == whole.status && part.arguments == whole.arguments),
                "a request may come in any pieces");
    }
    if (whole.status != Request::Status::Complete)
        return;
    const Request again = Request::decode(Request::encode(whole.arguments));
    require(again.status == whole.status && again.arguments == whole.arguments,
            "a request survives being sent");
    Daemon daemon;
    checkReply(daemon.answer(whole.arguments));
    checkRecovery(daemon);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const QByteArray rest(reinterpret_cast<const char*>(data) + 1,
                          static_cast<qsizetype>(size - 1));
    if (data[0] == 'r')
        sendRaw(rest);
    else
        runScript(rest);
    return 0;
}
