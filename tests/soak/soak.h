// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/failure_notification.h"
#include "faulty_tool.h"
#include "notification_desk.h"
#include "process_usage.h"
#include "ui/panel/menu_bar_view.h"

#include <QMap>
#include <QTemporaryDir>

#include <memory>

namespace tarnwick::soak {

/// A controller and a panel that live through many refreshes, commands and openings. Needs a
/// session bus of its own.
class Soak {
public:
    explicit Soak(unsigned seed);
    ~Soak();

    /// One refresh with a random fault or none, and a good one after a bad one. False when the
    /// client does not show what the tool printed.
    bool refresh();

    /// A command of the user's that works or fails, and the notification that follows. False when a
    /// failure is not reported, or when anything but its text alone is shown then.
    bool command();

    /// Shows a large network once. Memory that was needed once stays the process's own, so that it
    /// has to happen before anything is compared.
    bool showLargeNetwork();

    /// Opens the panel and its popovers and closes them again; false when one does not open.
    bool openAndClose();

    /// Measured when no refresh is running and all children have ended.
    ProcessUsage usageAtRest();

    /// What the tool did and what the client shows, for a report.
    QString account() const;

    /// How often the tool was in which condition.
    const QMap<QByteArray, int>& conditions() const { return conditions_; }

    /// How many notifications there were in all.
    int notifications() const { return notificationDesk_.total(); }

private:
    bool refreshOnce();
    bool openOnce();
    bool recovers(int devices);
    bool showsAnswer() const;
    bool showsAnswerOrNone() const;
    bool showsStopped() const;
    bool waitForAnnouncement();
    std::optional<QString> outcomeOfCommand(bool& hasEnded);
    bool waitForNotifications(const QStringList& texts);

    FaultyTool tool_;
    NotificationDesk notificationDesk_;
    FailureNotification notification_;
    QTemporaryDir home_;
    std::shared_ptr<DaemonManager> daemon_;
    std::unique_ptr<MenuBarView> panel_;
    QByteArray lastCondition_;
    QMap<QByteArray, int> conditions_;
    int commands_ = 0;
};

} // namespace tarnwick::soak
