// SPDX-License-Identifier: MIT
#include "desktop/message_bus_linux.h"
#include "desktop/status_area.h"
#include "desktop/status_notifier_watcher_linux.h"
#include "desktop/x11_linux.h"
#include "platform/logging.h"

#include <QDebug>

namespace tarnwick {

class StatusArea::Watch {
public:
    explicit Watch(StatusArea& area) : area_(area), bus_(MessageBus::sessionAddress()) {
        QObject::connect(&bus_, &MessageBus::connected, &area, [this] { askForHosts(); });
        QObject::connect(&bus_, &MessageBus::unavailable, &area, [this] {
            qCInfo(desktopLog) << "no session bus";
            hosts_.reset();
            announceIf(tray_.exists());
        });
        // Queued, so that Qt handles the event first.
        QObject::connect(&tray_, &X11Tray::appeared, &area, &StatusArea::appeared,
                         Qt::QueuedConnection);
    }

private:
    void askForHosts() {
        hosts_ = std::make_unique<StatusNotifierWatcher>(bus_.connection());
        // Where a desktop has both kinds, the older one is for old programs.
        QObject::connect(hosts_.get(), &StatusNotifierWatcher::answered, &area_, [this](bool has) {
            qCInfo(desktopLog) << "status-notifier host:" << has;
            announceIf(has || tray_.exists());
        });
        hosts_->ask();
    }

    void announceIf(bool hasPlace) {
        qCInfo(desktopLog) << "place for an icon:" << hasPlace;
        if (hasPlace)
            Q_EMIT area_.appeared();
    }

    StatusArea& area_;
    MessageBus bus_;
    std::unique_ptr<StatusNotifierWatcher> hosts_; ///< Null while there is no bus.
    X11Tray tray_;
};

StatusArea::StatusArea() : watch_(std::make_unique<Watch>(*this)) {}

StatusArea::~StatusArea() = default;

} // namespace tarnwick
