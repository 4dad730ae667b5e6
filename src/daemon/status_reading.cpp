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

StatusReading StatusReading::take(const CommandRunner& runner, bool readsProfiles,
                                  const std::optional<NetworkProfileDetails>& known,
                                  const StatusReading& previous) {
    StatusReading reading;
    reading.output = runner.runCLI({u"status"_s, u"--json"_s});
    const bool isNew = reading.output != previous.output;
    reading.status = isNew ? StatusResponse::decode(reading.output) : previous.status;
    if (reading.status)
        reading.devices = isNew ? reading.status->devices() : previous.devices;
    if (readsProfiles || (reading.status && hasOtherDetails(*reading.status, known)))
        reading.profiles =
            parseProfileList(textFromUtf8(runner.runCLI({u"switch"_s, u"--list"_s})));
    return reading;
}

} // namespace tarnwick
