// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/command_runner.h"
#include "daemon/connection_commands.h"
#include "daemon/daemon_installer.h"
#include "daemon/published_state.h"
#include "daemon/refresh_bookkeeping.h"
#include "daemon/remembered_details.h"
#include "daemon/status_reading.h"
#include "platform/queues.h"

#include <QSettings>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tarnwick {

/// What a controller is made of, with the real things as defaults.
struct DaemonManagerOptions {
    Platform platform = hostPlatform();
    Timing timing = {};
    QString bundleDir = executableDir(); ///< Where bundled executables are looked for.
    QString homeDir = userHomeDir();
    QString machine = machineName();
    std::unique_ptr<QSettings> settings = nullptr; ///< The user's own when null.

    static QString executableDir();
    static QString userHomeDir();
    static QString machineName();
};

/// The one controller of the daemon: runs its tool, and publishes the state that views show.
///
/// Lives on the main thread for as long as the program, in a shared pointer. Operations return at
/// once; the tool runs on one serial queue, in the order in which they were called, and what comes
/// of it is published on the main thread. Failures of the tool arrive as `errorMessage`, success
/// as changed state. Nothing throws.
class DaemonManager : public std::enable_shared_from_this<DaemonManager> {
public:
    using Completion = std::function<void()>;

    /// Why a command of the user's has failed, as text for a notification; none when it worked.
    using CommandEnded = std::function<void(const std::optional<QString>& failure)>;

    /// Makes a controller whose status poll is already running. Main thread.
    static std::shared_ptr<DaemonManager> create(DaemonManagerOptions options = {});
    ~DaemonManager();
    DaemonManager(const DaemonManager&) = delete;
    DaemonManager& operator=(const DaemonManager&) = delete;

    /// What views show.
    const DaemonState& state() const { return published_.value(); }

    /// The same, with the announcements of its changes.
    const PublishedState& published() const { return published_; }

    /// Has the outcome of each command of the user's reported, on the main thread. Refreshes are
    /// none, and a failed disconnection is not reported, as it shows no message either.
    void setCommandEnded(CommandEnded commandEnded) { commandEnded_ = std::move(commandEnded); }

    /// Refreshes at once and then every five seconds; called again, it starts over.
    void startStatusPolling();

    /// Asks the daemon for its status and, now and then or when forced, for the profile list. Any
    /// thread. `completion` is called once on the main thread: when the state is published, or at
    /// once when a refresh is already running; never when the controller goes first.
    void refreshStatus(bool forceProfiles = false, Completion completion = {});

    void connect();
    void disconnect(); ///< Shows no message when it fails: the state says as much.

    /// Logs in with `authKey`, starting a stopped daemon first. `deviceName` is cleaned of blanks;
    /// none is passed on when nothing is left. `completion` follows the refresh after the log-in.
    void connectWithAuthKey(const QString& authKey, const QString& deviceName,
                            Completion completion = {});

    void switchProfile(const QString& id);
    void removeProfile(const QString& id);

    /// Takes away the message of an earlier failure, as a new attempt begins.
    void clearErrorMessage();

    /// Sets `daemonInstalled` from the files of an installation.
    void checkDaemonInstalled();

    /// Installs daemon, tool and job with administrator rights, which the system asks the user
    /// for; the outcome is `daemonInstalled` or `errorMessage`. `completion` is called on the main
    /// thread with whether it succeeded. A prompt left open blocks nothing else.
    void installAndStartDaemon(std::function<void(bool)> completion = {});

    /// To be called as the program is left, before the controller goes: commands that were asked
    /// for and not yet begun are started, one after another, without pauses and for their effect
    /// alone. Waits for that, for half a second at most.
    void leave();

private:
    using CommandHandler = std::function<void(DaemonManager&, const QByteArray& output)>;

    explicit DaemonManager(DaemonManagerOptions options);

    void beginRefresh(bool forceProfiles, Completion completion);
    void finishRefresh(const StatusReading& reading, const Completion& completion);
    void publishStopped();
    void publish(const StatusResponse& status, const QList<DeviceInfo>& sortedDevices);
    void rememberDetails();

    void perform(ToolWork work, CommandHandler handle);
    void finishConnecting(const QByteArray& output);
    void finishLogin(const QByteArray& output, const std::optional<QString>& failure);
    void finishRemoval(const QString& id, const QByteArray& output);
    void finishInstallation(const DaemonInstaller::Outcome& outcome);
    void showFailure(const QByteArray& output);
    void report(const std::optional<QString>& failure) const;

    PublishedState published_;
    CommandEnded commandEnded_; ///< Empty when nobody wants to know.

    const CommandLine nudgeDaemon_;
    const Timing timing_;
    RememberedDetails details_;
    ProfileAttribution attribution_;
    RefreshBookkeeping refresh_;
    DecodedStatus lastAnswer_;
    QTimer statusTimer_;

    // Last, so that they go first: no work is left when the fields above are released.
    CancellationToken cancellation_;
    DaemonInstaller installer_;
    CommandRunner runner_;
    SerialQueue workQueue_;
};

} // namespace tarnwick
