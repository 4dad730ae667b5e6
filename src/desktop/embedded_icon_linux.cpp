// SPDX-License-Identifier: MIT
#include "desktop/embedded_icon_linux.h"

#include "desktop/tray_icon.h"
#include "desktop/x11_linux.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QSurfaceFormat>
#include <QToolTip>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tarnwick {

namespace {

// As GNOME's tray shows it. Asked for a larger one it shows both, one over the other.
constexpr QSize wantedSize(16, 16);
constexpr std::chrono::milliseconds restBeforeToolTip{700}; // as widgets have it

} // namespace

EmbeddedIcon::EmbeddedIcon(X11Tray& tray, QIcon picture, Clicked clicked)
    : picture_(std::move(picture)), clicked_(std::move(clicked)) {
    // By this name Qt's X plug-in knows its own tray icons: it leaves it to the tray to show them.
    setObjectName(QStringLiteral("QSystemTrayIconSysWindow"));
    QSurfaceFormat translucent;
    translucent.setAlphaBufferSize(8);
    setFormat(translucent);
    setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    setStatusLabel({});
    toolTipDelay_.setSingleShot(true);
    toolTipDelay_.setInterval(restBeforeToolTip);
    QObject::connect(&toolTipDelay_, &QTimer::timeout, this,
                     [this] { QToolTip::showText(QCursor::pos(), title()); });
    setMinimumSize(wantedSize);
    resize(wantedSize);
    show(); // first, since the tray reads what size is wanted
    tray.embed(static_cast<std::uint32_t>(winId()));
}

std::optional<QRect> EmbeddedIcon::geometryInTray() const {
    const QRect rect(mapToGlobal(QPoint(0, 0)), size());
    const auto screens = QGuiApplication::screens();
    const bool isShown = std::any_of(screens.begin(), screens.end(), [&rect](QScreen* screen) {
        return screen->geometry().contains(rect.center());
    });
    return isShown ? std::optional(rect) : std::nullopt;
}

// The title is what trays and screen readers get of it.
void EmbeddedIcon::setStatusLabel(const QString& label) {
    setTitle(TrayIcon::toolTip(label));
}

bool EmbeddedIcon::event(QEvent* event) {
    if (event->type() == QEvent::Enter) {
        toolTipDelay_.start();
    } else if (event->type() == QEvent::Leave || event->type() == QEvent::MouseButtonPress) {
        toolTipDelay_.stop();
        QToolTip::hideText();
    }
    return QRasterWindow::event(event);
}

void EmbeddedIcon::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const QRect whole(QPoint(0, 0), size());
    painter.fillRect(whole, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    picture_.paint(&painter, whole);
}

// A tray that has shown it already may make it smaller. The X server reports nothing to paint then.
void EmbeddedIcon::resizeEvent(QResizeEvent* event) {
    QRasterWindow::resizeEvent(event);
    update();
}

void EmbeddedIcon::mousePressEvent(QMouseEvent*) {
    clicked_({});
}

} // namespace tarnwick
