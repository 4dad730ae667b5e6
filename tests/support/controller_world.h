// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"
#include "support/stub_tool.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace tarnwick::test {

/// What a controller lives in, made for one test: a home, a system with nothing installed, a stub
/// tool among the bundled programs, and short times.
///
/// Time limits are generous and intervals endless, so that nothing happens unless the test asks
/// for it. The tool prints what answer() was given, once the gate is open.
class ControllerWorld {
public:
    ControllerWorld();
    ~ControllerWorld();

    Platform platform;
    Timing timing;
    StubTool tool;

    QString homeDir() const { return directory_.filePath(QStringLiteral("home")); }

    QString bundleDir() const { return tool.directory(); }

    QString settingsFile() const { return directory_.filePath(QStringLiteral("client.conf")); }

    /// The paths that a controller has with the bundled tool.
    ToolPaths bundledPaths() const;

    DaemonManagerOptions options() const;
    std::shared_ptr<DaemonManager> create() const;

    /// The same, once its first refresh is over.
    std::shared_ptr<DaemonManager> createRefreshed() const;

    /// What the tool prints for `command`: "status", "list", or another subcommand.
    void answer(const char* command, const QByteArray& output) const;

    /// Makes the tool wait, or go on, before it prints; its calls are recorded all the same.
    void closeGate() const;
    void openGate() const;

    /// The details that are stored now, read afresh.
    ProfileDetailsMap storedDetails() const;
    void storeDetails(const ProfileDetailsMap& details) const;

    static QByteArray connectedStatus();
    static QByteArray stoppedStatus();
    static QByteArray profileList(); ///< p1, which is current, and p2.

private:
    QTemporaryDir directory_;
};

/// Waits until the refresh that is under way, or about to start, has published its outcome.
bool waitForRefresh(DaemonManager& manager);

/// Refreshes, with no other refresh under way, and waits for the outcome.
bool refresh(DaemonManager& manager, bool forceProfiles = false);

} // namespace tarnwick::test
