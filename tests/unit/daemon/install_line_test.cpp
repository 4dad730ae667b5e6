// SPDX-License-Identifier: MIT
#include "daemon/daemon_installer.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

TEST(InstallLine, OfMacOSCharacterForCharacter) {
    EXPECT_EQ(DaemonInstaller::installLine(
                  macOSPlatform(),
                  {u"/b/tarnwick-darwin-arm64"_s, u"/b/tarnwick-daemon-darwin-arm64"_s},
                  u"/b/../Resources/com.tarnwick.daemon.plist"_s),
              u"mkdir -p '/Library/Application Support/Tarnwick' && "
              "cp '/b/tarnwick-daemon-darwin-arm64' "
              "'/Library/Application Support/Tarnwick/tarnwick-daemon' && "
              "cp '/b/tarnwick-darwin-arm64' '/Library/Application Support/Tarnwick/tarnwick' && "
              "chmod +x '/Library/Application Support/Tarnwick/tarnwick-daemon' && "
              "chmod +x '/Library/Application Support/Tarnwick/tarnwick' && "
              "mkdir -p /var/run && "
              "cp '/b/../Resources/com.tarnwick.daemon.plist' "
              "'/Library/LaunchDaemons/com.tarnwick.daemon.plist' && "
              "launchctl load /Library/LaunchDaemons/com.tarnwick.daemon.plist"_s);
}

TEST(InstallLine, OfLinuxCharacterForCharacter) {
    EXPECT_EQ(DaemonInstaller::installLine(
                  linuxPlatform(),
                  {u"/b/tarnwick-linux-amd64"_s, u"/b/tarnwick-daemon-linux-amd64"_s},
                  u"/home/a b/.tarnwick/tarnwick-daemon.service"_s),
              u"mkdir -p '/opt/tarnwick' && "
              "cp '/b/tarnwick-daemon-linux-amd64' '/opt/tarnwick/tarnwick-daemon' && "
              "cp '/b/tarnwick-linux-amd64' '/opt/tarnwick/tarnwick' && "
              "chmod +x '/opt/tarnwick/tarnwick-daemon' && "
              "chmod +x '/opt/tarnwick/tarnwick' && "
              "mkdir -p /var/run && "
              "cp '/home/a b/.tarnwick/tarnwick-daemon.service' "
              "'/etc/systemd/system/tarnwick-daemon.service' && "
              "systemctl daemon-reload && systemctl enable --now tarnwick-daemon.service"_s);
}

TEST(InstallLine, QuotesInPathsAreNotEscaped) {
    EXPECT_TRUE(
        DaemonInstaller::installLine(linuxPlatform(), {u"/it's/t"_s, u"/a \"b\"/d"_s}, u"/j"_s)
            .contains(u"cp '/a \"b\"/d' '/opt/tarnwick/tarnwick-daemon' && cp '/it's/t' '"_s));
}

} // namespace

} // namespace tarnwick
