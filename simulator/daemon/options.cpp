// SPDX-License-Identifier: MIT
#include "daemon/options.h"

#include <string_view>

namespace tarnwick::simulator {

namespace {

/// Whether `argument` is `flag` (which ends in "=") with a value, and if so the value.
bool take(std::string_view argument, std::string_view flag, std::string& value) {
    if (!argument.starts_with(flag))
        return false;
    value = argument.substr(flag.size());
    return true;
}

} // namespace

Options Options::parse(const std::vector<std::string>& arguments) {
    Options options;
    for (const std::string& argument : arguments) {
        std::string value;
        if (argument == "--help")
            options.help = true;
        else if (argument == "--print-world")
            options.printWorld = true;
        else if (take(argument, "--state=", value))
            options.statePath = QString::fromStdString(value);
        else if (take(argument, "--socket=", value))
            options.socketPath = value;
        else if (take(argument, "--tun=", value))
            options.tun = QString::fromStdString(value);
        else if (take(argument, "--world=", value))
            options.worldPath = QString::fromStdString(value);
        else if (take(argument, "--fault=", value)) {
            if (!options.faults.set(QString::fromStdString(value)))
                options.problem = "\"" + value + "\" is no fault; see --help";
        } else if (argument != "--no-logs-no-support")
            options.problem = "unknown option \"" + argument + "\"; see --help";
    }
    return options;
}

const char* Options::usage() {
    return "Usage: tarnwick-daemon [OPTION...]\n"
           "\n"
           "A stand-in for the network daemon. It touches no network.\n"
           "\n"
           "  --socket=PATH           where the tool finds it (/var/run/tarnwick.sock)\n"
           "  --state=FILE            what it keeps across restarts\n"
           "  --tun=NAME              name of the network interface it pretends to have\n"
           "  --no-logs-no-support    accepted and ignored\n"
           "  --world=FILE            networks, accounts, peers and auth keys, as JSON\n"
           "  --fault=FAULT[@COMMAND] go wrong, in all commands or in one; may be repeated\n"
           "  --print-world           print the built-in world, to start another from, and end\n"
           "\n"
           "FAULT is hang, slow:SECONDS, garbage, flood, error, crash or none.\n"
           "COMMAND is status, list, switch, up, down, login or remove.\n";
}

} // namespace tarnwick::simulator
