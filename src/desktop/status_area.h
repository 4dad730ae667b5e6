// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <memory>

namespace tarnwick {

/// Reports when the desktop has a status area for the program's icon.
///
/// Qt chooses between the two kinds of status area of Linux desktops once a process, when the first
/// tray icon is made: an icon made before the desktop is ready never shows. So it is made on
/// appeared() and not earlier; from then on Qt follows restarts of that status area by itself.
class StatusArea : public QObject {
    Q_OBJECT

public:
    StatusArea();
    ~StatusArea() override;
    StatusArea(const StatusArea&) = delete;
    StatusArea& operator=(const StatusArea&) = delete;

Q_SIGNALS:
    /// There is a status area. Sent at least once after construction, in a later turn of the event
    /// loop; never when the desktop has none.
    void appeared();

private:
    class Watch;
    std::unique_ptr<Watch> watch_;
};

} // namespace tarnwick
