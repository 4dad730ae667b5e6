// SPDX-License-Identifier: MIT
#include "daemon/tool_paths.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

class ToolPathsTest : public testing::Test {
protected:
    ToolPathsTest() {
        const QDir directory(root_.path());
        directory.mkpath(u"installed"_s);
        directory.mkpath(u"bundle"_s);
        mac_.installDir = root_.filePath(u"installed"_s);
    }

    void makeFile(const QString& name) const {
        QFile file(root_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    ToolPaths resolved(const QString& machine = u"arm64"_s) const {
        return ToolPaths::resolve(mac_, machine, root_.filePath(u"bundle"_s), u"/home/ada"_s);
    }

    QString inBundle(const QString& name) const { return root_.filePath(u"bundle/"_s + name); }

    Platform mac_ = macOSPlatform();
    QTemporaryDir root_;
};

TEST_F(ToolPathsTest, BundledCopiesAreThoseOfTheProcessor) {
    makeFile(u"bundle/tarnwick-daemon-darwin-arm64"_s);
    makeFile(u"bundle/tarnwick-darwin-arm64"_s);
    EXPECT_EQ(resolved(u"arm64"_s), (ToolPaths{inBundle(u"tarnwick-darwin-arm64"_s),
                                               inBundle(u"tarnwick-daemon-darwin-arm64"_s)}));

    makeFile(u"bundle/tarnwick-daemon-darwin-amd64"_s);
    makeFile(u"bundle/tarnwick-darwin-amd64"_s);
    EXPECT_EQ(resolved(u"x86_64"_s), (ToolPaths{inBundle(u"tarnwick-darwin-amd64"_s),
                                                inBundle(u"tarnwick-daemon-darwin-amd64"_s)}));
}

TEST_F(ToolPathsTest, DevelopmentPathsAreTakenUncheckedWhenNeitherOtherDaemonExists) {
    const auto directory = u"/home/ada/Development/kvo-term/harrowgate-client/daemon/dist/"_s;
    const ToolPaths expected = {directory + u"tarnwick-darwin-arm64"_s,
                                directory + u"tarnwick-daemon-darwin-arm64"_s};
    EXPECT_EQ(resolved(), expected);
    makeFile(u"bundle/tarnwick-darwin-arm64"_s); // a bundled tool without a daemon does not count
    EXPECT_EQ(resolved(), expected);
}

TEST_F(ToolPathsTest, BundledToolIsAssumedBesideItsDaemon) {
    makeFile(u"bundle/tarnwick-daemon-darwin-arm64"_s);
    EXPECT_EQ(resolved().cliPath, inBundle(u"tarnwick-darwin-arm64"_s));
}

TEST_F(ToolPathsTest, InstalledCopiesComeFirstWhenBothExist) {
    makeFile(u"bundle/tarnwick-daemon-darwin-arm64"_s);
    makeFile(u"installed/tarnwick-daemon"_s);
    EXPECT_EQ(resolved().daemonPath, inBundle(u"tarnwick-daemon-darwin-arm64"_s));
    EXPECT_FALSE(ToolPaths::installed(mac_).exist());
    makeFile(u"installed/tarnwick"_s);
    EXPECT_EQ(resolved(), (ToolPaths{root_.filePath(u"installed/tarnwick"_s),
                                     root_.filePath(u"installed/tarnwick-daemon"_s)}));
    EXPECT_TRUE(ToolPaths::installed(mac_).exist());
}

TEST_F(ToolPathsTest, LinuxCopiesCarryTheLinuxSuffix) {
    Platform linux = linuxPlatform();
    linux.installDir = mac_.installDir;
    const auto paths = ToolPaths::resolve(linux, u"aarch64"_s, u"."_s, u"/home/ada"_s);
    EXPECT_TRUE(paths.cliPath.endsWith(u"/dist/tarnwick-linux-arm64"_s));
    EXPECT_TRUE(paths.daemonPath.endsWith(u"/dist/tarnwick-daemon-linux-arm64"_s));
}

} // namespace

} // namespace tarnwick
