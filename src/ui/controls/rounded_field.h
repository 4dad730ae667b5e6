// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace tarnwick {

/// A text field with a rounded border that is visible in dark palettes too.
class RoundedField : public QLineEdit {
    Q_OBJECT

public:
    explicit RoundedField(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarnwick
