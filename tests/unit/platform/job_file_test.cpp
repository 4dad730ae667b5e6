// SPDX-License-Identifier: MIT
#include "platform/platform.h"
#include "support/printing.h"
#include "support/shell.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// The job descriptions, parsed by other programs.

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

const auto expectedText = uR"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
    <key>Label</key>
    <string>com.tarnwick.daemon</string>
    <key>Program</key>
    <string>/Library/Application Support/Tarnwick/tarnwick-daemon</string>
    <key>ProgramArguments</key>
    <array>
        <string>/Library/Application Support/Tarnwick/tarnwick-daemon</string>
        <string>--state=/Library/Application Support/Tarnwick/state.json</string>
        <string>--socket=/var/run/tarnwick.sock</string>
        <string>--tun=tarnwick0</string>
        <string>--no-logs-no-support</string>
    </array>
    <key>RunAtLoad</key>
    <true/>
    <key>KeepAlive</key>
    <true/>
    <key>EnvironmentVariables</key>
    <dict>
        <key>BROWSER</key>
        <string>echo</string>
    </dict>
    <key>StandardOutPath</key>
    <string>/Library/Logs/tarnwick-daemon.log</string>
    <key>StandardErrorPath</key>
    <string>/Library/Logs/tarnwick-daemon.log</string>
</dict>
</plist>
)"_s;

TEST(LaunchdPropertyList, IsThisTextByteForByte) {
    EXPECT_EQ(macOSPlatform().jobFileText, expectedText);
}

// The order of the keys counts as well: dictionaries compare by content, so lists are compared.
constexpr auto compareWithPython = R"(
import plistlib, sys
daemon = "/Library/Application Support/Tarnwick/tarnwick-daemon"
log = "/Library/Logs/tarnwick-daemon.log"
expected = {
    "Label": "com.tarnwick.daemon",
    "Program": daemon,
    "ProgramArguments": [daemon, "--state=/Library/Application Support/Tarnwick/state.json",
                         "--socket=/var/run/tarnwick.sock", "--tun=tarnwick0",
                         "--no-logs-no-support"],
    "RunAtLoad": True,
    "KeepAlive": True,
    "EnvironmentVariables": {"BROWSER": "echo"},
    "StandardOutPath": log,
    "StandardErrorPath": log,
}
with open(sys.argv[1], "rb") as file:
    found = plistlib.load(file, fmt=plistlib.FMT_XML)
print("same" if list(found.items()) == list(expected.items()) else found)
)";

TEST(LaunchdPropertyList, PythonReadsWhatIsMeant) {
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"job.plist"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(macOSPlatform().jobFileText.toUtf8());
    file.close();
    EXPECT_EQ(test::outputOf({u"/usr/bin/python3"_s,
                              {u"-c"_s, QString::fromUtf8(compareWithPython), file.fileName()}}),
              "same\n");
}

QString unitValue(const QString& name) {
    QStringList values;
    for (const QString& line : linuxPlatform().jobFileText.split(u'\n'))
        if (line.startsWith(name + u'='))
            values.append(line.mid(name.size() + 1));
    EXPECT_EQ(values.size(), 1) << name.toStdString();
    return values.value(0);
}

TEST(SystemdUnit, MeansTheSameAsThePropertyList) {
    EXPECT_EQ(unitValue(u"ExecStart"_s),
              u"/opt/tarnwick/tarnwick-daemon --state=/var/lib/tarnwick/state.json "
              "--socket=/var/run/tarnwick.sock --tun=tarnwick0 --no-logs-no-support"_s);
    EXPECT_EQ(unitValue(u"Environment"_s), u"BROWSER=echo"_s);
    EXPECT_EQ(unitValue(u"StateDirectory"_s), u"tarnwick"_s);
    EXPECT_EQ(unitValue(u"Restart"_s), u"always"_s) << "as KeepAlive";
    EXPECT_EQ(unitValue(u"WantedBy"_s), u"multi-user.target"_s) << "as RunAtLoad";
}

// systemd checks that the program exists, so it reads the unit in a root directory of its own.
TEST(SystemdUnit, SystemdItselfFindsNoFault) {
    const auto analyze = u"/usr/bin/systemd-analyze"_s;
    if (!QFile::exists(analyze))
        GTEST_SKIP() << "systemd-analyze is not installed: THE UNIT HAS NOT BEEN VERIFIED";
    // In a container it may be missing, and only root can make it.
    if (!QFileInfo::exists(u"/run/systemd"_s) && !QFileInfo(u"/run"_s).isWritable())
        GTEST_SKIP() << "systemd-analyze needs /run/systemd: THE UNIT HAS NOT BEEN VERIFIED";
    const QTemporaryDir root;
    const QDir directory(root.path());
    ASSERT_TRUE(directory.mkpath(u"opt/tarnwick"_s));
    ASSERT_TRUE(directory.mkpath(u"etc/systemd/system"_s));
    const auto write = [&](const QString& name, const QByteArray& content) {
        QFile file(directory.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    };
    const Platform linux = linuxPlatform();
    const auto program = u"opt/tarnwick/tarnwick-daemon"_s;
    write(program, "#!/bin/sh\n");
    QFile::setPermissions(directory.filePath(program), QFile::ReadOwner | QFile::ExeOwner);
    write(linux.installedJobFile.mid(1), linux.jobFileText.toUtf8());
    for (const auto& target :
         {u"multi-user"_s, u"network-online"_s, u"sysinit"_s, u"basic"_s, u"shutdown"_s})
        write(u"etc/systemd/system/"_s + target + u".target"_s, "[Unit]\nDescription=x\n");
    EXPECT_EQ(
        test::outputOf(
            {analyze, {u"verify"_s, u"--man=no"_s, u"--root="_s + root.path(), linux.jobFileName}}),
        "");
}

} // namespace

} // namespace tarnwick
