// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace tarnwick {

/// Forwards changes of the application's font to all widgets of a window. Qt notifies only windows,
/// and widgets with a font of their own would keep it.
class FontChangeForwarder : public QObject {
    Q_OBJECT

public:
    /// Is owned by `window`.
    explicit FontChangeForwarder(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarnwick
