// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <memory>

namespace tarnwick {

/// Reports SIGTERM, SIGINT and SIGHUP as a Qt signal. One object at a time, as a process has one
/// handler for each.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

Q_SIGNALS:
    void received();

private:
    std::array<int, 2> pipe_{-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace tarnwick
