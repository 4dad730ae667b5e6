// SPDX-License-Identifier: MIT
#include "panel_pictures.h"

#include "support/publishing.h"
#include "ui/panel/devices_submenu.h"
#include "ui/panel/profile_picker_row.h"
#include "ui/style/colors.h"

#include <QApplication>
#include <QPainter>
#include <QTest>

namespace tarnwick::pictures {

namespace {

PopoverRow* rowOf(const MenuBarView& panel, Scene::Open open) {
    switch (open) {
    case Scene::Open::Devices:
        return panel.findChild<DevicesSubmenu*>();
    case Scene::Open::Picker:
        return panel.findChild<ProfilePickerRow*>();
    case Scene::Open::Nothing:
        break;
    }
    return nullptr;
}

QImage imageOf(QWidget& window) {
    QImage image(window.size() * window.devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(window.devicePixelRatioF());
    image.fill(Qt::transparent);
    window.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

} // namespace

Popover* open(MenuBarView& panel, const Scene& scene) {
    panel.openAt(scene.isRightToLeft ? QPoint(40, 40) : QPoint(360, 40));
    settle(panel);
    for (int press = 0; press < scene.tabPresses; ++press)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    PopoverRow* row = rowOf(panel, scene.open);
    if (row == nullptr)
        return nullptr;
    row->setPopoverPresented(true);
    settle(*row->popover());
    return row->popover();
}

QImage pictureOf(MenuBarView& panel, Popover* popover) {
    QRect all = panel.geometry();
    if (popover != nullptr)
        all = all.united(popover->geometry());
    all.adjust(-pictureMargin, -pictureMargin, pictureMargin, pictureMargin);
    const qreal ratio = panel.devicePixelRatioF();
    QImage image(all.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(isDark(panel.palette()) ? QColor(0x17, 0x18, 0x1b) : QColor(0xdd, 0xe3, 0xea));
    QPainter painter(&image);
    painter.drawImage(panel.pos() - all.topLeft(), imageOf(panel));
    if (popover != nullptr)
        painter.drawImage(popover->pos() - all.topLeft(), imageOf(*popover));
    return image;
}

void paintPanels(const std::shared_ptr<DaemonManager>& daemon, const TakePicture& take) {
    for (const Scene& scene : allScenes()) {
        QApplication::setLayoutDirection(scene.isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        test::publish(*daemon, scene.state);
        MenuBarView panel(daemon, {});
        Popover* popover = open(panel, scene);
        take(scene.name, pictureOf(panel, popover));
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace tarnwick::pictures
