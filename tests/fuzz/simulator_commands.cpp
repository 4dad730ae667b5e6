// SPDX-License-Identifier: MIT
// Any bytes as what a client of the simulated daemon sends: the first byte chooses between one raw
// request and a script, a line a command with its arguments parted by tabs.
#include "core/simulator.h"
#include "core/world_reader.h"
#include "property.h"
#include "protocol/messages.h"
#include "protocol/request_parser.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

using namespace tarnwick::simulator;
using namespace std::chrono_literals;
using tarnwick::fuzz::require;

namespace {

using Arguments = std::vector<std::string>;

constexpr std::size_t longestScript = 16;

Arguments split(std::string_view text, char separator) {
    Arguments pieces;
    while (true) {
        const std::size_t end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return pieces;
        text.remove_prefix(end + 1);
    }
}

const World& builtInWorld() {
    static const World world = *WorldReader().read(World::builtIn());
    return world;
}

/// A daemon whose clock moves on by half a second a command.
class Daemon {
public:
    Reply answer(const Arguments& arguments) {
        now_.sinceEpoch += 500ms;
        now_.sinceStart += 500ms;
        return simulator_.handle(arguments, now_);
    }

    Reply healthyAnswer(const Arguments& arguments) {
        answer({"simulator", "fault", "none"});
        return answer(arguments);
    }

private:
    Simulator simulator_{builtInWorld(), StateStore({}), {}, QStringLiteral("tarnwick0")};
    Moment now_{.sinceEpoch = 1'700'000'000s};
};

void checkReply(const Reply& reply) {
    if (reply.kind == Reply::Kind::Hang)
        return;
    const auto decoded = decodeReply(encodeReply(reply));
    require(decoded && decoded->kind == reply.kind && decoded->exitStatus == reply.exitStatus &&
                decoded->out == reply.out && decoded->err == reply.err,
            "a reply survives its way to the tool");
    require(reply.delay >= 0ms, "no reply is due before its request");
}

void checkRecovery(Daemon& daemon) {
    const Reply status = daemon.healthyAnswer({"status", "--json"});
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(status.out)).object();
    const QString state = document.value(u"BackendState").toString();
    require(QStringList({QStringLiteral("NeedsLogin"), QStringLiteral("Stopped"),
                         QStringLiteral("Starting"), QStringLiteral("Running")})
                .contains(state),
            "without faults the status is a document with a known state");
    const Reply list = daemon.healthyAnswer({"switch", "--list"});
    require(list.exitStatus == 0 && !list.out.empty(), "without faults the list has a header");
}

void runScript(std::string_view script) {
    Daemon daemon;
    Arguments lines = split(script, '\n');
    lines.resize(std::min(lines.size(), longestScript));
    for (const std::string& line : lines)
        checkReply(daemon.answer(split(line, '\t')));
    checkRecovery(daemon);
}

// The same request in one piece and byte by byte.
void sendRaw(std::string_view bytes) {
    RequestParser whole;
    const auto status = whole.feed(bytes);
    RequestParser pieces;
    for (const char byte : bytes)
        pieces.feed(std::string_view(&byte, 1));
    require(bytes.empty() || pieces.status() == status, "a request may come in any pieces");
    if (status != RequestParser::Status::Complete)
        return;
    require(pieces.arguments() == whole.arguments(), "pieces hold the same arguments");
    RequestParser again;
    again.feed(encodeRequest(whole.arguments()));
    require(again.status() == status && again.arguments() == whole.arguments(),
            "a request survives being sent");
    Daemon daemon;
    checkReply(daemon.answer(whole.arguments()));
    checkRecovery(daemon);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    if (data[0] == 'r')
        sendRaw(rest);
    else
        runScript(rest);
    return 0;
}
