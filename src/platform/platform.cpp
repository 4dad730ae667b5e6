// SPDX-License-Identifier: MIT
#include "platform/platform.h"

#include <sys/utsname.h>

namespace tarnwick {

QString Platform::variantSuffix(const QString& machine) const {
    const bool isArm64 = arm64Machines.contains(machine);
    return systemName + (isArm64 ? QStringLiteral("-arm64") : QStringLiteral("-amd64"));
}

Platform hostPlatform() {
#ifdef __APPLE__
    return macOSPlatform();
#else
    return linuxPlatform();
#endif
}

QString machineHardwareName() {
    utsname record = {}; // zero-filled, so that a failed call reads as ""
    uname(&record);
    return QString::fromLocal8Bit(record.machine);
}

} // namespace tarnwick
