// SPDX-License-Identifier: MIT
#include "platform/computer_name.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

TEST(ComputerName, PrettyHostNameIsReadAsAShellWouldReadIt) {
    EXPECT_EQ(prettyHostname(u"PRETTY_HOSTNAME=Box\n"_s), u"Box"_s);
    EXPECT_EQ(prettyHostname(u"ICON_NAME=x\nPRETTY_HOSTNAME=\"Ada's Laptop\"\n"_s),
              u"Ada's Laptop"_s);
    EXPECT_EQ(prettyHostname(u"PRETTY_HOSTNAME='a \"b\" c'"_s), u"a \"b\" c"_s);
    EXPECT_EQ(prettyHostname(u"PRETTY_HOSTNAME=\"a \\\"b\\\" \\$c\""_s), u"a \"b\" $c"_s);
    EXPECT_EQ(prettyHostname(u"PRETTY_HOSTNAME=M\u00FCller"_s), u"M\u00FCller"_s);
}

TEST(ComputerName, WithoutAPrettyHostNameThereIsNone) {
    EXPECT_EQ(prettyHostname(u""_s), u""_s);
    EXPECT_EQ(prettyHostname(u"# PRETTY_HOSTNAME=x\nCHASSIS=laptop"_s), u""_s);
    EXPECT_EQ(prettyHostname(u"PRETTY_HOSTNAME="_s), u""_s);
}

TEST(ComputerName, ThisComputerHasOne) {
    EXPECT_FALSE(computerNameFromMachineInfo().isEmpty());
}

} // namespace

} // namespace tarnwick
