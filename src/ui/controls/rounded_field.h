// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace tarnwick {

/// A text field with a rounded border that is visible in dark palettes too. Drops the line breaks
/// of pasted and dropped texts, and refuses a text longer than `longestText`, which is reported by
/// inputRejected().
class RoundedField : public QLineEdit {
    Q_OBJECT

public:
    static constexpr int longestText = 32'767;

    explicit RoundedField(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool showsFocusRing_ = false;
};

} // namespace tarnwick
