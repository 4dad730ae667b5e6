// SPDX-License-Identifier: MIT
#include "desktop/embedded_icon_linux.h"
#include "desktop/message_bus_linux.h"
#include "desktop/session_environment.h"
#include "desktop/status_area.h"
#include "desktop/status_notifier_item_linux.h"
#include "desktop/status_notifier_watcher_linux.h"
#include "desktop/tray_icon.h"
#include "desktop/x11_linux.h"
#include "platform/logging.h"

#include <QDebug>
#include <QTimer>

#include <chrono>
#include <utility>

namespace tarnwick {

namespace {

/// How long nothing is shown for want of an answer from the session bus.
constexpr std::chrono::milliseconds longestWait{1500};

} // namespace

/// Goes to the status-notifier hosts where there are any; where a desktop has both kinds, the X
/// tray is for old programs. But GNOME's extension keeps single clicks on an item for its menu, and
/// passes on each click in its X tray.
///
/// Qt's icon is made only while there is an X tray and no registry of hosts: with one, Qt may make
/// a status-notifier item of it, and waits for a registry that hangs.
class StatusArea::Icon {
public:
    Icon(StatusArea& area, QIcon picture, bool hasMenu)
        : area_(area), picture_(std::move(picture)), hasMenu_(hasMenu),
          bus_(MessageBus::sessionAddress()) {
        QObject::connect(&bus_, &MessageBus::connected, &area, [this] { askForHosts(); });
        QObject::connect(&bus_, &MessageBus::unavailable, &area, [this] {
            qCInfo(desktopLog) << "no session bus";
            forgetBus();
            takeAnswer(false);
        });
        decision_.setSingleShot(true);
        QObject::connect(&decision_, &QTimer::timeout, &area, [this] { takeAnswer(false); });
        decision_.start(longestWait);
        // Queued, so that Qt handles the event first.
        QObject::connect(
            &xTray_, &X11Tray::appeared, &area,
            [this] {
                embeddedIcon_.reset();
                if (hasHost_) // while that is unknown, its answer is waited for
                    takeAnswer(*hasHost_);
            },
            Qt::QueuedConnection);
    }

    void setStatusLabel(const QString& label) {
        statusLabel_ = label;
        if (item_)
            item_->setStatusLabel(label);
        if (trayIcon_)
            trayIcon_->setStatusLabel(label);
        if (embeddedIcon_)
            embeddedIcon_->setStatusLabel(label);
    }

    std::optional<QRect> geometry() const {
        if (embeddedIcon_)
            return embeddedIcon_->geometryInTray();
        return trayIcon_ ? trayIcon_->geometry() : std::nullopt;
    }

    void showMessage(const QString& text) {
        if (trayIcon_)
            trayIcon_->showMessage(text);
    }

private:
    void askForHosts() {
        hosts_ = std::make_unique<StatusNotifierWatcher>(bus_.connection());
        QObject::connect(hosts_.get(), &StatusNotifierWatcher::restarted, &area_,
                         [this] { isRegistered_ = false; });
        QObject::connect(hosts_.get(), &StatusNotifierWatcher::answered, &area_,
                         [this](bool hasHost) { takeAnswer(hasHost); });
        hosts_->ask();
    }

    void forgetBus() {
        hosts_.reset();
        item_.reset();
        isRegistered_ = false;
    }

    void takeAnswer(bool hasHost) {
        const bool hasXTray = xTray_.exists();
        qCInfo(desktopLog) << "status-notifier host:" << hasHost << "X tray:" << hasXTray;
        hasHost_ = hasHost;
        decision_.stop();
        if (hasHost && !(hasXTray && prefersXTray_)) {
            trayIcon_.reset();
            embeddedIcon_.reset();
            showItem();
        } else if (hasXTray && hosts_ && hosts_->mayExist()) {
            trayIcon_.reset();
            item_.reset();
            isRegistered_ = false;
            showEmbeddedIcon();
        } else if (hasXTray) {
            embeddedIcon_.reset();
            showTrayIcon();
        } else {
            Q_EMIT area_.absent();
        }
    }

    void showItem() {
        if (!item_) {
            item_ = std::make_unique<StatusNotifierItem>(
                bus_.connection(), picture_,
                [this](const IconClick& click) { Q_EMIT area_.iconClicked(click); });
            item_->setStatusLabel(statusLabel_);
        }
        if (std::exchange(isRegistered_, true))
            return;
        item_->registerWithWatcher();
        Q_EMIT area_.iconShown();
    }

    void showEmbeddedIcon() {
        if (embeddedIcon_)
            return;
        embeddedIcon_ = std::make_unique<EmbeddedIcon>(
            xTray_, picture_, [this](const IconClick& click) { Q_EMIT area_.iconClicked(click); });
        embeddedIcon_->setStatusLabel(statusLabel_);
        Q_EMIT area_.iconShown();
    }

    // Qt's icon follows restarts of the tray by itself.
    void showTrayIcon() {
        if (trayIcon_)
            return;
        trayIcon_ = std::make_unique<TrayIcon>(picture_, hasMenu_);
        trayIcon_->setStatusLabel(statusLabel_);
        trayIcon_->forwardTo(area_);
        Q_EMIT area_.iconShown();
    }

    StatusArea& area_;
    const QIcon picture_;
    const bool hasMenu_;
    const bool prefersXTray_ = isGnome(QProcessEnvironment::systemEnvironment());
    QString statusLabel_;
    MessageBus bus_;
    std::unique_ptr<StatusNotifierWatcher> hosts_; ///< Null while there is no bus.
    std::unique_ptr<StatusNotifierItem> item_;     ///< Null until there is a host.
    std::optional<bool> hasHost_;                  ///< Nothing until it is known.
    QTimer decision_;                              ///< Runs while that is not known.
    bool isRegistered_ = false;                    ///< With the watcher that there is now.
    std::unique_ptr<TrayIcon> trayIcon_;
    X11Tray xTray_;
    std::unique_ptr<EmbeddedIcon> embeddedIcon_;
};

StatusArea::StatusArea(QIcon picture, bool hasMenu)
    : icon_(std::make_unique<Icon>(*this, std::move(picture), hasMenu)) {}

StatusArea::~StatusArea() = default;

void StatusArea::setStatusLabel(const QString& label) {
    icon_->setStatusLabel(label);
}

std::optional<QRect> StatusArea::iconGeometry() const {
    return icon_->geometry();
}

void StatusArea::showMessage(const QString& text) {
    icon_->showMessage(text);
}

} // namespace tarnwick
