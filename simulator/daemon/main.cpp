// SPDX-License-Identifier: MIT
#include "daemon/daemon.h"

int main(int argc, char** argv) {
    return tarnwick::simulator::runDaemon({argv + 1, argv + argc});
}
