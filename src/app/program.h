// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Does what the command line asks for and returns the exit status. To be called once, from main.
int runProgram(int argc, char** argv);

} // namespace tarnwick
