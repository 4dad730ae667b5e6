// SPDX-License-Identifier: MIT
#include "platform/machine.h"
#include "support/printing.h"
#include "support/shell.h"

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

TEST(Machine, IsWhatTheSystemsOwnToolSays) {
    const QString expected = QString::fromUtf8(test::outputOf(test::shell("uname -m"))).trimmed();
    ASSERT_FALSE(expected.isEmpty());
    EXPECT_EQ(machineHardwareName(), expected);
}

} // namespace

} // namespace tarnwick
