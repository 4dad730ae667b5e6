// SPDX-License-Identifier: MIT
#include "app/tarnwick_app.h"

#include "desktop/activation_token.h"
#include "desktop/window_system.h"
#include "model/display_text.h"
#include "platform/service_addresses.h"
#include "ui/style/menu_bar_icon.h"
#include "ui/windows/update_alert.h"
#include "update/update_dialog.h"

#include <QApplication>
#include <QDesktopServices>
#include <QSessionManager>
#include <QUrl>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// Only windows with a frame show it, and looking for it reads the whole icon theme.
void provideWindowIcon() {
    if (QApplication::windowIcon().isNull())
        QApplication::setWindowIcon(QIcon::fromTheme(u"tarnwick-client"_s, networkGlyphIcon({})));
}

void openWebsite() {
    const QUrl url(serviceAddresses().webSite, QUrl::StrictMode);
    if (url.isValid())
        QDesktopServices::openUrl(url);
}

} // namespace

TarnwickApp::TarnwickApp(const QString& launchSocket, DaemonManagerOptions options,
                         const std::optional<UpdateServiceOptions>& updateOptions, Launch launch)
    : launch_(std::move(launch)), daemon_(DaemonManager::create(std::move(options))),
      platform_(hostPlatform()), launches_(launchSocket),
      updates_(updateOptions.value_or(UpdateServiceOptions{
          UpdateService::manifestURL(),
          UpdateService::installedVersion(platform_, DaemonManagerOptions::executableDir())})),
      presenter_([this] { return makePanel(); }),
      statusArea_(MenuBarIcon::make(platform_).icon, platform_.iconMenu),
      failureNotification_([this](const QString& text) { statusArea_.showMessage(text); }) {
    daemon_->setCommandEnded(
        [this](const std::optional<QString>& failure) { showOutcome(failure); });
    QObject::connect(&signals_, &TerminationSignals::received, qApp,
                     [] { QCoreApplication::exit(0); });
    QObject::connect(&wakeUp_, &WakeUp::woke, this, [this] { daemon_->startStatusPolling(); });
    QObject::connect(&launches_, &SingleInstanceChannel::showRequested, this,
                     [this](const QByteArray& token) {
                         appearance_.whenSettled([this, token] { showOnRequest(token); });
                     });
    connectIcon();
    QObject::connect(&appearance_, &AppearanceMonitor::changed, this,
                     [this] { style_.apply(appearance_.appearance()); });
    // The autostart entry starts the program; a session manager must not restore it as well.
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, this, [](QSessionManager& session) {
        session.setRestartHint(QSessionManager::RestartNever);
    });
}

TarnwickApp::~TarnwickApp() {
    daemon_->setCommandEnded({});
    daemon_->leave();
}

std::unique_ptr<MenuBarView> TarnwickApp::makePanel() {
    return std::make_unique<MenuBarView>(daemon_,
                                         [this](const PanelCommand& command) { perform(command); });
}

void TarnwickApp::perform(const PanelCommand& command) {
    switch (command.kind) {
    case PanelCommand::Kind::SwitchProfile:
        return daemon_->switchProfile(command.profileId);
    case PanelCommand::Kind::RemoveProfile:
        return daemon_->removeProfile(command.profileId);
    case PanelCommand::Kind::Disconnect:
        return daemon_->disconnect();
    case PanelCommand::Kind::ShowAuthKeyWindow:
        provideWindowIcon();
        return authKeyWindow_.show(daemon_);
    case PanelCommand::Kind::Refresh:
        return daemon_->refreshStatus();
    case PanelCommand::Kind::CheckForUpdates:
        return checkForUpdates();
    case PanelCommand::Kind::OpenWebsite:
        return openWebsite();
    case PanelCommand::Kind::Quit:
        return QCoreApplication::quit();
    }
}

// One at a time: whoever asks again gets the alert of the first.
void TarnwickApp::checkForUpdates() {
    if (updateAlert_ && updateAlert_->isVisible()) // one that was answered may not be gone yet
        return updateAlert_->present();
    if (std::exchange(isCheckingForUpdates_, true))
        return;
    updates_.check([this](const UpdateCheckResult& result) {
        isCheckingForUpdates_ = false;
        showUpdateAlert(result);
    });
}

void TarnwickApp::showUpdateAlert(const UpdateCheckResult& result) {
    provideWindowIcon();
    updateAlert_ =
        new UpdateAlert(UpdateDialog::forResult(result, UpdateService::downloadPageURL()),
                        &QDesktopServices::openUrl);
    QObject::connect(this, &QObject::destroyed, updateAlert_,
                     [alert = updateAlert_.get()] { delete alert; });
    updateAlert_->present();
}

void TarnwickApp::connectIcon() {
    // The first frame is to have the desktop's colours.
    QObject::connect(&statusArea_, &StatusArea::iconClicked, this, [this](const IconClick& click) {
        appearance_.whenSettled([this, click] {
            const ActivationTokenScope token(click.activationToken);
            presenter_.toggle({statusArea_.iconGeometry(), click.point});
        });
    });
    QObject::connect(&statusArea_, &StatusArea::openChosen, this, [this] {
        appearance_.whenSettled([this] { presenter_.open({statusArea_.iconGeometry()}); });
    });
    QObject::connect(&statusArea_, &StatusArea::iconShown, this, [this] { completeLaunch(true); });
    QObject::connect(&statusArea_, &StatusArea::absent, this, [this] { completeLaunch(false); });
    QObject::connect(&statusArea_, &StatusArea::quitChosen, qApp, &QCoreApplication::quit);
    const auto showStatus = [this] {
        statusArea_.setStatusLabel(singleLineText(daemon_->state().statusLabel()));
    };
    QObject::connect(&daemon_->published(), &PublishedState::changed, this, showStatus);
    showStatus();
}

void TarnwickApp::completeLaunch(bool hasIcon) {
    const Launch launch = std::exchange(launch_, {}); // later changes are not its doing
    if (hasIcon || launch.isQuiet)
        completeStartup(launch.activationToken);
    else
        appearance_.whenSettled([this, launch] { openWithoutIcon(launch.activationToken); });
}

void TarnwickApp::openWithoutIcon(const QByteArray& activationToken) {
    provideWindowIcon();
    const ActivationTokenScope token(activationToken);
    presenter_.openAsWindow();
}

void TarnwickApp::showOnRequest(const QByteArray& activationToken) {
    const std::optional<QRect> icon = statusArea_.iconGeometry();
    if (!icon)
        return openWithoutIcon(activationToken);
    const ActivationTokenScope token(activationToken);
    presenter_.open({icon});
}

void TarnwickApp::showOutcome(const std::optional<QString>& failure) {
    if (failure)
        failureNotification_.show(*failure);
    else
        failureNotification_.withdraw();
}

} // namespace tarnwick
