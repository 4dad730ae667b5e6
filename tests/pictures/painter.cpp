// SPDX-License-Identifier: MIT
#include "painter.h"

#include "support/waiting.h"
#include "ui/panel/devices_submenu.h"
#include "ui/panel/profile_picker_row.h"

#include <QApplication>
#include <QPainter>

namespace tarnwick::pictures {

using namespace std::chrono_literals;

namespace {

/// Room around the windows of a picture, in device-independent pixels.
constexpr int pictureMargin = 32;

Popover* openPopover(MenuBarView& panel, Scene::Open open) {
    PopoverRow* row = nullptr;
    if (open == Scene::Open::Devices)
        row = panel.findChild<DevicesSubmenu*>();
    else if (open == Scene::Open::Picker)
        row = panel.findChild<ProfilePickerRow*>();
    if (row == nullptr)
        return nullptr;
    row->setPopoverPresented(true);
    return row->popover();
}

QImage imageOf(QWidget& window) {
    QImage image(window.size() * window.devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(window.devicePixelRatioF());
    image.fill(Qt::transparent);
    window.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

QColor groundColor(bool isDark) {
    return isDark ? QColor(0x17, 0x18, 0x1b) : QColor(0xdd, 0xe3, 0xea);
}

} // namespace

QPalette palette(bool isDark) {
    const QColor ground = isDark ? QColor(0x2a, 0x2a, 0x2c) : QColor(0xf8, 0xf8, 0xf9);
    const QColor text = isDark ? QColor(0xf2, 0xf2, 0xf4) : QColor(0x1d, 0x1d, 0x20);
    QPalette palette(ground);
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Highlight, QColor(0x35, 0x84, 0xe4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QImage picture(MenuBarView& panel, const Scene& scene, bool isDark) {
    panel.openAt(scene.isRightToLeft ? QPoint(40, 40) : QPoint(360, 40));
    test::runEventLoopFor(60ms);
    Popover* popover = openPopover(panel, scene.open);
    test::runEventLoopFor(60ms);

    QRect all = panel.geometry();
    if (popover != nullptr)
        all = all.united(popover->geometry());
    all.adjust(-pictureMargin, -pictureMargin, pictureMargin, pictureMargin);
    const qreal ratio = panel.devicePixelRatioF();
    QImage image(all.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(groundColor(isDark));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (QWidget* window : {static_cast<QWidget*>(&panel), static_cast<QWidget*>(popover)}) {
        if (window == nullptr)
            continue;
        painter.drawImage(window->geometry().topLeft() - all.topLeft(), imageOf(*window));
    }
    painter.end();
    panel.hide();
    return image;
}

} // namespace tarnwick::pictures
