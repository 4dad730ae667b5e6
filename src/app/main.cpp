// SPDX-License-Identifier: MIT
#include "app/command_line_options.h"

int main() {
    return 0;
}
