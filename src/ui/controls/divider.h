// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace tarnwick {

/// A hairline across the panel.
class Divider : public QWidget {
    Q_OBJECT

public:
    explicit Divider(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarnwick
