// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/status_area.h"

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QIcon>
#include <QList>
#include <QObject>
#include <QString>

#include <functional>

namespace tarnwick {

/// A picture as hosts take it.
struct StatusNotifierPixmap {
    int width = 0;
    int height = 0;
    QByteArray pixels; ///< ARGB of 32 bits, the most significant byte first, row by row.
};

using StatusNotifierPixmaps = QList<StatusNotifierPixmap>;

struct StatusNotifierToolTip {
    QString iconName;
    StatusNotifierPixmaps iconPixmaps;
    QString title;
    QString text; ///< Hosts may take it for HTML.
};

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierToolTip& toolTip);

/// The program's icon for status-notifier hosts: the object that they read and whose methods they
/// call. Qt's own drops the place of a click and leaves activation tokens unanswered.
///
/// Every button opens the panel, which has all that a menu would have. With a menu, GNOME would
/// open that at a click and not the panel; and one of our own would stay open on Xwayland, where a
/// program does not notice a click beside it.
///
/// What is scriptable is on the bus and has the bus's names. A call with arguments of other types
/// is refused by QtDBus.
class StatusNotifierItem : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ id CONSTANT)
    Q_PROPERTY(QString Title READ title CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowId CONSTANT)
    Q_PROPERTY(QString IconName READ iconName CONSTANT)
    Q_PROPERTY(tarnwick::StatusNotifierPixmaps IconPixmap READ iconPixmaps CONSTANT)
    Q_PROPERTY(tarnwick::StatusNotifierToolTip ToolTip READ toolTip NOTIFY NewToolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)

public:
    using Clicked = std::function<void(const IconClick& click)>;

    /// Offers the item on this connection, under a bus name of its own; hosts hear of it by
    /// registerWithWatcher(). A `picture` that has a name is drawn by the host from its icon theme.
    /// `clicked` is no signal, because QtDBus would send those to the bus.
    StatusNotifierItem(QDBusConnection sessionBus, QIcon picture, Clicked clicked);
    ~StatusNotifierItem() override;
    StatusNotifierItem(const StatusNotifierItem&) = delete;
    StatusNotifierItem& operator=(const StatusNotifierItem&) = delete;

    /// Announces the item to the watcher that there is now; each new one needs it again.
    void registerWithWatcher();

    /// Sets the second line of the tooltip.
    void setStatusLabel(const QString& label);

    static QString category() { return QStringLiteral("SystemServices"); }

    static QString id() { return QStringLiteral("tarnwick-client"); }

    static QString title() { return QStringLiteral("Tarnwick Network"); }

    static QString status() { return QStringLiteral("Active"); }

    static int windowId() { return 0; }

    QString iconName() const { return picture_.name(); }

    StatusNotifierPixmaps iconPixmaps() const;

    StatusNotifierToolTip toolTip() const {
        return {{}, {}, title(), statusLabel_.toHtmlEscaped()};
    }

    static bool itemIsMenu() { return false; }

    static QDBusObjectPath menu() { return QDBusObjectPath(QStringLiteral("/NO_DBUSMENU")); }

    Q_SLOT Q_SCRIPTABLE void Activate(int x, int y);
    Q_SLOT Q_SCRIPTABLE void SecondaryActivate(int x, int y);
    Q_SLOT Q_SCRIPTABLE void ContextMenu(int x, int y);
    Q_SLOT Q_SCRIPTABLE void Scroll(int delta, const QString& orientation);
    /// Precedes the click that it is for.
    Q_SLOT Q_SCRIPTABLE void ProvideXdgActivationToken(const QString& token);

Q_SIGNALS:
    Q_SCRIPTABLE void NewIcon();
    Q_SCRIPTABLE void NewToolTip();
    Q_SCRIPTABLE void NewStatus(const QString& status);

private:
    void requestName();
    void click(const QPoint& point);

    QDBusConnection bus_;
    const QIcon picture_;
    const Clicked clicked_;
    QString statusLabel_;
    QString busName_; ///< Empty until the bus has answered.
    bool isRegistrationDue_ = false;
    QByteArray token_; ///< For the next click.
};

} // namespace tarnwick

Q_DECLARE_METATYPE(tarnwick::StatusNotifierPixmap)
Q_DECLARE_METATYPE(tarnwick::StatusNotifierToolTip)
