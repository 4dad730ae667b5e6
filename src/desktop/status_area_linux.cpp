// SPDX-License-Identifier: MIT
#include "desktop/status_area.h"
#include "desktop/status_notifier_watcher.h"
#include "desktop/x11_tray.h"

namespace tarnwick {

class StatusArea::Watch {
public:
    explicit Watch(StatusArea& area) : hosts_(QDBusConnection::sessionBus()) {
        // A desktop that has both shows the older kind only for old programs.
        QObject::connect(&hosts_, &StatusNotifierWatcher::answered, &area, [this, &area](bool has) {
            if (has || tray_.exists())
                Q_EMIT area.appeared();
        });
        // Later: whoever is ahead of us with the same event has to see it first.
        QObject::connect(&tray_, &X11Tray::appeared, &area, &StatusArea::appeared,
                         Qt::QueuedConnection);
        hosts_.ask();
    }

private:
    StatusNotifierWatcher hosts_;
    X11Tray tray_;
};

StatusArea::StatusArea() : watch_(std::make_unique<Watch>(*this)) {}

StatusArea::~StatusArea() = default;

} // namespace tarnwick
