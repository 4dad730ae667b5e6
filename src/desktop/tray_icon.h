// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QRect>
#include <QSystemTrayIcon>

#include <memory>
#include <optional>

namespace tarnwick {

class StatusArea;

/// The program's icon as Qt makes it: in an X tray or in macOS's menu bar. Made only when there is
/// one.
class TrayIcon : public QObject {
    Q_OBJECT

public:
    /// `hasMenu`: whether the right button opens a menu, or does what the left one does.
    TrayIcon(const QIcon& picture, bool hasMenu);
    ~TrayIcon() override;
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    /// Where the icon is, in device-independent pixels; none when the status area does not report
    /// it.
    std::optional<QRect> geometry() const;

    /// Shows a notification that comes from the icon.
    void showMessage(const QString& text);

    /// What an icon says when the pointer rests on it, and to screen readers.
    static QString toolTip(const QString& statusLabel);

    /// Sets what the tooltip says besides the program's name.
    void setStatusLabel(const QString& label);

    /// Makes the signals of `area` of what the user does with the icon.
    void forwardTo(StatusArea& area);

Q_SIGNALS:
    void clicked();
    void openChosen(); ///< In the context menu.
    void quitChosen();

private:
    void makeMenu();

    std::unique_ptr<QMenu> menu_; ///< Outlives the icon that shows it.
    QSystemTrayIcon icon_;
};

} // namespace tarnwick
