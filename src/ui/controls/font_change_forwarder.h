// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace tarnwick {

/// Tells all that is in a window when the application's font changes. Qt tells windows alone, and
/// widgets with a font of their own would keep it.
class FontChangeForwarder : public QObject {
    Q_OBJECT

public:
    /// Belongs to the window.
    explicit FontChangeForwarder(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarnwick
