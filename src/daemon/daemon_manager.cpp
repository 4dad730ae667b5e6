// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"

#include "platform/system_calls.h"

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

// A prompt holds its thread for as long as it is open; by default there are as many threads as
// processors, and a forgotten prompt would hold up the next one.
constexpr int maxOpenPrompts = 64;

// Without fallbacks: what another program or the administrator stores is none of ours.
std::unique_ptr<QSettings> userSettings(const Platform& platform) {
    auto settings =
        std::make_unique<QSettings>(platform.settingsOrganization, platform.settingsApplication);
    settings->setFallbacksEnabled(false);
    return settings;
}

} // namespace

QString DaemonManagerOptions::executableDir() {
    const QString directory = QCoreApplication::applicationDirPath();
    return directory.isEmpty() ? u"."_s : directory;
}

QString DaemonManagerOptions::userHomeDir() {
    return QDir::homePath();
}

QString DaemonManagerOptions::machineName() {
    return machineHardwareName();
}

std::shared_ptr<DaemonManager> DaemonManager::create(DaemonManagerOptions options) {
    std::shared_ptr<DaemonManager> manager(new DaemonManager(std::move(options)));
    manager->checkDaemonInstalled();
    manager->startStatusPolling(); // needs the shared pointer, which a constructor does not have
    return manager;
}

DaemonManager::DaemonManager(DaemonManagerOptions options)
    : platform_(options.platform), timing_(options.timing),
      bundleDir_(options.bundleDir), paths_{options.homeDir, platform_.systemSocket},
      tools_(ToolPaths::resolve(platform_, options.machine, bundleDir_, options.homeDir)),
      details_(options.settings ? std::move(options.settings) : userSettings(platform_)),
      refresh_(timing_.profileRefreshInterval),
      runner_(tools_.cliPath, paths_, timing_, cancellation_, environment_),
      workQueue_(u"com.tarnwick.client.daemon"_s, enterBackgroundQualityOfService) {
    installPool_.setMaxThreadCount(maxOpenPrompts);
    QObject::connect(&statusTimer_, &QTimer::timeout, &statusTimer_, [this] { refreshStatus(); });
}

DaemonManager::~DaemonManager() {
    statusTimer_.stop();
    cancellation_.cancel();
}

void DaemonManager::clearErrorMessage() {
    published_.set(&DaemonState::errorMessage, std::nullopt);
}

void DaemonManager::startStatusPolling() {
    statusTimer_.stop();
    refreshStatus();
    statusTimer_.start(timing_.statusPollInterval);
}

} // namespace tarnwick
