// SPDX-License-Identifier: MIT
#include "platform/machine.h"

#include <sys/utsname.h>

namespace tarnwick {

QString machineHardwareName() {
    utsname record = {}; // zero-filled, so that a failed call reads as ""
    uname(&record);
    return QString::fromLocal8Bit(record.machine);
}

} // namespace tarnwick
