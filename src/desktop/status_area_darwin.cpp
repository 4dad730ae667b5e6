// SPDX-License-Identifier: MIT
#include "desktop/status_area.h"
#include "desktop/tray_icon.h"

#include <QTimer>

namespace tarnwick {

class StatusArea::Icon {
public:
    Icon(StatusArea& area, const QIcon& picture, bool hasMenu) : tray(picture, hasMenu) {
        tray.forwardTo(area);
        // The menu bar is always there.
        QTimer::singleShot(0, &area, &StatusArea::iconShown);
    }

    TrayIcon tray;
};

StatusArea::StatusArea(QIcon picture, bool hasMenu)
    : icon_(std::make_unique<Icon>(*this, picture, hasMenu)) {}

StatusArea::~StatusArea() = default;

void StatusArea::setStatusLabel(const QString& label) {
    icon_->tray.setStatusLabel(label);
}

std::optional<QRect> StatusArea::iconGeometry() const {
    return icon_->tray.geometry();
}

void StatusArea::showMessage(const QString& text) {
    icon_->tray.showMessage(text);
}

} // namespace tarnwick
