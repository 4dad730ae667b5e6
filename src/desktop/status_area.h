// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIcon>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QString>

#include <memory>
#include <optional>

namespace tarnwick {

/// A click on the program's icon, as far as the status area reports it.
struct IconClick {
    /// As it was sent: in device pixels by most, in device-independent ones by some, and possibly
    /// anything at all.
    std::optional<QPoint> point;
    QByteArray activationToken; ///< Lets the panel take the focus; "" for none.
};

/// The program's icon in the desktop's status area, whenever there is one: it may come late,
/// restart or be replaced by one of another kind.
class StatusArea : public QObject {
    Q_OBJECT

public:
    /// Shows `picture` from a later turn of the event loop on. `hasMenu`: whether, in status areas
    /// that take one, the right button opens a menu.
    StatusArea(QIcon picture, bool hasMenu);
    ~StatusArea() override;
    StatusArea(const StatusArea&) = delete;
    StatusArea& operator=(const StatusArea&) = delete;

    /// Sets what the icon's tooltip says besides the program's name.
    void setStatusLabel(const QString& label);

    /// Where the icon is, in device-independent pixels; none when there is none or the status area
    /// does not report it.
    std::optional<QRect> iconGeometry() const;

    /// Shows a notification that comes from the icon; nothing while it is at a status-notifier
    /// host.
    void showMessage(const QString& text);

Q_SIGNALS:
    /// The icon has been given to a status area; again when that restarts.
    void iconShown();
    /// There is no status area now; one may still come.
    void absent();

    void iconClicked(const tarnwick::IconClick& click);
    void openChosen(); ///< In the icon's menu.
    void quitChosen();

private:
    class Icon;
    std::unique_ptr<Icon> icon_;
};

} // namespace tarnwick
