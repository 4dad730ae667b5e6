// SPDX-License-Identifier: MIT
#include "daemon/status_reading.h"

#include "daemon/command_runner.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

bool hasOtherDetails(const StatusResponse& status,
                     const std::optional<NetworkProfileDetails>& known) {
    const NetworkProfileDetails details = {status.ipAddress(), status.hostname()};
    return status.isConnected() && details != NetworkProfileDetails() && details != known;
}

} // namespace

DecodedStatus DecodedStatus::of(const QByteArray& output) {
    DecodedStatus decoded = {output, StatusResponse::decode(output), {}};
    if (decoded.status) {
        decoded.devices = decoded.status->devices();
        decoded.status->peer.reset(); // a large network is kept once
    }
    return decoded;
}

StatusReading StatusReading::take(const CommandRunner& runner, bool readsProfiles,
                                  const std::optional<NetworkProfileDetails>& known,
                                  const DecodedStatus& previous) {
    const QByteArray output = runner.runCLI({u"status"_s, u"--json"_s});
    StatusReading reading = {output == previous.output ? previous : DecodedStatus::of(output), {}};
    const auto& status = reading.answer.status;
    if (readsProfiles || (status && hasOtherDetails(*status, known)))
        reading.profiles =
            parseProfileList(textFromUtf8(runner.runCLI({u"switch"_s, u"--list"_s})));
    return reading;
}

} // namespace tarnwick
