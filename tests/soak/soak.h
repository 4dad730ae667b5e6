// SPDX-License-Identifier: MIT
#pragma once

#include "faulty_tool.h"
#include "process_usage.h"
#include "ui/panel/menu_bar_view.h"

#include <QMap>
#include <QTemporaryDir>

#include <memory>

namespace tarnwick::soak {

/// A controller and a panel that live through many refreshes and openings.
class Soak {
public:
    explicit Soak(unsigned seed);
    ~Soak();

    /// One refresh with a random fault or none, and a good one after a bad one. False when the
    /// client does not show what the tool printed.
    bool refresh();

    /// Opens the panel and its popovers and closes them again; false when one does not open.
    bool openAndClose();

    /// Measured when no refresh is running and all children have ended.
    ProcessUsage usageAtRest();

    /// What the tool did and what the client shows, for a report.
    QString account() const;

    /// How often the tool was in which condition.
    const QMap<QByteArray, int>& conditions() const { return conditions_; }

private:
    bool awaitFirstRefresh();
    bool refreshOnce();
    bool openOnce();
    bool recovers(int devices);
    bool showsAnswer() const;
    bool showsAnswerOrNone() const;
    bool showsStopped() const;

    FaultyTool tool_;
    QTemporaryDir home_;
    std::shared_ptr<DaemonManager> daemon_;
    std::unique_ptr<MenuBarView> panel_;
    QByteArray lastCondition_;
    QMap<QByteArray, int> conditions_;
};

} // namespace tarnwick::soak
