// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "daemon/login_server.h"
#include "platform/main_queue.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

// The frame of every command: `work` runs on the queue with values only, for a worker that held
// the controller might be the one to destroy it; `handle` gets its result on the main thread. It
// goes back there even when the controller is gone: what a view's callback holds, only the main
// thread may destroy.
void DaemonManager::perform(ToolWork work,
                            std::function<void(DaemonManager&, const QByteArray&)> handle) {
    workQueue_.async([weak = weak_from_this(), runner = runner_, work = std::move(work),
                      handle = std::move(handle)]() mutable {
        const QByteArray output = weak.expired() ? QByteArray() : work(runner);
        postToMainQueue([weak, handle = std::move(handle), output] {
            if (const auto self = weak.lock())
                handle(*self, output);
        });
    });
}

void DaemonManager::connect() {
    perform([](const CommandRunner& runner) { return runner.runCLI({u"up"_s}); },
            [](DaemonManager& self, const QByteArray& output) { self.finishConnecting(output); });
}

void DaemonManager::disconnect() {
    perform([](const CommandRunner& runner) { return runner.runCLI({u"down"_s}); },
            [](DaemonManager& self, const QByteArray&) { self.refreshStatus(true); });
}

void DaemonManager::switchProfile(const QString& id) {
    pendingCurrentProfileID_ = id;
    refresh_.currentProfileMayChange();
    perform(
        [id](const CommandRunner& runner) {
            runner.runCLI({u"switch"_s, id}); // whether it worked shows in what "up" says
            runner.pause(runner.timing().switchPause);
            return runner.runCLI({u"up"_s});
        },
        [](DaemonManager& self, const QByteArray& output) { self.finishConnecting(output); });
}

void DaemonManager::finishConnecting(const QByteArray& output) {
    if (hasCommandError(output))
        published_.set(&DaemonState::errorMessage, textFromUtf8(output));
    refreshStatus(true);
}

void DaemonManager::connectWithAuthKey(const QString& authKey, const QString& deviceName,
                                       Completion completion) {
    refresh_.currentProfileMayChange();
    perform(
        [authKey, deviceName, nudge = platform_.nudgeDaemon](const CommandRunner& runner) {
            ensureDaemonRunning(runner, nudge);
            const QString cleaned = deviceName.trimmed().toLower().replace(u' ', u'-');
            QStringList arguments = {u"login"_s, u"--login-server="_s + loginServer(cleaned),
                                     u"--authkey"_s, authKey};
            if (!cleaned.isEmpty())
                arguments << u"--hostname"_s << cleaned;
            return runner.runCLIWithTimeout(arguments, runner.timing().loginTimeout);
        },
        [completion = std::move(completion)](DaemonManager& self, const QByteArray& output) {
            if (hasCommandError(output))
                self.published_.set(&DaemonState::errorMessage, textFromUtf8(output));
            self.refreshStatus(true, [weak = self.weak_from_this(), output, completion] {
                if (const auto manager = weak.lock())
                    manager->finishLogin(output, completion);
            });
        });
}

// The refresh before this has cleared the message if the daemon answers at all: a refused log-in
// has to be shown again, unless the machine is connected all the same.
void DaemonManager::finishLogin(const QByteArray& output, const Completion& completion) {
    if (state().isConnected)
        published_.set(&DaemonState::errorMessage, std::nullopt);
    else if (hasCommandError(output))
        published_.set(&DaemonState::errorMessage, textFromUtf8(output));
    if (completion)
        completion();
}

void DaemonManager::removeProfile(const QString& id) {
    perform(
        [id](const CommandRunner& runner) {
            return runner.runCLI(
                {u"debug"_s, u"localapi"_s, u"DELETE"_s, u"/localapi/v0/profiles/"_s + id});
        },
        [id](DaemonManager& self, const QByteArray& output) { self.finishRemoval(id, output); });
}

void DaemonManager::finishRemoval(const QString& id, const QByteArray& output) {
    if (hasCommandError(output)) {
        published_.set(&DaemonState::errorMessage, output.isEmpty()
                                                       ? u"Failed to remove profile "_s + id
                                                       : textFromUtf8(output));
        return;
    }
    ProfileDetailsMap remembered = details_.load();
    remembered.remove(id);
    details_.save(remembered);
    QList<NetworkProfile> remaining = state().profiles;
    remaining.removeIf([&id](const NetworkProfile& profile) { return profile.id == id; });
    published_.set(&DaemonState::profiles, remaining);
    published_.set(&DaemonState::errorMessage, std::nullopt);
    refreshStatus(true);
}

} // namespace tarnwick
