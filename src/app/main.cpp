// SPDX-License-Identifier: MIT
#include "app/program.h"

int main(int argc, char** argv) {
    return tarnwick::runProgram(argc, argv);
}
