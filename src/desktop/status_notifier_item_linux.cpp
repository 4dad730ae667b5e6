// SPDX-License-Identifier: MIT
#include "desktop/status_notifier_item_linux.h"

#include "desktop/activation_token.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QImage>
#include <QPixmap>
#include <QtEndian>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QString objectPath() {
    return u"/StatusNotifierItem"_s; // the one where every host looks
}

QString wantedBusName() {
    return u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid());
}

StatusNotifierPixmap pixmapOf(const QIcon& picture, int size) {
    const QImage image =
        picture.pixmap(QSize(size, size), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
    QByteArray pixels(image.sizeInBytes(), Qt::Uninitialized);
    qToBigEndian<quint32>(image.constBits(), pixels.size() / qsizetype{sizeof(quint32)},
                          pixels.data());
    return {image.width(), image.height(), pixels};
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierPixmap& pixmap) {
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.pixels;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierPixmap& pixmap) {
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.pixels;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierToolTip& toolTip) {
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.iconPixmaps << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierToolTip& toolTip) {
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.iconPixmaps >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

StatusNotifierItem::StatusNotifierItem(QDBusConnection sessionBus, QIcon picture, Clicked clicked)
    : bus_(std::move(sessionBus)), picture_(std::move(picture)), clicked_(std::move(clicked)) {
    qDBusRegisterMetaType<StatusNotifierPixmap>();
    qDBusRegisterMetaType<StatusNotifierPixmaps>();
    qDBusRegisterMetaType<StatusNotifierToolTip>();
    bus_.registerObject(objectPath(), this,
                        QDBusConnection::ExportScriptableContents |
                            QDBusConnection::ExportAllProperties);
    requestName();
}

// Hosts notice that the name goes, while the connection stays.
StatusNotifierItem::~StatusNotifierItem() {
    bus_.unregisterObject(objectPath());
    QDBusMessage release =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"ReleaseName"_s);
    release << wantedBusName();
    bus_.send(release);
}

// Not QDBusConnection::registerService(), which waits for the answer.
void StatusNotifierItem::requestName() {
    constexpr uint doNotQueue = 4;
    constexpr uint isOwner = 1;
    const QString wanted = wantedBusName();
    QDBusMessage request =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"RequestName"_s);
    request << wanted << doNotQueue;
    auto* call = new QDBusPendingCallWatcher(bus_.asyncCall(request), this);
    QObject::connect(call, &QDBusPendingCallWatcher::finished, this,
                     [this, wanted](QDBusPendingCallWatcher* finished) {
                         const QDBusPendingReply<uint> reply = *finished;
                         finished->deleteLater();
                         // A program in another container may have the same process id.
                         const bool isOurs = reply.isValid() && reply.value() == isOwner;
                         busName_ = isOurs ? wanted : bus_.baseService();
                         if (std::exchange(isRegistrationDue_, false))
                             registerWithWatcher();
                     });
}

void StatusNotifierItem::registerWithWatcher() {
    if (busName_.isEmpty()) {
        isRegistrationDue_ = true;
        return;
    }
    QDBusMessage registration = QDBusMessage::createMethodCall(
        u"org.kde.StatusNotifierWatcher"_s, u"/StatusNotifierWatcher"_s,
        u"org.kde.StatusNotifierWatcher"_s, u"RegisterStatusNotifierItem"_s);
    registration << busName_;
    registration.setAutoStartService(false);
    bus_.send(registration);
}

void StatusNotifierItem::setStatusLabel(const QString& label) {
    if (std::exchange(statusLabel_, label) != label)
        Q_EMIT NewToolTip();
}

StatusNotifierPixmaps StatusNotifierItem::iconPixmaps() const {
    StatusNotifierPixmaps pixmaps;
    if (!picture_.name().isEmpty())
        return pixmaps;
    for (const int size : {16, 22, 24, 32, 48, 64})
        pixmaps.append(pixmapOf(picture_, size));
    return pixmaps;
}

void StatusNotifierItem::Activate(int x, int y) {
    click({x, y});
}

void StatusNotifierItem::SecondaryActivate(int x, int y) {
    click({x, y});
}

void StatusNotifierItem::ContextMenu(int x, int y) {
    click({x, y});
}

void StatusNotifierItem::Scroll(int, const QString&) {}

void StatusNotifierItem::ProvideXdgActivationToken(const QString& token) {
    token_ = acceptableActivationToken(token.toUtf8());
}

void StatusNotifierItem::click(const QPoint& point) {
    clicked_({point, std::exchange(token_, {})});
}

} // namespace tarnwick
