// SPDX-License-Identifier: MIT
#include "desktop/tray_icon.h"

#include "desktop/status_area.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

TrayIcon::TrayIcon(const QIcon& picture, bool hasMenu) {
    icon_.setIcon(picture);
    setStatusLabel({});
    if (hasMenu)
        makeMenu();
    QObject::connect(&icon_, &QSystemTrayIcon::activated, this,
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         // The second of two quick clicks is reported as DoubleClick only.
                         if (reason == QSystemTrayIcon::Trigger ||
                             reason == QSystemTrayIcon::DoubleClick)
                             Q_EMIT clicked();
                     });
    icon_.show();
}

TrayIcon::~TrayIcon() = default;

std::optional<QRect> TrayIcon::geometry() const {
    const QRect rect = icon_.geometry();
    if (rect.isEmpty())
        return std::nullopt;
    return rect;
}

void TrayIcon::showMessage(const QString& text) {
    icon_.showMessage(u"Tarnwick Network"_s, text, QSystemTrayIcon::Warning);
}

QString TrayIcon::toolTip(const QString& statusLabel) {
    const QString name = u"Tarnwick Network"_s;
    return statusLabel.isEmpty() ? name : name + u": "_s + statusLabel;
}

void TrayIcon::setStatusLabel(const QString& label) {
    icon_.setToolTip(toolTip(label));
}

void TrayIcon::forwardTo(StatusArea& area) {
    QObject::connect(this, &TrayIcon::clicked, &area, [&area] { Q_EMIT area.iconClicked({}); });
    QObject::connect(this, &TrayIcon::openChosen, &area, &StatusArea::openChosen);
    QObject::connect(this, &TrayIcon::quitChosen, &area, &StatusArea::quitChosen);
}

void TrayIcon::makeMenu() {
    menu_ = std::make_unique<QMenu>();
    QObject::connect(menu_->addAction(u"Open Tarnwick Network"_s), &QAction::triggered, this,
                     &TrayIcon::openChosen);
    QObject::connect(menu_->addAction(u"Quit Tarnwick Network"_s), &QAction::triggered, this,
                     &TrayIcon::quitChosen);
    icon_.setContextMenu(menu_.get());
}

} // namespace tarnwick
