// SPDX-License-Identifier: MIT
#include "tool/tool.h"

int main(int argc, char** argv) {
    return tarnwick::simulator::runTool({argv + 1, argv + argc});
}
