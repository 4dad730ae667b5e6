// SPDX-License-Identifier: MIT
#include "tool/usage.h"

#include <algorithm>
#include <array>

namespace tarnwick::simulator {

std::string_view usage() {
    return "Usage: tarnwick [--socket=PATH] COMMAND\n"
           "\n"
           "  status [--json]              show this device and the others\n"
           "  up, down                     connect, disconnect\n"
           "  login --login-server=URL --authkey KEY [--hostname NAME]\n"
           "  switch --list                list the profiles\n"
           "  switch ID                    make another profile the current one\n"
           "  debug localapi DELETE /localapi/v0/profiles/ID\n"
           "                               remove a profile\n"
           "\n"
           "Of the simulated daemon only:\n"
           "\n"
           "  simulator fault [SPEC...]    show or set the faults; \"none\" takes them away\n"
           "  simulator log [clear]        what was asked, one JSON object a line\n"
           "  simulator state              where the daemon stands, as JSON\n";
}

bool isKnownCommand(std::string_view name) {
    static constexpr std::array<std::string_view, 7> names = {
        "status", "up", "down", "login", "switch", "debug", "simulator"};
    return std::ranges::find(names, name) != names.end();
}

} // namespace tarnwick::simulator
