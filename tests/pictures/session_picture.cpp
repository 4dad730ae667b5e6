// SPDX-License-Identifier: MIT
#include "session_picture.h"

#include "painter.h"
#include "support/publishing.h"
#include "support/waiting.h"
#include "ui/style/symbol.h"
#include "ui/windows/auth_key_window.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <numeric>

namespace tarnwick::pictures {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int captionHeight = 46;
constexpr int statusAreaHeight = 24;
constexpr int titleBarHeight = 30;
constexpr double radius = 9;
constexpr int edge = 8; // around all of it

struct Step {
    QString caption;
    QImage image; // with its margin, on the common ground
};

QSize sizeOf(const Step& step) {
    return step.image.deviceIndependentSize().toSize();
}

QFont textFont(int pixels, QFont::Weight weight) {
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

QImage canvas(const QSize& size, qreal ratio) {
    QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(groundColor(false));
    return image;
}

/// The panel as it hangs under its icon in the status area.
QImage panelUnderIcon(const std::shared_ptr<DaemonManager>& daemon, const QString& sceneName) {
    const QList<Scene> scenes = allScenes();
    const auto scene = std::ranges::find(scenes, sceneName, &Scene::name);
    test::publish(*daemon, scene->state);
    MenuBarView panel(daemon, {});
    QImage image = picture(panel, *scene, false);
    const int right = int(image.deviceIndependentSize().width()) - pictureMargin;
    const QRect area(right - MenuBarView::panelWidth, 0, MenuBarView::panelWidth, statusAreaHeight);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x24, 0x27, 0x2c));
    painter.drawRoundedRect(area, 6, 6);
    paintSymbol(painter, area, u"network"_s, 15, QColor(0xf2, 0xf4, 0xf6));
    return image;
}

/// The window as a window manager frames it.
QImage framedWindow(QWidget& window) {
    const QImage shot = imageOf(window);
    const QSize inner = window.size();
    const QRect frame(pictureMargin, pictureMargin, inner.width(), inner.height() + titleBarHeight);
    QImage framed(frame.size() * shot.devicePixelRatio(), QImage::Format_ARGB32_Premultiplied);
    framed.setDevicePixelRatio(shot.devicePixelRatio());
    framed.fill(Qt::transparent);
    QPainter painter(&framed);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(QPointF(0, 0), frame.size()), radius, radius);
    painter.setClipPath(shape);
    painter.fillRect(framed.rect(), window.palette().color(QPalette::Window));
    painter.drawImage(QPoint(0, titleBarHeight), shot);
    painter.fillRect(0, 0, frame.width(), titleBarHeight, QColor(0xe9, 0xeb, 0xee));
    painter.setPen(QColor(0x1d, 0x1d, 0x20));
    painter.setFont(textFont(12, QFont::DemiBold));
    painter.drawText(QRect(0, 0, frame.width(), titleBarHeight), Qt::AlignCenter,
                     window.windowTitle());
    painter.end();

    QImage image =
        canvas(frame.size() + 2 * QSize(pictureMargin, pictureMargin), shot.devicePixelRatio());
    QPainter onGround(&image);
    onGround.setRenderHint(QPainter::SmoothPixmapTransform);
    paintShadow(onGround, framed, frame.topLeft());
    onGround.drawImage(frame.topLeft(), framed);
    return image;
}

QImage keyWindow(const std::shared_ptr<DaemonManager>& daemon) {
    AuthKeyWindow form({.computerName = [] {
        return u"Annas Computer"_s;
    }});
    form.show(daemon);
    auto* key = form.window()->findChildren<QLineEdit*>().last();
    key->setText(u"twkey-4f7c-a2d9-58e1"_s);
    key->setFocus();
    test::runEventLoopFor(60ms);
    return framedWindow(*form.window());
}

QList<QList<Step>> rows(const std::shared_ptr<DaemonManager>& daemon) {
    return {{{u"Click the icon"_s, panelUnderIcon(daemon, u"needs-login"_s)},
             {u"Name this machine and paste a key"_s, keyWindow(daemon)},
             {u"Connected"_s, panelUnderIcon(daemon, u"connected"_s)}},
            {{u"See the other devices"_s, panelUnderIcon(daemon, u"connected-devices"_s)},
             {u"Disconnect, and pick a network to be back"_s,
              panelUnderIcon(daemon, u"stopped-profiles"_s)}}};
}

QSize sizeOf(const QList<Step>& row) {
    QSize size(0, 0);
    for (const Step& step : row)
        size = {size.width() + sizeOf(step).width(),
                std::max(size.height(), captionHeight + sizeOf(step).height())};
    return size;
}

void paintCaption(QPainter& painter, const QRect& place, int number, const QString& caption) {
    const QRect badge(place.left(), place.center().y() - 11, 22, 22);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x2b, 0x6c, 0xb8));
    painter.drawEllipse(badge);
    painter.setPen(Qt::white);
    painter.setFont(textFont(13, QFont::DemiBold));
    painter.drawText(badge, Qt::AlignCenter, QString::number(number));
    painter.setPen(QColor(0x1d, 0x1d, 0x20));
    painter.setFont(textFont(16, QFont::DemiBold));
    painter.drawText(place.adjusted(32, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, caption);
}

} // namespace

bool paintSession(const std::shared_ptr<DaemonManager>& daemon, const QDir& folder) {
    const QList<QList<Step>> all = rows(daemon);
    QSize size(0, 0);
    for (const QList<Step>& row : all)
        size = {std::max(size.width(), sizeOf(row).width()), size.height() + sizeOf(row).height()};
    QImage image = canvas(size + 2 * QSize(edge, edge), all[0][0].image.devicePixelRatio());
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    int number = 0;
    int y = edge;
    for (const QList<Step>& row : all) {
        const int gap = (size.width() - sizeOf(row).width()) / int(std::max(row.size() - 1, 1LL));
        int x = edge;
        for (const Step& step : row) {
            painter.drawImage(QPoint(x, y + captionHeight), step.image);
            paintCaption(
                painter,
                {x + pictureMargin, y, sizeOf(step).width() - pictureMargin, captionHeight},
                ++number, step.caption);
            x += sizeOf(step).width() + gap;
        }
        y += sizeOf(row).height();
    }
    painter.end();
    return image.convertToFormat(QImage::Format_RGB888).save(folder.filePath(u"session.png"_s));
}

} // namespace tarnwick::pictures
