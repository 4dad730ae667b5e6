// SPDX-License-Identifier: MIT
#include "platform/platform.h"

namespace tarnwick {

QString Platform::variantSuffix(const QString& machine) const {
    const bool isArm64 = arm64Machines.contains(machine);
    return systemName + (isArm64 ? QStringLiteral("-arm64") : QStringLiteral("-amd64"));
}

} // namespace tarnwick
