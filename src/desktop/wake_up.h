// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <memory>

namespace tarnwick {

/// Reports when the computer has woken from sleep.
class WakeUp : public QObject {
    Q_OBJECT

public:
    WakeUp();
    ~WakeUp() override;
    WakeUp(const WakeUp&) = delete;
    WakeUp& operator=(const WakeUp&) = delete;

Q_SIGNALS:
    void woke();

private:
    class Watch;
    std::unique_ptr<Watch> watch_;
};

} // namespace tarnwick
