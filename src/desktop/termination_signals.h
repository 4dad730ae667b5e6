// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <memory>

namespace tarnwick {

/// Turns the signals that ask a process to end into one of Qt's. One object at a time: a process
/// has one handler for a signal.
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
