// SPDX-License-Identifier: MIT
#include "platform/platform.h"
#include "support/printing.h"
#include "support/shell.h"

#include <QSysInfo>

#include <gtest/gtest.h>

// Both systems' descriptions, on whichever system the tests run.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

TEST(MacOSPlatform, PathsAndNames) {
    const Platform mac = macOSPlatform();
    EXPECT_EQ(mac.systemSocket, u"/var/run/tarnwick.sock"_s);
    EXPECT_EQ(mac.installDir, u"/Library/Application Support/Tarnwick"_s);
    EXPECT_EQ(mac.jobFileName, u"com.tarnwick.daemon.plist"_s);
    EXPECT_EQ(mac.installedJobFile, u"/Library/LaunchDaemons/com.tarnwick.daemon.plist"_s);
    EXPECT_EQ(mac.bundledJobDirectory, u"/../Resources/"_s);
    EXPECT_EQ(mac.nudgeDaemon,
              (CommandLine{u"/bin/launchctl"_s, {u"start"_s, u"com.tarnwick.daemon"_s}}));
}

TEST(MacOSPlatform, OnlyArm64MeansAppleSilicon) {
    const Platform mac = macOSPlatform();
    EXPECT_EQ(mac.variantSuffix(u"arm64"_s), u"darwin-arm64"_s);
    for (const auto& machine : {u"x86_64"_s, u"aarch64"_s, u"ARM64"_s, u"arm64e"_s, u""_s})
        EXPECT_EQ(mac.variantSuffix(machine), u"darwin-amd64"_s);
}

TEST(MacOSPlatform, AppleScriptEscapesDoubleQuotesAlone) {
    const CommandLine command = macOSPlatform().authorise(u"cp '/a \"b\"/\\c' '$d'"_s);
    EXPECT_EQ(command.program, u"/usr/bin/osascript"_s);
    EXPECT_EQ(command.arguments,
              (QStringList{u"-e"_s, u"do shell script \"cp '/a \\\"b\\\"/\\c' '$d'\" with "
                                    "administrator privileges"_s}));
}

TEST(LinuxPlatform, PathsAndNames) {
    const Platform linux = linuxPlatform();
    EXPECT_EQ(linux.systemSocket, u"/var/run/tarnwick.sock"_s);
    EXPECT_EQ(linux.installDir, u"/opt/tarnwick"_s);
    EXPECT_EQ(linux.jobFileName, u"tarnwick-daemon.service"_s);
    EXPECT_EQ(linux.installedJobFile, u"/etc/systemd/system/tarnwick-daemon.service"_s);
    EXPECT_EQ(linux.bundledJobDirectory, u"/../share/tarnwick/"_s);
    EXPECT_EQ(linux.nudgeDaemon,
              (CommandLine{u"/usr/bin/systemctl"_s,
                           {u"--no-ask-password"_s, u"start"_s, u"tarnwick-daemon.service"_s}}));
}

TEST(LinuxPlatform, BothNamesOfA64BitArmProcessorMeanArm64) {
    const Platform linux = linuxPlatform();
    EXPECT_EQ(linux.variantSuffix(u"aarch64"_s), u"linux-arm64"_s);
    EXPECT_EQ(linux.variantSuffix(u"arm64"_s), u"linux-arm64"_s);
    for (const auto& machine : {u"x86_64"_s, u"armv7l"_s, u"Aarch64"_s, u""_s})
        EXPECT_EQ(linux.variantSuffix(machine), u"linux-amd64"_s);
}

TEST(LinuxPlatform, PolicyKitGetsTheLineAsOneArgumentOfAShell) {
    const auto line = u"cp '/a \"b\"' \"$c\""_s;
    EXPECT_EQ(linuxPlatform().authorise(line),
              (CommandLine{u"/usr/bin/pkexec"_s,
                           {u"--disable-internal-agent"_s, u"/bin/sh"_s, u"-c"_s, line}}));
}

// There QSettings stores "/" as "." and "." as "\u00b7".
TEST(MacOSPlatform, RememberedDetailsAreStoredUnderTheSameNameAsOnLinux) {
    const QString name = u"tarnwick.profileDetails"_s;
    EXPECT_EQ(macOSPlatform().profileDetailsKey.replace(u'.', u'\u00b7').replace(u'/', u'.'), name);
    EXPECT_EQ(linuxPlatform().profileDetailsKey, name);
}

TEST(HostPlatform, IsTheOneOfThisSystem) {
    EXPECT_EQ(hostPlatform().systemName, QSysInfo::kernelType());
}

TEST(MachineHardwareName, IsWhatTheSystemsOwnToolSays) {
    const QString expected = QString::fromUtf8(test::outputOf(test::shell("uname -m"))).trimmed();
    ASSERT_FALSE(expected.isEmpty());
    EXPECT_EQ(machineHardwareName(), expected);
}

} // namespace

} // namespace tarnwick
